// Packets of signs among bytes of any origin.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vxctl {

inline constexpr std::size_t kPacketHeader = 16;

// Whether a packet of a host or a sign begins there, as far as the bytes tell: 55 alone may be the start of one.
bool BeginsPacket(std::span<const std::uint8_t> bytes);

// The length that its header declares; 0 where that has not come.
std::size_t DeclaredSize(std::span<const std::uint8_t> bytes);

// A whole packet.
struct SignPacket
{
    explicit SignPacket(std::span<const std::uint8_t> all) : bytes(all.first(DeclaredSize(all))) {}

    bool IsReply() const { return (bytes[1] & 1U) == 0; }
    bool IsForTile() const { return bytes[1] >= 0xB1; }
    bool IsGood() const; // by its checksum
    std::uint16_t Id() const;
    std::uint8_t Major() const { return bytes[12]; }
    std::uint8_t Minor() const { return bytes[13]; }
    std::uint8_t Status() const { return bytes[15]; }
    std::span<const std::uint8_t> Payload() const { return bytes.subspan(kPacketHeader, PayloadSize()); }
    std::span<const std::uint8_t> Extended() const { return bytes.subspan(kPacketHeader + PayloadSize()); }

    std::span<const std::uint8_t> bytes;

private:
    std::size_t PayloadSize() const { return std::size_t{4} * bytes[14]; }
};

// The checksum that belongs to the bytes of a packet.
std::uint16_t ChecksumOf(std::span<const std::uint8_t> packet);

// The first packets among the bytes, where one begins, and what lies around them.
struct Found
{
    enum class What
    {
        kPacket, // whole
        kNoise,  // belongs to none
        kBegun   // its rest has not come
    };
    What what;
    std::size_t size;
};

// What lies at the start of bytes that are not empty. A packet with a bad checksum is one as well.
Found LookAt(std::span<const std::uint8_t> bytes);

} // namespace vxctl
