#pragma once

#include <cstddef>
#include <cstdint>

namespace vxsim {

inline constexpr std::size_t kNoField = 255;
inline constexpr std::size_t kNameSize = 12;

// Where the fields of a file record stand. A record names its file by a bare name of twelve bytes, by a path that runs
// to its terminator or to the end of the payload, or not at all.
struct FileLayout
{
    std::uint8_t minor = 0;
    std::size_t minimum = 0; // shortest payload
    std::size_t drive = kNoField;
    std::size_t name = kNoField;
    std::size_t path = kNoField;
    std::size_t fileSize = kNoField;
    std::size_t chunkSize = 0;
    std::size_t total = kNoField; // as wide as the packet number
    std::size_t number = 0;
    std::size_t numberSize = 2;
    const char* folder = ""; // of a bare name
};

// Layouts of the requests that write and that read; null for a minor that moves no file.
const FileLayout* WriteLayout(std::uint8_t minor);
const FileLayout* ReadLayout(std::uint8_t minor);

} // namespace vxsim
