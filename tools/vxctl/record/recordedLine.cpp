// Makes IP packets.
#include "vxctl/record/recordedLine.h"

#include "vxctl/record/secrets.h"
#include "vxctl/record/signPacket.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::uint8_t kTcp = 6;
constexpr std::uint8_t kUdp = 17;
constexpr std::size_t kIpHeader = 20;
constexpr std::size_t kMostInPacket = 32768; // of a stream
constexpr std::size_t kLongestWait = 131072; // no packet is longer, so that the start of one was none

// Numbers of networks have their high byte first.
void Put16(std::vector<std::uint8_t>& bytes, std::uint32_t number)
{
    bytes.push_back(static_cast<std::uint8_t>(number >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(number));
}

void Put32(std::vector<std::uint8_t>& bytes, std::uint32_t number)
{
    Put16(bytes, number >> 16U);
    Put16(bytes, number);
}

// The checksum of IP, UDP and TCP.
std::uint16_t InternetSum(std::span<const std::uint8_t> bytes)
{
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += i % 2 == 0 ? std::uint32_t{bytes[i]} << 8U : bytes[i];
    while (sum >> 16U != 0)
        sum = (sum & 0xFFFFU) + (sum >> 16U);
    return static_cast<std::uint16_t>(~sum);
}

void Patch(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint16_t number)
{
    bytes[at] = static_cast<std::uint8_t>(number >> 8U);
    bytes[at + 1] = static_cast<std::uint8_t>(number);
}

} // namespace

void RecordedLine::Datagram(Way way, Recording::Time time, Bytes bytes)
{
    std::vector<std::uint8_t> segment;
    Put16(segment, From(way).port);
    Put16(segment, Towards(way).port);
    Put16(segment, static_cast<std::uint32_t>(8 + bytes.size()));
    Put16(segment, 0);
    segment.insert(segment.end(), bytes.begin(), bytes.end());
    Add(way, time, kUdp, std::move(segment));
}

void RecordedLine::Segment(Way way, Recording::Time time, std::uint8_t flags, Bytes bytes)
{
    constexpr std::uint16_t kWindow = 65535;
    std::uint32_t& own = sequence[way == Way::kOut ? 0 : 1];
    std::vector<std::uint8_t> segment;
    Put16(segment, From(way).port);
    Put16(segment, Towards(way).port);
    Put32(segment, own);
    Put32(segment, (flags & kTcpAcknowledge) != 0 ? sequence[way == Way::kOut ? 1 : 0] : 0);
    Put16(segment, 0x5000U | flags); // a header of five words
    Put16(segment, kWindow);
    Put32(segment, 0);
    segment.insert(segment.end(), bytes.begin(), bytes.end());
    own += static_cast<std::uint32_t>(bytes.size()) + ((flags & (kTcpSyn | kTcpFin)) != 0 ? 1 : 0);
    Add(way, time, kTcp, std::move(segment));
}

void RecordedLine::Add(Way way, Recording::Time time, std::uint8_t protocol, std::vector<std::uint8_t> segment)
{
    constexpr std::uint16_t kLives = 64;
    std::vector<std::uint8_t> addresses;
    Put32(addresses, From(way).host);
    Put32(addresses, Towards(way).host);
    std::vector<std::uint8_t> summed = addresses; // the checksum covers these as well
    Put16(summed, protocol);
    Put16(summed, static_cast<std::uint32_t>(segment.size()));
    summed.insert(summed.end(), segment.begin(), segment.end());
    const std::uint16_t sum = InternetSum(summed);
    Patch(segment, protocol == kUdp ? 6 : 16, sum == 0 && protocol == kUdp ? 0xFFFF : sum);

    std::vector<std::uint8_t> packet;
    Put16(packet, 0x4500);
    Put16(packet, static_cast<std::uint32_t>(kIpHeader + segment.size()));
    Put16(packet, identification++);
    Put16(packet, 0x4000); // in one piece
    Put16(packet, static_cast<std::uint32_t>(kLives << 8U | protocol));
    Put16(packet, 0);
    packet.insert(packet.end(), addresses.begin(), addresses.end());
    Patch(packet, 10, InternetSum(packet));
    packet.insert(packet.end(), segment.begin(), segment.end());
    to->Add(line, way, time, packet);
}

void AddDatagram(RecordedLine& line, Way way, RecordedLine::Bytes bytes)
{
    std::vector<std::uint8_t> blanked(bytes.begin(), bytes.end());
    if (!line.To().KeepsSecrets())
        BlankSecrets(blanked);
    line.Datagram(way, std::chrono::system_clock::now(), blanked);
}

void RecordedStream::Add(RecordedLine& line, RecordedLine::Bytes bytes)
{
    if (waiting.empty())
        since = std::chrono::system_clock::now();
    waiting.insert(waiting.end(), bytes.begin(), bytes.end());
    std::size_t whole = 0;
    while (whole < waiting.size()) {
        const Found found = LookAt(std::span(waiting).subspan(whole));
        if (found.what == Found::What::kBegun)
            break;
        whole += found.size;
    }
    Release(line, waiting.size() < kLongestWait ? whole : waiting.size());
}

void RecordedStream::Rest(RecordedLine& line)
{
    if (line.To().KeepsSecrets() || !MayHoldSecret(waiting))
        Release(line, waiting.size());
}

void RecordedStream::End(RecordedLine& line)
{
    Release(line, waiting.size());
}

void RecordedStream::Release(RecordedLine& line, std::size_t size)
{
    const auto all = std::span(waiting).first(size);
    if (!line.To().KeepsSecrets())
        BlankSecrets(all);
    for (std::size_t at = 0; at < size; at += kMostInPacket)
        put(line, way, since, all.subspan(at, std::min(kMostInPacket, size - at)));
    waiting.erase(waiting.begin(), waiting.begin() + static_cast<std::ptrdiff_t>(size));
    since = std::chrono::system_clock::now();
}

} // namespace vxctl
