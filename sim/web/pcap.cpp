#include "sim/web/pcap.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace vxsim {
namespace {

constexpr std::size_t kIpSize = 20;
constexpr std::size_t kUdpSize = 8;
constexpr std::size_t kMostInDatagram = 65535 - kIpSize - kUdpSize;
constexpr std::uint32_t kRawIp = 101;
constexpr std::uint64_t kPorts = 65536;
constexpr std::uint64_t kFirstFreePort = 49152;
constexpr std::int64_t kUsPerSecond = 1000000;

using Block = std::span<std::uint8_t>;

// Network order.
void Put16(Block block, std::size_t at, std::uint32_t value)
{
    block[at] = static_cast<std::uint8_t>(value >> 8);
    block[at + 1] = static_cast<std::uint8_t>(value);
}

void Put32(Block block, std::size_t at, std::uint32_t value)
{
    Put16(block, at, value >> 16);
    Put16(block, at + 2, value);
}

std::uint16_t IpChecksum(Block header)
{
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < header.size(); at += 2)
        sum += static_cast<std::uint32_t>(header[at] << 8 | header[at + 1]);
    while (sum >> 16 != 0)
        sum = (sum & 0xFFFF) + (sum >> 16);
    return static_cast<std::uint16_t>(~sum);
}

std::uint16_t PortOf(const CarriedPacket& packet)
{
    const bool isPort = packet.line < kPorts;
    return static_cast<std::uint16_t>(isPort ? packet.line : kFirstFreePort + packet.line % (kPorts - kFirstFreePort));
}

void AddDatagram(std::string& file, std::int64_t timeUs, CapturedSign from, CapturedSign to,
                 std::span<const std::uint8_t> bytes)
{
    const auto data = bytes.first(std::min(bytes.size(), kMostInDatagram));
    constexpr std::size_t kRecord = 16;
    std::array<std::uint8_t, kRecord + kIpSize + kUdpSize> head{};
    const auto size = static_cast<std::uint32_t>(kIpSize + kUdpSize + data.size());
    Store32(head, 0, static_cast<std::uint32_t>(timeUs / kUsPerSecond));
    Store32(head, 4, static_cast<std::uint32_t>(timeUs % kUsPerSecond));
    Store32(head, 8, size);
    Store32(head, 12, size + static_cast<std::uint32_t>(bytes.size() - data.size()));
    const Block ip = Block(head).subspan(kRecord, kIpSize);
    ip[0] = 0x45; // version 4, five words
    Put16(ip, 2, size);
    ip[8] = 64; // hops
    ip[9] = 17; // UDP
    Put32(ip, 12, from.host);
    Put32(ip, 16, to.host);
    Put16(ip, 10, IpChecksum(ip));
    const Block udp = Block(head).last(kUdpSize);
    Put16(udp, 0, from.port);
    Put16(udp, 2, to.port);
    Put16(udp, 4, static_cast<std::uint32_t>(kUdpSize + data.size())); // the checksum stays 0: none
    file.append(head.begin(), head.end());
    file.append(data.begin(), data.end());
}

} // namespace

std::string PcapHeader()
{
    std::array<std::uint8_t, 24> header{};
    Store32(header, 0, 0xA1B2C3D4);
    Store16(header, 4, 2); // version 2.4
    Store16(header, 6, 4);
    Store32(header, 16, 65535); // the longest packet
    Store32(header, 20, kRawIp);
    return {header.begin(), header.end()};
}

std::string PcapRecords(const CarriedPacket& packet, const CapturedSign& sign)
{
    std::string records;
    const CapturedSign host{packet.host, PortOf(packet)};
    const std::int64_t repliedUs = packet.timeMs * 1000;
    AddDatagram(records, repliedUs - packet.tookUs, host, sign, packet.request);
    if (!packet.reply.empty())
        AddDatagram(records, repliedUs, sign, host, packet.reply);
    return records;
}

} // namespace vxsim
