// The record that every packet of a file begins with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kShortNumber = 2; // width of a packet number in the record
inline constexpr std::size_t kLongNumber = 4;

// What remains of a file record after its request is gone: enough to know the packets of the same file by.
struct KeptRecord
{
    std::uint8_t minor = 0;
    std::vector<std::uint8_t> bytes;
};

// The record of one file packet. All packets of one transfer carry the same record but for the packet number.
struct FileRecord
{
    std::uint8_t minor = 0;
    std::span<const std::uint8_t> bytes; // holds the packet number whole
    std::size_t numberAt = 0;            // place and width of the packet number
    std::size_t numberSize = kShortNumber;
    std::uint32_t chunkSize = 0;
    std::uint32_t number = 0; // from 1

    KeptRecord Keep() const { return {minor, {bytes.begin(), bytes.end()}}; }
    bool NamesSame(const KeptRecord& other) const;
};

} // namespace vxsim
