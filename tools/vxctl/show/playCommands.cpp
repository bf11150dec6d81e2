// play, playing, screenshot, volume: what the sign plays.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/state/faceState.h"

#include <vxsign/play.h>

#include <algorithm>
#include <string_view>

namespace vxctl {

namespace {

struct Step
{
    std::string_view name;
    std::uint32_t (*take)();
};

constexpr Step kSteps[] = {
    {"next", vxPlayNext},         {"previous", vxPlayPrevious}, {"pause", vxPlayPause},
    {"continue", vxPlayContinue}, {"replay", vxReplayList},
};

std::uint32_t Play(Session& /*session*/, const Args& args)
{
    const auto* const step = std::ranges::find(kSteps, args.Text("WHAT"), &Step::name);
    if (step != std::end(kSteps))
        return step->take();
    const PlayFile file = ParsePlayFile(args.Text("WHAT"));
    return vxPlayPriority(file.drive, file.folder, file.name.c_str());
}

std::uint32_t ShowPlaying(Session& session, const Args& /*args*/)
{
    session.report.ValueOrNull("playing", "playing", PlayingFile(), "nothing");
    session.report.ValueOrNull("next", "next", NextFile(), "nothing");
    return VX_OK;
}

std::uint32_t TakeScreenshot(Session& session, const Args& args)
{
    const LocalTarget target(args.Text("FILE"), "screenshot.jpeg");
    Check(vxReadCurScreenshot(target.Temporary().string().c_str()));
    target.Keep();
    session.report.Value("screenshot", "local", target.Final().string());
    return VX_OK;
}

std::uint32_t Volume(Session& session, const Args& args)
{
    if (args.Has("N"))
        return vxAdjustVolume(args.Number<std::uint8_t>("N"));
    std::uint8_t found = 0;
    Check(vxReadCurVolume(&found));
    session.report.Value("volume", "volume", found);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "play",
        .help = "Play the next or previous file, pause, continue, replay, or play a file at once",
        .details =
            R"(next, previous, pause, continue, replay (the play list from its start), or the file that is to play at once, ahead of
all others: a name of up to 12 characters, or with its drive and folder D:/T/NAME.NMG.)",
        .examples = R"(vxctl play next
vxctl play HELLO.NMG
vxctl play E:/P/LOGO.BMP)",
        .arguments = {SignPath("WHAT", "next, previous, pause, continue, replay, or a file on the sign").In("WHAT")},
        .signs = Signs::kMany,
        .run = Play,
    },
    {
        .name = "playing",
        .help = "Show which file plays, and which one is next",
        .examples = R"(vxctl playing
vxctl --json playing | jq -r .playing)",
        .signs = Signs::kMany,
        .run = ShowPlaying,
    },
    {
        .name = "screenshot",
        .help = "Read a picture of the face",
        .details = "A JPEG of what the face shows now. FILE may be a folder.",
        .examples = "vxctl screenshot face.jpeg",
        .arguments = {WriteFile("FILE", "the file on this PC, or a folder")},
        .signs = Signs::kMany,
        .run = TakeScreenshot,
    },
    {
        .name = "volume",
        .help = "Set the volume, or show it",
        .examples = R"(vxctl volume
vxctl volume 30)",
        .arguments = {Number("N", 0, 255, "the volume").Optional()},
        .signs = Signs::kMany,
        .run = Volume,
    },
};

} // namespace

const CommandTable kPlayCommands{"Play", kCommands};

} // namespace vxctl
