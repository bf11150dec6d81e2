// The layout of a packet, request and reply alike.
#pragma once

#include "util/littleEndian.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace vxsign {

constexpr std::uint8_t kSync = 0x55;
constexpr std::uint8_t kRequestSum = 0xA7;
constexpr std::uint8_t kRequestCrc = 0xA3;
constexpr std::uint8_t kReplySum = 0xA8;
constexpr std::uint8_t kReplyCrc = 0xA4;
constexpr std::uint8_t kReplyCrcSecond = 0xB2;

/// Offsets within the header.
namespace header {
constexpr std::size_t kChecksum = 2;
constexpr std::size_t kExtendedLength = 4;
constexpr std::size_t kSourceAddress = 6;
constexpr std::size_t kDestinationAddress = 8;
constexpr std::size_t kPacketId = 10;
constexpr std::size_t kMajor = 12;
constexpr std::size_t kMinor = 13;
constexpr std::size_t kPayloadWords = 14;
constexpr std::size_t kStatus = 15;
constexpr std::size_t kSize = 16;
} // namespace header

constexpr std::uint32_t kLongestPayload = 255 * 4;
constexpr std::uint32_t kLongestExtended = 65535;

/// Mode of vxChkSum.
enum ChecksumMode : std::uint32_t
{
    kSumMode = 0,
    kCrcMode = 1
};

constexpr bool IsReplySync(const std::uint8_t* bytes)
{
    return bytes[0] == kSync && (bytes[1] == kReplySum || bytes[1] == kReplyCrc || bytes[1] == kReplyCrcSecond);
}

/// The words that a payload of this many bytes takes.
constexpr std::uint32_t PayloadWords(std::uint32_t length)
{
    return (length + 3) / 4;
}

/// The whole length that a header of 16 bytes declares.
constexpr std::uint32_t TotalLength(const std::uint8_t* packet)
{
    return static_cast<std::uint32_t>(header::kSize) + 4u * packet[header::kPayloadWords] +
           Load16(packet + header::kExtendedLength);
}

/// A reply that has passed its checks. What lies beyond its end reads as zero.
class ReplyView
{
public:
    /// The packet is as long as its header declares.
    explicit ReplyView(const std::uint8_t* packet) : bytes(packet, TotalLength(packet)) {}

    std::uint32_t PayloadLength() const { return 4u * bytes[header::kPayloadWords]; }

    /// Fields by their offset in the payload. The reply's word count is not held against them: a field behind the
    /// payload reads what stands there in the packet.
    std::uint8_t U8(std::size_t offset) const { return Load<std::uint8_t>(offset); }
    std::uint16_t U16(std::size_t offset) const { return Load<std::uint16_t>(offset); }
    std::uint32_t U32(std::size_t offset) const { return Load<std::uint32_t>(offset); }
    std::uint64_t U64(std::size_t offset) const { return Load<std::uint64_t>(offset); }

    void Copy(void* target, std::size_t offset, std::size_t size) const
    {
        const std::size_t from = std::min(header::kSize + offset, bytes.size());
        const std::size_t here = std::min(size, bytes.size() - from);
        std::memcpy(target, bytes.data() + from, here);
        std::memset(static_cast<std::uint8_t*>(target) + here, 0, size - here);
    }

    std::span<const std::uint8_t> Extended() const { return bytes.subspan(header::kSize + PayloadLength()); }

private:
    template <class T>
    T Load(std::size_t offset) const
    {
        std::uint8_t field[sizeof(T)];
        Copy(field, offset, sizeof field);
        return LoadLittle<T>(field);
    }

    std::span<const std::uint8_t> bytes;
};

/// Ids of requests: one counter of 16 bits for the whole process, without a lock, so that a child that is forked in the
/// middle of it goes on.
namespace packetIds {
std::uint16_t Next();
/// The next id will be `id` + 1.
void Set(std::uint16_t id);
} // namespace packetIds

} // namespace vxsign
