// video vpu: the second of the video processors.
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/tables.h"
#include "vxctl/devices/videoNumbers.h"

#include <vxsign/video.h>

#include <array>
#include <sstream>
#include <utility>

namespace vxctl {

namespace {

std::string Joined(const auto& numbers)
{
    std::ostringstream text;
    const char* between = "";
    for (const unsigned number : numbers) {
        text << between << number;
        between = " ";
    }
    return text.str();
}

std::uint8_t Level(const Args& args, std::size_t at)
{
    return static_cast<std::uint8_t>(ParseNumber(args.List("LEVELS")[at]).value_or(0));
}

std::uint32_t Bright(Session& session, const Args& args)
{
    if (args.Has("LEVELS"))
        return vxVPUSetBright(Level(args, 0), Level(args, 1), Level(args, 2), Level(args, 3));
    std::array<std::uint8_t, 4> found{};
    Check(vxVPUGetBright(&found[0], &found[1], &found[2], &found[3]));
    session.report.Value("brightness", "brightness",
                         {{"red", found[0]}, {"green", found[1]}, {"blue", found[2]}, {"all", found[3]}},
                         Joined(found));
    return VX_OK;
}

std::uint32_t ShowSignal(Session& session, const Args& /*args*/)
{
    std::array<std::uint16_t, 4> status{};
    Check(vxVPUGetSignalStatus(&status[0], &status[1], &status[2], &status[3]));
    session.report.Value(
        "signal", "signal",
        {{"channel", status[0]}, {"width", status[1]}, {"height", status[2]}, {"framesPerSecond", status[3]}},
        Joined(status));
    return VX_OK;
}

std::uint32_t ShowInfo(Session& session, const Args& /*args*/)
{
    std::array<std::uint8_t, 24> info{};
    Check(vxVPUGetInfo(info.data()));
    // In the usual layout.
    static constexpr std::pair<const char*, std::size_t> kNumbersAt[] = {
        {"type", 8},  {"channel", 9},    {"ratio", 10}, {"gamma", 11},
        {"ldus", 12}, {"pixelMode", 13}, {"mode", 14},  {"modeSecond", 15}};
    for (const auto& [key, at] : kNumbersAt)
        session.report.Put(key, info.at(at));
    session.report.Put("startLine", Load16(info, 16));
    session.report.Put("colourTemperature", FormatHex(&info[20], 4, ""));
    session.report.Value("information", "bytes", FormatHex(info.data(), info.size(), ""),
                         FormatHex(info.data(), info.size()));
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "video vpu",
        .help = "Steer the VPU",
    },
    {
        .name = "video vpu channel",
        .help = "Select a channel",
        .arguments = {Byte("CHANNEL", "the channel")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSelChannel(args.Number<std::uint8_t>("CHANNEL")); },
    },
    {
        .name = "video vpu mode",
        .help = "Set the mode",
        .arguments = {Byte("MODE", "the mode"), Byte("SECOND", "the second number").Optional()},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetMode(args.Number<std::uint8_t>("MODE"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video vpu ratio",
        .help = "Set the ratio of the picture",
        .arguments = {Byte("RATIO", "the ratio")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSetVideoRatio(args.Number<std::uint8_t>("RATIO")); },
    },
    {
        .name = "video vpu dvi",
        .help = "Set the DVI window",
        .arguments = {Word("FIRST", "the first number"), Word("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetDVIWin(args.Number<std::uint16_t>("FIRST"), args.Number<std::uint16_t>("SECOND"));
            },
    },
    {
        .name = "video vpu window",
        .help = "Set the video window",
        .arguments = {Word("FIRST", "the first number"), Word("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetVideoWin(args.Number<std::uint16_t>("FIRST"), args.Number<std::uint16_t>("SECOND"));
            },
    },
    {
        .name = "video vpu arg",
        .help = "Set an argument of the picture",
        .arguments = {Word("FIRST", "the first number"), Word("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetVideoArg(args.Number<std::uint16_t>("FIRST"), args.Number<std::uint16_t>("SECOND"));
            },
    },
    {
        .name = "video vpu type",
        .help = "Set the type of the VPU",
        .arguments = {Byte("TYPE", "the type")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUType(args.Number<std::uint8_t>("TYPE")); },
    },
    {
        .name = "video vpu start-line",
        .help = "Set the first line of the slaves",
        .arguments = {Word("LINE", "the line")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSlaverStartLine(args.Number<std::uint16_t>("LINE")); },
    },
    {
        .name = "video vpu temperature",
        .help = "Set the colour temperature",
        .arguments = {Byte("FIRST", "the first number"), Byte("SECOND", "the second number"),
                      Byte("THIRD", "the third number"), Byte("FOURTH", "the fourth number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetColorTemp(args.Number<std::uint8_t>("FIRST"), args.Number<std::uint8_t>("SECOND"),
                                         args.Number<std::uint8_t>("THIRD"), args.Number<std::uint8_t>("FOURTH"));
            },
    },
    {
        .name = "video vpu gamma",
        .help = "Set the gamma",
        .arguments = {Byte("GAMMA", "the gamma")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSetGamma(args.Number<std::uint8_t>("GAMMA")); },
    },
    {
        .name = "video vpu ldus",
        .help = "Set the number of LDUs",
        .arguments = {Byte("COUNT", "how many there are")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSetLDUNums(args.Number<std::uint8_t>("COUNT")); },
    },
    {
        .name = "video vpu ldu",
        .help = "Set the place of an LDU",
        .arguments = {Byte("FIRST", "the first number"), Byte("SECOND", "the second number"),
                      Byte("THIRD", "the third number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxVPUSetLDUPos(args.Number<std::uint16_t>("FIRST"), args.Number<std::uint16_t>("SECOND"),
                                      args.Number<std::uint16_t>("THIRD"));
            },
    },
    // The VPU takes mode 0 for a question.
    {
        .name = "video vpu pixel-mode",
        .help = "Set the mode of the pixels",
        .arguments = {Number("MODE", 1, kLastByte, "the mode")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxVPUSetPixcelMode(args.Number<std::uint8_t>("MODE")); },
    },
    {
        .name = "video vpu bright",
        .help = "Show or set the brightness",
        .details =
            "Four numbers, whose meaning is the VPU's own; often red, green, blue and all three, 255 being full.",
        .examples = R"(vxctl video vpu bright
vxctl video vpu bright 255 200 160 255)",
        .arguments = {Byte("LEVELS", "four numbers").Optional().Repeated(4, 4)},
        .signs = Signs::kMany,
        .run = Bright,
    },
    {
        .name = "video vpu signal",
        .help = "Show the state of the inputs, four numbers",
        .details = "Often channel, width, height and frames a second of its signal.",
        .signs = Signs::kMany,
        .run = ShowSignal,
    },
    {
        .name = "video vpu info",
        .help = "Show what the VPU says of itself, 24 bytes",
        .signs = Signs::kMany,
        .run = ShowInfo,
    },
};

} // namespace

const CommandTable kVpuCommands{"Boards", kCommands};

} // namespace vxctl
