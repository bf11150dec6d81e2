// extra: the boards behind the control board.
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"

#include <vxsign/extra.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace vxctl {

namespace {

constexpr std::size_t kCollectSize = 8;
constexpr std::size_t kOutputs = 16;
constexpr std::size_t kCollected = 38;
constexpr std::size_t kInputRecord = 68;

// What the first inputs tell.
constexpr std::array kInputs = {"door-open", "hot-tile", "bad-pixel", "no-power", "dark-face"};

void ShowBlock(Report& report, const std::uint8_t* bytes, std::size_t size)
{
    report.Put("bytes", FormatHex(bytes, size, ""));
    for (std::size_t at = 0; at < size; at += 16)
        report.Line(FormatWord(static_cast<std::uint32_t>(at), 2) + "  " +
                    FormatHex(bytes + at, std::min<std::size_t>(16, size - at)));
}

std::uint32_t ShowCollected(Session& session, const Args& args)
{
    std::array<std::uint8_t, kCollected> block{};
    Check(vxExtraCollectRead(block.data(), args.Number<std::uint8_t>("BOARD")));
    const auto field = [&](std::size_t at) { return static_cast<std::int16_t>(Load16(block, at)); };
    Report& report = session.report;
    const auto degrees = [&](const char* name, const char* key, std::size_t at) {
        const int tenths = field(at);
        const std::string text = std::string(tenths < 0 ? "-" : "") + std::to_string(std::abs(tenths) / 10) + "." +
                                 std::to_string(std::abs(tenths) % 10) + " C";
        report.Value(name, key, tenths / 10.0, text);
    };
    degrees("outside", "outsideC", 0);
    degrees("inside", "insideC", 2);
    degrees("hottest tile", "hottestTileC", 4);
    report.Value("humidity", "humidityPercent", field(6), std::to_string(field(6)) + " %");
    report.Value("light", "lightEighths", field(8), std::to_string(field(8)) + " of 8");
    ShowBlock(report, block.data(), block.size());
    return VX_OK;
}

std::uint32_t ShowInputs(Session& session, const Args& args)
{
    std::array<std::uint8_t, kInputRecord> block{};
    Check(vxExtraIORead(block.data(), args.Number<std::uint8_t>("BOARD")));
    TextTable table({{"number", kNumbers}, {"input", kNumbers}, {"output", kNumbers}, {"inputTells"}});
    for (std::size_t i = 0; i < kOutputs; ++i)
        table.Add({std::to_string(i), std::to_string(+block.at(i)), std::to_string(+block.at(kOutputs + i)),
                   i < kInputs.size() ? kInputs.at(i) : ""});
    table.Show(session.report, "lines");
    ShowBlock(session.report, block.data(), block.size());
    return VX_OK;
}

// "3=on" into the block.
void ChangeOutput(const std::string& text, std::uint8_t* outputs)
{
    const std::size_t equals = text.find('=');
    const auto number = ParseNumber(text.substr(0, equals));
    const std::string state = equals == std::string::npos ? "" : text.substr(equals + 1);
    if (!number || *number >= kOutputs || (state != "on" && state != "off"))
        throw UsageError("'" + text + "' is no output such as 3=on, the outputs being 0 to 15");
    outputs[*number] = state == "on" ? 1 : 0;
}

std::uint32_t ChangeOutputs(std::uint8_t board, const std::vector<std::string>& changes)
{
    std::array<std::uint8_t, kInputRecord> block{};
    for (const std::string& change : changes)
        ChangeOutput(change, block.data()); // refused before anything is sent
    Check(vxExtraIORead(block.data(), board));
    for (const std::string& change : changes)
        ChangeOutput(change, block.data() + kOutputs);
    return vxExtraIOCtrl(block.data() + kOutputs, board);
}

std::uint32_t Set(Session& /*session*/, const Args& args)
{
    const auto board = args.Number<std::uint8_t>("BOARD");
    if (args.Has("--collect"))
        return vxExtraCollectCtrl(args.Bytes("--collect").data(), board);
    if (args.Has("--outputs"))
        return vxExtraIOCtrl(args.Bytes("--outputs").data(), board);
    if (!args.Has("OUTPUT=STATE"))
        throw UsageError("takes outputs such as 3=on, or --outputs, or --collect");
    return ChangeOutputs(board, args.List("OUTPUT=STATE"));
}

constexpr Argument kBoard = Number("BOARD", 0, 255, "number of the board");

const Command kCommands[] = {
    {
        .name = "extra",
        .help = "Read and set the extra boards behind the control board",
        .details = "The blocks of the boards are shown in the usual layout, and byte by byte.",
        .examples = R"(vxctl extra read 0
vxctl extra io 0
vxctl extra set 0 3=on
vxctl extra wifi show)",
    },
    {
        .name = "extra read",
        .help = "Show what a board has collected",
        .arguments = {kBoard},
        .signs = Signs::kMany,
        .run = ShowCollected,
    },
    {
        .name = "extra io",
        .help = "Show the inputs and outputs of a board",
        .arguments = {kBoard},
        .signs = Signs::kMany,
        .run = ShowInputs,
    },
    {
        .name = "extra set",
        .help = "Set outputs of a board, or its collection",
        .details =
            R"(OUTPUT=on and OUTPUT=off read the outputs first and change those named, in the usual layout: 16 bytes from byte 16
of what io reads. --outputs and --collect send bytes as they are.)",
        .examples = R"(vxctl extra set 3 0=on 5=off
vxctl extra set 3 --outputs "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
vxctl extra set 3 --collect "01 00 00 00 00 00 00 00")",
        .arguments = {kBoard, Text("OUTPUT=STATE", "on or off").Optional().Repeated(),
                      Hex("--outputs", kOutputs, kOutputs, "16 bytes").Excludes("OUTPUT=STATE"),
                      Hex("--collect", kCollectSize, kCollectSize, "8 bytes").Excludes("OUTPUT=STATE --outputs")},
        .signs = Signs::kMany,
        .run = Set,
    },
};

} // namespace

const CommandTable kExtraCommands{"Boards", kCommands};

} // namespace vxctl
