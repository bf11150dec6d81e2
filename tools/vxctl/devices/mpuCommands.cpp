// video, video mpu: the video processors in front of a sign, and the first of them.
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/devices/videoNumbers.h"

#include <vxsign/local.h>
#include <vxsign/video.h>

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::uint8_t kDone = 100;
constexpr std::uint8_t kHidden = 0; // last argument of a window
constexpr std::uint32_t kStepMs = 100;

// Asks until the MPU is at 100.
std::uint8_t AwaitTask(Session& session, std::uint32_t task, std::uint32_t seconds)
{
    const ProgressBar bar("window", session.report.IsForPrograms());
    const std::uint32_t start = vxSysUpTimeMS();
    std::uint8_t progress = 0;
    for (;;) {
        Check(vxMPUProgressByTaskID(task, &progress));
        ProgressBar::OnProgress(nullptr, 0, std::min(progress, kDone));
        if (progress >= kDone || vxSysUpTimeMS() - start >= seconds * 1000)
            return progress;
        vxSleep(kStepMs);
    }
}

// A hidden window has no place, and what is not given is 0.
std::uint32_t SetWindow(Session& session, const Args& args)
{
    const bool isHidden = args.Has("--hide");
    if (!isHidden && !args.Has("HEIGHT"))
        throw UsageError("video mpu window takes LEFT, TOP, WIDTH and HEIGHT, or --hide");
    std::uint32_t task = 0;
    Check(vxMPUSetWin(args.Number<std::uint16_t>("NUMBER"), args.Number<std::uint16_t>("LEFT"),
                      args.Number<std::uint16_t>("TOP"), args.Number<std::uint16_t>("WIDTH"),
                      args.Number<std::uint16_t>("HEIGHT"), isHidden ? kHidden : args.Number<std::uint8_t>("--last"),
                      &task));
    session.report.Value("task", "task", task);
    if (args.Has("--no-wait"))
        return VX_OK;
    const std::uint8_t progress = AwaitTask(session, task, args.Number("--seconds"));
    session.report.Value("progress", "progressPercent", progress, std::to_string(progress) + " %");
    return progress < kDone ? VX_TIME_LIMIT : VX_OK;
}

std::uint32_t ShowProgress(Session& session, const Args& args)
{
    std::uint8_t progress = 0;
    Check(vxMPUProgressByTaskID(args.Number("TASK"), &progress));
    session.report.Value("progress", "progressPercent", progress, std::to_string(progress) + " %");
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "video",
        .help = "Steer the video processors in front of a sign",
        .details = "What a number means is the processor's own.",
        .examples = R"(vxctl video vpu channel 2
vxctl video vpu signal
vxctl video mpu window 0 16 4 64 24)",
    },
    {
        .name = "video mpu",
        .help = "Steer the MPU",
    },
    {
        .name = "video mpu channel",
        .help = "Select a channel",
        .arguments = {Byte("CHANNEL", "the channel"), Byte("SECOND", "the second number").Optional()},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSelChannel(args.Number<std::uint8_t>("CHANNEL"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video mpu channel-ex",
        .help = "Select a channel, the newer command",
        .arguments = {Byte("CHANNEL", "the channel"), Byte("SECOND", "the second number").Optional()},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSelChannelEx(args.Number<std::uint8_t>("CHANNEL"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video mpu arg",
        .help = "Set an argument of the picture",
        .arguments = {Byte("FIRST", "the first number"), Byte("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSetVideoArg(args.Number<std::uint8_t>("FIRST"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video mpu outputs",
        .help = "Set the HDMI and DP outputs",
        .arguments = {Byte("FIRST", "the first number"), Byte("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSetHDMI_DP_Out(args.Number<std::uint8_t>("FIRST"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video mpu phase",
        .help = "Set the phase of an input",
        .arguments = {Byte("FIRST", "the first number"), Byte("SECOND", "the second number")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSetINBPhase(args.Number<std::uint8_t>("FIRST"), args.Number<std::uint8_t>("SECOND"));
            },
    },
    {
        .name = "video mpu edid",
        .help = "Set the EDID of an input",
        .examples = "vxctl video mpu edid 1 \"00 FF FF FF FF FF FF 00 59 18 01 00 00 00 00\"",
        .arguments = {Byte("INPUT", "the input"), Hex("BYTES", 15, 15, "15 bytes")},
        .signs = Signs::kMany,
        .run =
            [](Session&, const Args& args) {
                return vxMPUSetEDID(args.Number<std::uint8_t>("INPUT"), args.Bytes("BYTES").data());
            },
    },
    {
        .name = "video mpu window",
        .help = "Set a window and wait until it is there, or take it away",
        .details = "The MPU takes a while; the wait ends when it says 100. progress asks for the task of a window by "
                   "its number.",
        .examples = R"(vxctl video mpu window 0 16 4 64 24
vxctl video mpu window 0 --hide
vxctl video mpu window 0 16 4 64 24 --no-wait)",
        .arguments = {Byte("NUMBER", "the window"), Word("LEFT", "pixels").Optional(), Word("TOP", "pixels").Optional(),
                      Word("WIDTH", "pixels").Optional(), Word("HEIGHT", "pixels").Optional(),
                      Flag("--hide", "take the window off the face").Excludes("LEFT"),
                      Byte("--last", "the last argument; many hide the window for 0").Default("1").Excludes("--hide"),
                      Number("--seconds", 1, 3600, "how long to wait").In("SECONDS").Default("60"),
                      Flag("--no-wait", "end when the task has started")},
        .signs = Signs::kMany,
        .run = SetWindow,
    },
    {
        .name = "video mpu progress",
        .help = "Show the progress of a task",
        .arguments = {Number("TASK", 0, UINT32_MAX, "what window has told")},
        .run = ShowProgress,
    },
};

} // namespace

const CommandTable kMpuCommands{"Boards", kCommands};

} // namespace vxctl
