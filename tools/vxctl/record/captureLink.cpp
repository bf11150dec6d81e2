// Takes frames apart.
#include "vxctl/record/captureLink.h"

#include <algorithm>

namespace vxctl {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kIpv4 = 0x0800;

// High byte first; bytes beyond the end are 0.
std::uint32_t Big(Bytes bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = at; i < at + size; ++i)
        number = number << 8U | (i < bytes.size() ? bytes[i] : 0U);
    return number;
}

Bytes Behind(Bytes bytes, std::size_t size)
{
    return bytes.subspan(std::min(size, bytes.size()));
}

// Behind the addresses there may be tags of virtual networks.
Bytes OfEthernet(Bytes frame)
{
    std::size_t at = 12;
    while (Big(frame, at, 2) == 0x8100 || Big(frame, at, 2) == 0x88A8)
        at += 4;
    return Big(frame, at, 2) == kIpv4 ? Behind(frame, at + 2) : Bytes();
}

Bytes IpOf(const CapturedFrame& frame)
{
    const Bytes bytes = frame.bytes;
    switch (frame.link) {
    case LinkType::kEthernet:
        return OfEthernet(bytes);
    case LinkType::kLinuxCooked:
        return Big(bytes, 14, 2) == kIpv4 ? Behind(bytes, 16) : Bytes();
    case LinkType::kLinuxCooked2:
        return Big(bytes, 0, 2) == kIpv4 ? Behind(bytes, 20) : Bytes();
    case LinkType::kLoopback:
    case LinkType::kLoopbackNetwork:
        return Behind(bytes, 4);
    case LinkType::kRaw:
    case LinkType::kRawOld:
    case LinkType::kRawOther:
    case LinkType::kIpv4:
        return bytes;
    }
    return {};
}

std::optional<CapturedPacket> OfUdp(Bytes segment, CapturedPacket packet)
{
    const std::size_t size = Big(segment, 4, 2);
    if (segment.size() < 8 || size < 8)
        return std::nullopt;
    packet.bytes = segment.subspan(8, std::min(size, segment.size()) - 8);
    return packet;
}

std::optional<CapturedPacket> OfTcp(Bytes segment, CapturedPacket packet)
{
    const std::size_t header = std::size_t{4} * (Big(segment, 12, 1) >> 4U);
    if (header < 20 || segment.size() < header)
        return std::nullopt;
    packet.isTcp = true;
    packet.sequence = Big(segment, 4, 4);
    packet.flags = static_cast<std::uint8_t>(Big(segment, 13, 1));
    packet.bytes = segment.subspan(header);
    return packet;
}

} // namespace

std::optional<CapturedPacket> PacketOf(const CapturedFrame& frame)
{
    constexpr std::uint32_t kPieces = 0x3FFF; // more of them follow, or this one is not the first
    const Bytes ip = IpOf(frame);
    const std::size_t header = std::size_t{4} * (Big(ip, 0, 1) & 0xFU);
    std::size_t size = Big(ip, 2, 2);
    if (size == 0) // the network card fills it in behind the capture
        size = ip.size();
    if (Big(ip, 0, 1) >> 4U != 4 || header < 20 || size < header || ip.size() < header ||
        (Big(ip, 6, 2) & kPieces) != 0)
        return std::nullopt;
    const Bytes segment = ip.subspan(header, std::min(size, ip.size()) - header);
    const auto port = [segment](std::size_t at) { return static_cast<std::uint16_t>(Big(segment, at, 2)); };
    CapturedPacket packet;
    packet.from = {Big(ip, 12, 4), port(0)};
    packet.to = {Big(ip, 16, 4), port(2)};
    const std::uint32_t protocol = Big(ip, 9, 1);
    if (protocol == 17)
        return OfUdp(segment, packet);
    return protocol == 6 ? OfTcp(segment, packet) : std::nullopt;
}

} // namespace vxctl
