// info: what the sign says of itself.
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/showCodes.h"
#include "vxctl/state/condition.h"
#include "vxctl/state/faceState.h"

#include <vxsign/properties.h>
#include <vxsign/read.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vxctl {

namespace {

// One part of what a sign tells of itself. show is called after read gave 0.
struct Part
{
    std::string name;
    std::function<std::uint32_t()> read;
    std::function<void()> show;
};

// Reads all parts. One that the sign refuses is named with the reason. Throws SignFailure when none could be read; a
// sign that answers nothing at all is asked once only.
void ReadParts(Report& report, const std::vector<Part>& parts)
{
    std::uint32_t firstFailure = VX_OK;
    bool any = false;
    Report::Json refused = Report::Json::array();
    for (const Part& part : parts) {
        const std::uint32_t result = part.read();
        if (result == VX_OK) {
            any = true;
            part.show();
            continue;
        }
        firstFailure = firstFailure == VX_OK ? result : firstFailure;
        if (result == VX_ABORTED || (result == VX_COMMUNICATION && !any))
            throw SignFailure(result);
        refused.push_back({{"part", part.name}, {"result", result}, {"text", vxErrorDesc(result)}});
        report.Line(part.name + ": refused: " + std::to_string(result) + " " + vxErrorDesc(result));
    }
    report.Put("refused", std::move(refused));
    if (!any)
        throw SignFailure(firstFailure);
}

// The properties that the library works out, and the default display style behind them.
class Properties
{
public:
    static void Show(Report& report)
    {
        const bool hasDriveF = Get<std::uint32_t>(VX_PROPERTY_HAS_DRIVE_F) != 0;
        report.Value("drive F", "hasDriveF", hasDriveF, hasDriveF ? "yes" : "no");
        report.Value("content from", "contentSource", CodeText(Get<std::uint8_t>(VX_PROPERTY_CONTENT_SOURCE)));
        report.Value("sequence form", "sequenceForm", Get<std::uint8_t>(VX_PROPERTY_SEQUENCE_FORM));
        const auto style = Get<std::array<std::uint8_t, 52>>(VX_PROPERTY_DISPLAY_STYLE);
        report.Value("entry mode", "entryMode", CodeText(style[11]));
        report.Value("exit mode", "exitMode", CodeText(style[12]));
        report.Value("stay seconds", "staySeconds", StaySeconds(style));
    }

private:
    template <class Value>
    static Value Get(vxPropertyKind kind)
    {
        std::array<std::uint8_t, sizeof(Value)> bytes{};
        Check(vxGetProperty(bytes.data(), static_cast<std::uint32_t>(bytes.size()), kind));
        Value value{};
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }

    // A short stay time of 255 stands for the long one.
    static std::uint32_t StaySeconds(const std::array<std::uint8_t, 52>& style)
    {
        if (style[14] != 255)
            return style[14];
        return Load32(style, 16);
    }
};

// Everything that the parts read into.
struct SignRecords
{
    std::array<std::uint8_t, 12> serialNumber{};
    std::array<std::uint8_t, 6> hardwareAddress{};
    std::uint32_t board = 0;
    std::uint8_t ports = 0;
    std::array<std::uint8_t, 3> brightness{};
    vxCommunicationSet communication{};
};

void ShowCommunication(Report& report, const vxCommunicationSet& set)
{
    // The members of the packed record are copied, never referred to.
    const std::uint16_t port = set.port;
    const std::array<std::uint8_t, 2> settings = {set.firstSetting, set.secondSetting};
    const std::string address = FieldText(set.address);
    const std::string second = FieldText(set.secondAddress);
    const std::string third = FieldText(set.thirdAddress);
    report.Value("network address", "communication",
                 Report::Json{{"address", address},
                              {"port", port},
                              {"firstSetting", settings[0]},
                              {"secondSetting", settings[1]},
                              {"secondAddress", second},
                              {"thirdAddress", third}},
                 address + ":" + std::to_string(port));
    report.Line("further addresses   " + second + ", " + third);
    report.Line("settings            " + FormatHex(settings.data(), settings.size()));
}

std::uint32_t Info(Session& session, const Args& /*args*/)
{
    Report& report = session.report;
    SignRecords sign;
    const auto showIdentity = [&] {
        const auto* const number = reinterpret_cast<const char*>(sign.serialNumber.data());
        report.Value("serial number", "serialNumber", std::string(number, ::strnlen(number, sign.serialNumber.size())));
        report.Value("hardware address", "hardwareAddress",
                     FormatHex(sign.hardwareAddress.data(), sign.hardwareAddress.size(), ":"));
    };
    const auto showBoard = [&] {
        report.Value("board", "board", sign.board, std::to_string(sign.board) + " (" + FormatWord(sign.board) + ")");
        report.Value("board ports", "boardPorts", sign.ports);
    };
    ReadParts(
        report,
        {{"properties", vxInitProperty, [&] { Properties::Show(report); }},
         {"identity",
          [&] {
              return vxGetSNMAC(sign.serialNumber.data(), static_cast<std::uint32_t>(sign.serialNumber.size()),
                                sign.hardwareAddress.data(), static_cast<std::uint32_t>(sign.hardwareAddress.size()));
          },
          showIdentity},
         {"board", [&] { return vxReadPCBIDAndPort(&sign.board, &sign.ports); }, showBoard},
         {"brightness",
          [&] { return vxReadBrightInfo(sign.brightness.data(), &sign.brightness[1], &sign.brightness[2]); },
          [&] {
              report.Value("brightness", "brightness", FormatHex(sign.brightness.data(), sign.brightness.size(), ""),
                           FormatHex(sign.brightness.data(), sign.brightness.size()));
          }},
         {"communication", [&] { return vxReadCommunicationSet(&sign.communication); },
          [&] { ShowCommunication(report, sign.communication); }}});
    ShowFace(report, ReadFace());
    ShowDrives(report, ReadSpaces());
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "info",
        .help = "Show what the sign says of itself",
        .details =
            R"(Properties, serial number, board, brightness, communication settings, size, colours and light of the face, and the
room on the drives. A part that the sign refuses is shown as
refused; the exit status is 0 when anything could be read.)",
        .examples = R"(vxctl info
vxctl --json info | jq .serialNumber)",
        .signs = Signs::kMany,
        .run = Info,
    },
};

} // namespace

const CommandTable kInfoCommands{"State", kCommands};

} // namespace vxctl
