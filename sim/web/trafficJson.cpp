#include "sim/web/trafficJson.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/protocol/codes.h"
#include "sim/protocol/frame.h"
#include "sim/web/jsonText.h"
#include "vxsign/result.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

namespace vxsim {
namespace {

using nlohmann::json;
using Bytes = std::span<const std::uint8_t>;

struct ResultWord
{
    std::uint32_t code;
    std::string_view text;
};

constexpr ResultWord kWords[] = {
#define VX_WORD(name, text, advice) {name, text},
#include "words/resultWords.def"
};

std::string_view TextOfCode(std::uint16_t code)
{
    const auto* const word = std::ranges::find(kWords, code, &ResultWord::code);
    return word == std::end(kWords) ? "" : word->text;
}

std::string ChannelOf(const CarriedPacket& packet)
{
    constexpr std::uint64_t kPorts = 65536;
    if (packet.host == 0)
        return "serial";
    return packet.line < kPorts ? "udp:" + std::to_string(packet.line) : "tcp:" + std::to_string(packet.line - kPorts);
}

bool IsTile(Bytes packet)
{
    return packet.size() > 1 && (packet[1] == kTileRequest || packet[1] == kTileReply);
}

std::uint8_t ByteAt(Bytes packet, std::size_t at)
{
    return at < packet.size() ? packet[at] : std::uint8_t{0};
}

std::string HexNumber(unsigned value, int digits)
{
    std::string text = Hex(std::array{static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)});
    return "0x" + text.substr(4 - static_cast<std::size_t>(digits));
}

json HeaderOf(Bytes packet)
{
    json fields = json::array();
    const auto field = [&](const char* name, const std::string& value) {
        fields.push_back({{"name", name}, {"value", value}});
    };
    const auto word = [&](std::size_t at) { return std::to_string(Load16(packet, at)); };
    field("sync", HexNumber(ByteAt(packet, 0), 2) + " " + HexNumber(ByteAt(packet, 1), 2));
    field("checksum", HexNumber(Load16(packet, 2), 4));
    field("extended bytes", word(4));
    field("source", word(6));
    field("destination", word(8));
    field("id", word(10));
    field("major", std::to_string(ByteAt(packet, 12)));
    field("minor", std::to_string(ByteAt(packet, 13)));
    field("payload words", std::to_string(ByteAt(packet, 14)));
    field("status", std::to_string(ByteAt(packet, 15)));
    return fields;
}

// Whatever a damaged header says: no byte beyond the packet, and all of them.
json PacketOf(Bytes packet)
{
    if (packet.empty())
        return nullptr;
    const bool isWhole = packet.size() >= kHeaderSize;
    const Bytes behind = isWhole ? packet.subspan(kHeaderSize) : Bytes();
    const std::size_t payload = std::min(behind.size(), std::size_t{4} * ByteAt(packet, 14));
    return {{"bytes", Hex(packet)},
            {"header", isWhole ? HeaderOf(packet) : json::array()},
            {"payload", Hex(behind.first(payload))},
            {"extended", Hex(behind.subspan(payload))}};
}

} // namespace

json SummaryOf(const CarriedPacket& packet)
{
    return {{"id", packet.id},
            {"timeMs", packet.timeMs},
            {"host", packet.host == 0 ? "serial" : AddressText(packet.host)},
            {"channel", ChannelOf(packet)},
            {"name", packet.name},
            {"major", ByteAt(packet.request, 12)},
            {"minor", ByteAt(packet.request, 13)},
            {"tile", IsTile(packet.request)},
            {"requestBytes", packet.request.size()},
            {"replyBytes", packet.reply.size()},
            {"code", packet.code},
            {"text", TextOfCode(packet.code)},
            {"durationUs", packet.tookUs},
            {"remark", packet.remark}};
}

json DetailsOf(const CarriedPacket& packet)
{
    return {{"request", PacketOf(packet.request)}, {"reply", PacketOf(packet.reply)}};
}

} // namespace vxsim
