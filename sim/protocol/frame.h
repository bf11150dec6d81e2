// Packets of a host, taken apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace vxsim {

inline constexpr std::size_t kHeaderSize = 16;
// A host builds its requests in a buffer of this size, so whatever declares more is no request.
inline constexpr std::size_t kMaxRequest = 3072;
inline constexpr std::uint8_t kSync = 0x55;
inline constexpr std::uint8_t kSumRequest = 0xA7;
inline constexpr std::uint8_t kCrcRequest = 0xA3;
inline constexpr std::uint8_t kSumReply = 0xA8;
inline constexpr std::uint8_t kCrcReply = 0xA4;
// Packets that go through the control board to one tile, which stands in place of the destination.
inline constexpr std::uint8_t kTileRequest = 0xB1;
inline constexpr std::uint8_t kTileReply = 0xB2;

constexpr bool IsRequestSync(std::uint8_t second)
{
    return second == kSumRequest || second == kCrcRequest || second == kTileRequest;
}

// One request, taken apart. The parts point into the bytes it was parsed from.
struct Frame
{
    bool crc = false;  // checked by CRC and answered so; otherwise by the plain sum
    bool tile = false; // meant for a tile, always with CRC
    std::uint16_t source = 0;
    std::uint16_t destination = 0;
    std::uint16_t id = 0;
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::span<const std::uint8_t> payload; // whole words, zero padded by the host
    std::span<const std::uint8_t> extended;
    std::span<const std::uint8_t> bytes; // all of it
};

// Total length that the header of a packet declares; `header` holds at least kHeaderSize bytes.
std::size_t DeclaredLength(std::span<const std::uint8_t> header);

// True if the header can begin a request: sync, status 0 and a length that a host can send.
bool LooksLikeRequest(std::span<const std::uint8_t> header);

// Takes apart exactly one whole request. Nothing if it is malformed: a wrong sync, length, status or checksum.
std::optional<Frame> ParseFrame(std::span<const std::uint8_t> bytes);

} // namespace vxsim
