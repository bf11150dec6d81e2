// Blocks of XMODEM as they go over the line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vxsign::xmodem {

constexpr std::uint8_t kSoh = 1;
constexpr std::uint8_t kEot = 4;
constexpr std::uint8_t kAck = 6;
constexpr std::uint8_t kNak = 21;
constexpr std::uint8_t kAskCrc = 'C';

constexpr std::size_t kDataAt = 3;
constexpr std::size_t kDataSize = 128;
constexpr std::uint8_t kFilling = 0x1A;

enum class Check : std::uint8_t
{
    kCrc,
    kSum
};

/// The checksum that ends a block: polynomial 0x1021, start 0, not reflected.
std::uint16_t Crc(std::span<const std::uint8_t> bytes);

/// One block, whose data is filled in before it is sealed.
class Frame
{
public:
    std::span<std::uint8_t, kDataSize> Data() { return std::span(bytes).subspan<kDataAt, kDataSize>(); }

    /// Puts everything else around the data.
    void Seal(std::uint32_t blockNumber, Check check);

    /// The block last sealed.
    std::span<const std::uint8_t> Bytes() const { return std::span(bytes).first(length); }

private:
    std::array<std::uint8_t, kDataAt + kDataSize + 2> bytes{};
    std::size_t length = 0;
};

} // namespace vxsign::xmodem
