#include "vxctl/cli/command.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/files/signPaths.h"

#include <vxsign/play.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string_view>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Play";
constexpr std::size_t kNameRoom = 256;

struct Step
{
    std::string_view name;
    std::uint32_t (*take)();
};

constexpr Step kSteps[] = {
    {"next", vxPlayNext},         {"previous", vxPlayPrevious}, {"pause", vxPlayPause},
    {"continue", vxPlayContinue}, {"replay", vxReplayList},
};

void Play(const Session& session, const std::string& what)
{
    const auto* const step =
        std::find_if(std::begin(kSteps), std::end(kSteps), [&what](const Step& row) { return row.name == what; });
    if (step != std::end(kSteps)) {
        session.Connect();
        return Check(step->take());
    }
    const PlayFile file = ParsePlayFile(what);
    session.Connect();
    Check(vxPlayPriority(file.drive, file.folder, file.name.c_str()));
}

void AddPlay(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "play", "Steer what the sign plays",
         R"(next, previous, pause, continue, replay (the play list from its start), or the file that is to play at once, ahead of
all others: a name of up to 12 characters, or with its drive and folder D:/T/NAME.NMG.

Examples:
  vxctl play next
  vxctl play HELLO.NMG
  vxctl play E:/P/LOGO.BMP)"});
    const auto what = std::make_shared<std::string>();
    AddSignPath(*command, "WHAT", *what, "next, previous, pause, continue, replay, or a file on the sign")
        ->required()
        ->type_name("");
    command->callback([&session, what] { Play(session, *what); });
}

// The name that the sign gives; "" when there is none.
std::string AskName(std::uint32_t (*ask)(char*, std::uint32_t))
{
    constexpr std::uint32_t kNothingPlays = 26369;
    std::array<char, kNameRoom> name{};
    const std::uint32_t result = ask(name.data(), static_cast<std::uint32_t>(name.size()));
    if (result == kNothingPlays)
        return {};
    Check(result);
    return {name.data(), ::strnlen(name.data(), name.size())};
}

void AddPlaying(CLI::App& app, Session& session)
{
    AddCommand(app, {kGroup, "playing", "Tell which file plays, and which one is next",
                     "Examples:\n  vxctl playing\n  vxctl --json playing | jq -r .playing"})
        ->callback([&session] {
            session.Connect();
            const std::string current = AskName(vxGetPlayingFileName);
            const std::string next = AskName(vxGetNextPlayFileName);
            session.report.Value("playing", "playing", current, current.empty() ? "nothing" : current);
            session.report.Value("next", "next", next, next.empty() ? "nothing" : next);
        });
}

void AddScreenshot(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(app, {kGroup, "screenshot", "Read a picture of the face",
                                               R"(A JPEG of what the face shows now. FILE may be a folder.

Example:
  vxctl screenshot face.jpeg)"});
    const auto local = std::make_shared<std::string>();
    command->add_option("FILE", *local, "the file on this PC, or a folder")->type_name("FILE")->required();
    command->callback([&session, local] {
        const LocalTarget target(*local, "screenshot.jpeg");
        session.Connect();
        Check(vxReadCurScreenshot(target.Temporary().c_str()));
        target.Keep();
        session.report.Value("screenshot", "local", target.Final().string());
    });
}

void AddVolume(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {kGroup, "volume", "Set the volume, or tell it", "Examples:\n  vxctl volume\n  vxctl volume 30"});
    const auto volume = std::make_shared<std::uint32_t>(0);
    CLI::Option* const set = AddNumber(*command, "N", *volume, 0, 255, "the volume");
    command->callback([&session, volume, set] {
        session.Connect();
        if (set->count() != 0)
            return Check(vxAdjustVolume(static_cast<std::uint8_t>(*volume)));
        std::uint8_t found = 0;
        Check(vxReadCurVolume(&found));
        session.report.Value("volume", "volume", found);
    });
}

} // namespace

void AddPlayCommands(CLI::App& app, Session& session)
{
    AddPlay(app, session);
    AddPlaying(app, session);
    AddScreenshot(app, session);
    AddVolume(app, session);
}

} // namespace vxctl
