// Puts streams together, finds packets and matches answers.
#include "vxctl/record/captureTalk.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/signUrl.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::size_t kMostEarly = 64; // segments that wait for one that is missing, ahead of giving that one up

// A segment's place in its stream; what has been there already is negative.
std::int32_t Distance(std::uint32_t sequence, std::uint32_t next)
{
    return static_cast<std::int32_t>(sequence - next);
}

// The port in the URL of a sign; nothing where it is none.
std::optional<std::uint16_t> PortOf(const std::string& line)
{
    if (!line.starts_with("udp://") && !line.starts_with("tcp://"))
        return std::nullopt;
    try {
        return ParseSignUrl(line).port;
    } catch (const UsageError&) {
        return std::nullopt;
    }
}

// Whether all of it is a frame of Modbus RTU, by its checksum.
bool IsModbus(std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t kLeast = 5;
    constexpr std::size_t kMost = 256;
    if (bytes.size() < kLeast || bytes.size() > kMost || BeginsPacket(bytes))
        return false;
    std::uint32_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes.first(bytes.size() - 2)) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? crc >> 1U ^ 0xA001U : crc >> 1U;
    }
    return crc == Load16(bytes, bytes.size() - 2);
}

// Whether all of it is a block with its number twice, or one of the signs about blocks.
bool IsXModem(std::span<const std::uint8_t> bytes)
{
    constexpr std::uint8_t kSigns[] = {0x04, 0x06, 0x15, 0x18, 0x43};
    if (bytes.size() == 1)
        return std::ranges::find(kSigns, bytes[0]) != std::end(kSigns);
    const std::size_t data = bytes.size() < 132 ? 0 : bytes[0] == 1 ? 128 : bytes[0] == 2 ? 1024 : 0;
    return data != 0 && (bytes.size() == data + 4 || bytes.size() == data + 5) && (bytes[1] ^ bytes[2]) == 0xFF;
}

} // namespace

void CaptureTalk::Add(const CapturedFrame& frame)
{
    if (const auto port = PortOf(frame.line))
        ports.insert(*port);
    const std::optional<CapturedPacket> packet = PacketOf(frame);
    const auto isPlace = [this](const Endpoint& end) { return ports.contains(end.port); };
    if (!packet || (!isPlace(packet->from) && !isPlace(packet->to))) {
        ++others;
        return;
    }
    Said said;
    said.isReply = !isPlace(packet->to);
    said.frame = frame.number;
    said.time = frame.time;
    said.line = frame.line;
    said.host = said.isReply ? packet->to : packet->from;
    said.sign = said.isReply ? packet->from : packet->to;
    said.isTcp = packet->isTcp;
    if (packet->isTcp) {
        const Flow flow{packet->from.host, packet->from.port, packet->to.host, packet->to.port, true};
        return AddSegment(streams[flow], *packet, said);
    }
    std::vector<std::uint8_t> bytes(packet->bytes.begin(), packet->bytes.end());
    Take(bytes, said, true);
}

void CaptureTalk::AddSegment(Stream& stream, const CapturedPacket& packet, const Said& said)
{
    const bool begins = (packet.flags & kTcpSyn) != 0;
    if (begins || !stream.isOpen) {
        Take(stream.bytes, stream.last, true);
        stream = {true, packet.sequence + (begins ? 1U : 0U), {}, {}, said};
    }
    if (!packet.bytes.empty()) {
        std::vector<std::uint8_t>& place = stream.early[packet.sequence + (begins ? 1U : 0U)];
        if (packet.bytes.size() > place.size())
            place.assign(packet.bytes.begin(), packet.bytes.end());
        Continue(stream, said);
    }
    if ((packet.flags & (kTcpFin | kTcpReset)) != 0 && stream.early.empty()) {
        Take(stream.bytes, stream.last, true);
        stream.isOpen = false;
    }
}

void CaptureTalk::Continue(Stream& stream, const Said& said)
{
    while (!stream.early.empty()) {
        auto first = std::ranges::min_element(
            stream.early, {}, [&](const auto& segment) { return Distance(segment.first, stream.next); });
        const std::int32_t distance = Distance(first->first, stream.next);
        if (distance > 0) {
            if (stream.early.size() < kMostEarly)
                return; // it may still come
            Take(stream.bytes, stream.last, true);
            Put(said, Said::What::kLost, {});
            all.back().size = static_cast<std::size_t>(distance);
            stream.next = first->first;
        }
        const std::size_t known = distance < 0 ? static_cast<std::size_t>(-std::int64_t{distance}) : 0;
        if (known < first->second.size()) {
            const auto fresh = std::span(first->second).subspan(known);
            stream.bytes.insert(stream.bytes.end(), fresh.begin(), fresh.end());
            stream.next += static_cast<std::uint32_t>(fresh.size());
        }
        stream.early.erase(first);
        stream.last = said;
        Take(stream.bytes, said, false);
    }
}

// What is whole among the bytes, or all of them where no more come.
void CaptureTalk::Take(std::vector<std::uint8_t>& bytes, const Said& said, bool isEnd)
{
    std::span<const std::uint8_t> left = bytes;
    if (IsModbus(left) || IsXModem(left)) {
        Put(said, IsModbus(left) ? Said::What::kModbus : Said::What::kXModem, left);
        left = {};
    }
    while (!left.empty()) {
        const Found found = LookAt(left);
        if (found.what == Found::What::kBegun && !isEnd)
            break;
        const auto what = found.what == Found::What::kPacket  ? Said::What::kPacket
                          : found.what == Found::What::kNoise ? Said::What::kNoise
                                                              : Said::What::kCut;
        Put(said, what, left.first(found.size));
        left = left.subspan(found.size);
    }
    bytes.erase(bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(left.size()));
}

void CaptureTalk::Put(Said said, Said::What what, std::span<const std::uint8_t> bytes)
{
    said.what = what;
    said.bytes.assign(bytes.begin(), bytes.end());
    said.size = bytes.size();
    if (what == Said::What::kPacket)
        Match(said);
    all.push_back(std::move(said));
}

void CaptureTalk::Match(Said& said)
{
    const SignPacket packet(said.bytes);
    if (said.isReply != packet.IsReply()) // both places are known as those of signs
        std::swap(said.host, said.sign);
    said.isReply = packet.IsReply();
    const auto key = std::tuple(Flow{said.host.host, said.host.port, said.sign.host, said.sign.port, said.isTcp},
                                packet.Id(), packet.Major(), packet.Minor());
    const auto found = waiting.find(key);
    if (!said.isReply) {
        said.isRepeated = found != waiting.end();
        said.isUnanswered = true;
        waiting[key] = all.size();
    } else if (found != waiting.end() && packet.IsGood()) {
        said.answerTime = said.time - all[found->second].time;
        all[found->second].isUnanswered = false;
        waiting.erase(found);
    }
}

void CaptureTalk::End()
{
    for (auto& [flow, stream] : streams)
        Take(stream.bytes, stream.last, true);
}

std::string ReadCapture(const std::string& file, CaptureTalk& talk)
{
    std::string fault;
    try {
        CaptureFile capture(file);
        while (const auto frame = capture.Next())
            talk.Add(*frame);
    } catch (const CaptureFault& cut) {
        fault = cut.what();
    }
    talk.End();
    return fault;
}

} // namespace vxctl
