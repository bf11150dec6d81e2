// Packets of the tests' own making: never with the library's code.
#pragma once

#include "support/bytes.h"

#include <cstddef>

namespace vxsign::test {

/// The parts of a packet as it was sent.
struct Packet
{
    Bytes bytes;

    std::uint8_t Major() const { return bytes.at(12); }
    std::uint8_t Minor() const { return bytes.at(13); }
    std::uint16_t Id() const { return Word(10); }
    std::uint16_t Word(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(bytes.at(offset) | bytes.at(offset + 1) << 8);
    }
    Bytes Payload() const { return {bytes.begin() + 16, bytes.begin() + 16 + 4 * bytes.at(14)}; }
    Bytes Extended() const { return {bytes.begin() + 16 + 4 * bytes.at(14), bytes.end()}; }
};

/// The CRC of a packet as its field holds it: high byte first.
inline unsigned CrcField(const Bytes& packet)
{
    unsigned crc = 0xFFFF;
    for (std::size_t i = 4; i < packet.size(); ++i) {
        crc ^= packet[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? (crc >> 1) ^ 0x8408 : crc >> 1;
    }
    return (~crc >> 8 & 0xFF) | (~crc & 0xFF) << 8;
}

inline unsigned SumField(const Bytes& packet)
{
    unsigned sum = 0;
    for (std::size_t i = 4; i < packet.size(); ++i)
        sum += packet[i];
    return sum & 0xFFFF;
}

/// What is wrong with a request, empty if nothing is: sync, lengths, checksum, status.
inline const char* Malformed(const Bytes& packet)
{
    if (packet.size() < 16)
        return "shorter than its header";
    if (packet[0] != 0x55 || (packet[1] != 0xA7 && packet[1] != 0xA3 && packet[1] != 0xB1))
        return "wrong sync";
    const std::size_t total = 16u + 4u * packet[14] + packet[4] + 256u * packet[5];
    if (packet.size() != total)
        return "not as long as it declares";
    if (packet[15] != 0)
        return "status not 0";
    const unsigned check = packet[1] == 0xA7 ? SumField(packet) : CrcField(packet);
    return (packet[2] | packet[3] << 8) == static_cast<int>(check) ? "" : "wrong checksum";
}

/// A reply to a request: the whole of it. With a plain sum, but with the CRC for a request to a tile itself.
inline Bytes MakeReply(const Packet& request, std::uint8_t status, const Bytes& payload, const Bytes& extended)
{
    const std::size_t words = (payload.size() + 3) / 4;
    Bytes reply(16 + 4 * words + extended.size());
    const bool fromTile = request.bytes[1] == 0xB1;
    reply[0] = 0x55;
    reply[1] = fromTile ? 0xB2 : 0xA8;
    reply[4] = static_cast<std::uint8_t>(extended.size());
    reply[5] = static_cast<std::uint8_t>(extended.size() >> 8);
    std::copy_n(request.bytes.begin() + 6, 8, reply.begin() + 6); // addresses, id, major, minor
    reply[14] = static_cast<std::uint8_t>(words);
    reply[15] = status;
    std::copy(payload.begin(), payload.end(), reply.begin() + 16);
    std::copy(extended.begin(), extended.end(), reply.end() - static_cast<std::ptrdiff_t>(extended.size()));
    const unsigned check = fromTile ? CrcField(reply) : SumField(reply);
    reply[2] = static_cast<std::uint8_t>(check);
    reply[3] = static_cast<std::uint8_t>(check >> 8);
    return reply;
}

} // namespace vxsign::test
