// Tells packets in a line each.
#include "vxctl/record/saidText.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/platform/localFiles.h"
#include "vxctl/record/requestFields.h"

#include <vxsign/result.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

namespace vxctl {

namespace {

struct CommandRow
{
    int major;
    int minor; // -1 for any
    const char* name;
};

constexpr CommandRow kCommands[] = {
#define VX_COMMAND(major, minor, name) {major, minor, name},
#include "words/commandNames.def"
};

constexpr std::size_t kMostBytes = 32; // of noise that are shown

std::string Formatted(const char* form, long number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), form, number);
    return text.data();
}

std::tm Utc(std::chrono::seconds since)
{
    const std::chrono::sys_seconds when(since);
    const auto day = std::chrono::floor<std::chrono::days>(when);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(when - day);
    std::tm parts{};
    parts.tm_year = static_cast<int>(date.year()) - 1900;
    parts.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    parts.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    parts.tm_hour = static_cast<int>(time.hours().count());
    parts.tm_min = static_cast<int>(time.minutes().count());
    parts.tm_sec = static_cast<int>(time.seconds().count());
    return parts;
}

// By the clock of this PC or as UTC.
std::string TimeText(std::chrono::nanoseconds time, bool isUtc)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const std::tm parts = isUtc ? Utc(seconds) : platform::LocalTime(static_cast<std::time_t>(seconds.count()));
    std::array<char, 48> text{};
    std::strftime(text.data(), text.size(), isUtc ? "%Y-%m-%dT%H:%M:%S" : "%Y-%m-%d %H:%M:%S", &parts);
    return text.data() + Formatted(".%06ld", static_cast<long>((time - seconds).count() / 1000)) + (isUtc ? "Z" : "");
}

std::string Seconds(std::chrono::nanoseconds time)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.6f", std::chrono::duration<double>(time).count());
    return text.data();
}

std::string HexText(std::span<const std::uint8_t> bytes)
{
    return FormatHex(bytes.data(), std::min(bytes.size(), kMostBytes)) + (bytes.size() > kMostBytes ? " ..." : "");
}

std::string WordText(std::uint32_t code)
{
    return FormatWord(code) + " " + vxErrorDesc(code);
}

std::string AnswerText(const Said& said, const SignPacket& packet)
{
    const std::uint32_t code = CodeOf(said);
    std::string text = code != VX_OK         ? WordText(code)
                       : packet.Status() < 2 ? "OK"
                                             : "status " + std::to_string(packet.Status());
    if (said.answerTime)
        text += ", " + Seconds(*said.answerTime) + " s";
    return text + (said.answerTime ? "" : ", to no request");
}

std::string RequestText(const Said& said, const SignPacket& packet)
{
    std::string text;
    for (const RequestField& field : FieldsOf(packet))
        text += (text.empty() ? "" : ", ") + (field.isText ? "" : field.name + " ") + field.value;
    if (said.isRepeated)
        text += text.empty() ? "once more" : ", once more";
    return text + (said.isUnanswered ? (text.empty() ? "NO ANSWER" : ", NO ANSWER") : "");
}

// From a column on, and behind a blank at least.
void AddCell(std::string& line, std::size_t column, const std::string& cell)
{
    line.resize(std::max(line.size() + 1, column), ' ');
    line += cell;
}

std::string PacketText(const Said& said)
{
    const SignPacket packet(said.bytes);
    const std::string name = packet.IsForTile() ? "tile's own" : CommandName(packet.Major(), packet.Minor());
    std::string text = std::to_string(packet.Major()) + "," + std::to_string(packet.Minor());
    AddCell(text, 7, name.empty() ? "?" : name);
    AddCell(text, 32, "id " + std::to_string(packet.Id()));
    const std::string rest = said.isReply ? AnswerText(said, packet) : RequestText(said, packet);
    if (!packet.IsGood() || !rest.empty())
        AddCell(text, 41, (packet.IsGood() ? "" : "BAD CHECKSUM  ") + rest);
    return text;
}

std::string XModemText(std::span<const std::uint8_t> bytes)
{
    constexpr std::pair<std::uint8_t, const char*> kSigns[] = {{0x04, "end of the file"},
                                                               {0x06, "taken"},
                                                               {0x15, "not taken"},
                                                               {0x18, "broken off"},
                                                               {0x43, "blocks are wanted"}};
    if (bytes.size() > 1)
        return "block " + std::to_string(bytes[1]) + ", " + std::to_string(bytes.size()) + " bytes";
    const auto* const found = std::ranges::find(kSigns, bytes[0], &std::pair<std::uint8_t, const char*>::first);
    return found == std::end(kSigns) ? "" : found->second;
}

std::string SaidText(const Said& said)
{
    switch (said.what) {
    case Said::What::kPacket:
        return PacketText(said);
    case Said::What::kModbus:
        return "Modbus " + HexText(said.bytes);
    case Said::What::kXModem:
        return "XMODEM " + XModemText(said.bytes);
    case Said::What::kNoise:
        return "NOISE, " + std::to_string(said.size) + " bytes: " + HexText(said.bytes);
    case Said::What::kCut:
        return "PACKET WITHOUT ITS END, " + std::to_string(said.size) + " bytes: " + HexText(said.bytes);
    case Said::What::kLost:
        return std::to_string(said.size) + " bytes that the capture does not have";
    }
    return {};
}

Tone ToneOf(const Said& said)
{
    const bool isPacket = said.what == Said::What::kPacket;
    if (said.isUnanswered || (isPacket && !SignPacket(said.bytes).IsGood()))
        return Tone::kWrong;
    if (said.what == Said::What::kModbus || said.what == Said::What::kXModem || (isPacket && CodeOf(said) == VX_OK))
        return Tone::kPlain;
    return Tone::kDoubtful;
}

constexpr std::string_view kWhat[] = {"packet", "modbus", "xmodem", "noise", "cut", "lost"};

void PutPacket(Report::Json& object, const Said& said)
{
    const SignPacket packet(said.bytes);
    object["major"] = packet.Major();
    object["minor"] = packet.Minor();
    object["name"] = packet.IsForTile() ? "" : CommandName(packet.Major(), packet.Minor());
    object["id"] = packet.Id();
    object["isGood"] = packet.IsGood();
    if (said.isReply) {
        object["code"] = CodeOf(said);
        object["meaning"] = vxErrorDesc(CodeOf(said));
        object["seconds"] =
            said.answerTime ? Report::Json(std::chrono::duration<double>(*said.answerTime).count()) : Report::Json();
        return;
    }
    object["isAnswered"] = !said.isUnanswered;
    object["isRepeated"] = said.isRepeated;
    for (const RequestField& field : FieldsOf(packet))
        object["fields"].push_back({{"field", field.name}, {"value", field.value}});
}

} // namespace

std::string CommandName(std::uint8_t major, std::uint8_t minor)
{
    const auto* const found = std::ranges::find_if(kCommands, [major, minor](const CommandRow& row) {
        return row.major == major && (row.minor == minor || row.minor < 0);
    });
    return found == std::end(kCommands) ? "" : found->name;
}

std::string SignOf(const Said& said)
{
    if (said.line.starts_with("serial:"))
        return said.line;
    std::string text = said.isTcp ? "tcp://" : "udp://";
    for (unsigned shift = 32; shift != 0; shift -= 8)
        text += std::to_string(said.sign.host >> (shift - 8) & 0xFFU) + (shift > 8 ? "." : ":");
    return text + std::to_string(said.sign.port);
}

std::uint32_t CodeOf(const Said& said)
{
    const SignPacket packet(said.bytes);
    const std::uint32_t code = said.isReply && packet.Status() == 1 ? Load16(packet.Payload(), 0) : 0U;
    return code == VX_PROCESS_OK ? static_cast<std::uint32_t>(VX_OK) : code;
}

Shown LineOf(const Said& said, bool many)
{
    const std::string head = TimeText(said.time, false) + (many ? "  " + SignOf(said) : "");
    return Shown(head + (said.isReply ? "  <- " : "  -> ")) + Toned(Shown(SaidText(said)), ToneOf(said));
}

Report::Json ObjectOf(const Said& said)
{
    Report::Json object = {{"frame", said.frame},
                           {"time", TimeText(said.time, true)},
                           {"from", said.isReply ? "sign" : "host"},
                           {"sign", SignOf(said)},
                           {"kind", kWhat[static_cast<std::size_t>(said.what)]},
                           {"bytes", said.size}};
    if (said.what == Said::What::kPacket)
        PutPacket(object, said);
    else if (said.what != Said::What::kLost)
        object["data"] = FormatHex(said.bytes.data(), said.bytes.size(), "");
    return object;
}

} // namespace vxctl
