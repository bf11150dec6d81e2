#include "sim/protocol/reply.h"

#include "sim/protocol/bytes.h"
#include "sim/protocol/checksum.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr std::size_t kMaxWords = 255;
constexpr std::size_t kMaxExtended = 65535;

} // namespace

Reply Reply::WithCode(Code code)
{
    if (code == Code::kOk)
        return Done();
    Reply reply{1, std::vector<std::uint8_t>(4), {}};
    Store16(reply.payload, 0, static_cast<std::uint16_t>(code));
    return reply;
}

std::vector<std::uint8_t> BuildReply(const Frame& request, const Reply& reply)
{
    const std::size_t words = std::min((reply.payload.size() + 3) / 4, kMaxWords);
    const std::size_t payloadLength = std::min(reply.payload.size(), 4 * words);
    const std::size_t extendedLength = std::min(reply.extended.size(), kMaxExtended);
    std::vector<std::uint8_t> packet(kHeaderSize + 4 * words + extendedLength);
    packet[0] = kSync;
    packet[1] = request.tile ? kTileReply : request.crc ? kCrcReply : kSumReply;
    Store16(packet, 4, static_cast<std::uint16_t>(extendedLength));
    Store16(packet, 6, request.destination);
    Store16(packet, 8, request.source);
    Store16(packet, 10, request.id);
    packet[12] = request.major;
    packet[13] = request.minor;
    packet[14] = static_cast<std::uint8_t>(words);
    packet[15] = reply.status;
    std::copy_n(reply.payload.begin(), payloadLength, packet.begin() + kHeaderSize);
    std::copy_n(reply.extended.begin(), extendedLength, packet.end() - static_cast<std::ptrdiff_t>(extendedLength));
    RestoreChecksum(packet);
    return packet;
}

void RestoreChecksum(std::span<std::uint8_t> packet)
{
    if (packet.size() < kHeaderSize)
        return;
    const auto checked = packet.subspan(4);
    Store16(packet, 2, packet[1] != kSumReply ? Crc16(checked) : Sum16(checked));
}

} // namespace vxsim
