// player: playing programs of the player core.
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/zones/faceArea.h"
#include "vxctl/zones/programProperty.h"

#include <vxsign/player.h>

#include <array>

namespace vxctl {

namespace {

constexpr std::uint32_t kWindows = 4;
constexpr std::size_t kStartSize = sizeof(ProjectExtra);

// By the sign's numbers.
constexpr std::string_view kFollow = "repeat|next|list";
constexpr std::string_view kWindowModes = "over|alone|hidden";
constexpr std::string_view kArrivals[] = {"none", "under-way", "complete"};

const std::uint8_t* Bytes(const std::string& text)
{
    return reinterpret_cast<const std::uint8_t*>(text.c_str());
}

std::uint32_t Play(Session& /*session*/, const Args& args)
{
    const std::uint8_t* const project = Bytes(args.Text("PROJECT"));
    const std::uint8_t* const program = Bytes(args.Text("PROGRAM"));
    const std::uint8_t* const from = Bytes(args.Text("--from"));
    if (args.Has("--window"))
        return vxCorePlayWindowProgram(project, program, from, Bytes(std::to_string(args.Number("--window"))));
    return vxCorePlayProgram(project, program, from, static_cast<std::uint8_t>(args.Choice("--then")));
}

std::uint32_t Switch(Session& /*session*/, const Args& args)
{
    const auto follow = static_cast<std::uint8_t>(args.Choice("--then"));
    const std::string& program = args.Text("PROGRAM");
    return program.empty() ? vxCoreSwitchMode(follow) : vxCoreSwitchProgram(Bytes(program), follow);
}

std::uint32_t Emergency(Session& /*session*/, const Args& args)
{
    if (args.Has("--stop"))
        return vxCoreStopEmergencyProgram();
    if (args.Text("PROJECT").empty())
        throw UsageError("takes a project, or --stop");
    return vxCorePlayEmergencyProgram(Bytes(args.Text("PROJECT")), Bytes(args.Text("PROGRAM")),
                                      Bytes(args.Text("--from")));
}

std::uint32_t ShowPlaying(Session& session, const Args& /*args*/)
{
    const PlayingPrograms playing = ReadPlaying();
    session.report.Code("then", "then", Split(kFollow, '|'), playing.follow);
    session.report.Code("windows", "windows", Split(kWindowModes, '|'), playing.windowMode);
    TextTable table({{"place"}, {"project"}, {"program"}, {"file"}});
    for (const PlayingProgram& program : playing.programs)
        table.Add({program.place, program.project, program.program, program.file});
    table.Show(session.report, "programs");
    return VX_OK;
}

std::uint32_t SetWindows(Session& /*session*/, const Args& args)
{
    const std::vector<std::string>& texts = args.List("AREA");
    std::vector<std::uint8_t> areas(texts.size() * kFaceAreaSize);
    for (std::size_t i = 0; i < texts.size(); ++i)
        StoreArea(std::span(areas).subspan(i * kFaceAreaSize).first<kFaceAreaSize>(), ParseArea(texts[i]));
    return vxCoreWinMode(static_cast<std::uint8_t>(args.Choice("MODE")), areas.empty() ? nullptr : areas.data(),
                         static_cast<std::uint32_t>(areas.size()));
}

std::uint32_t Announce(Session& /*session*/, const Args& args)
{
    const std::string& start = args.Text("--start");
    if (start.size() > kStartSize)
        throw UsageError("the name of a program has " + std::to_string(kStartSize) + " bytes at most");
    const std::uint8_t* const name = Bytes(args.Text("NAME"));
    const auto programs = args.Number<std::uint16_t>("--programs");
    const auto version = args.Number<std::uint16_t>("--version");
    if (!args.Has("--start"))
        return vxCoreProjectInfo(name, programs, version);
    ProjectExtra extra{};
    start.copy(reinterpret_cast<char*>(extra.bytes), kStartSize);
    return vxCoreProjectInfoEx(name, programs, version, &extra);
}

std::uint32_t ShowProgress(Session& session, const Args& /*args*/)
{
    std::uint8_t percent = 0;
    std::uint8_t state = 0;
    Check(vxCorePrjSyncProgress(&percent, &state));
    session.report.Value("percent", "percent", percent);
    session.report.Code("project", "state", kArrivals, state);
    return VX_OK;
}

constexpr Argument kProject = Text("PROJECT", "the project");
constexpr Argument kProgram = Text("PROGRAM", "its program").Optional();
constexpr Argument kFrom = SignPath("--from", "the file of the program to begin with");
constexpr Argument kThen =
    Choice("--then", kFollow, "what follows: itself, the next program, the play list").Default("repeat");

const Command kCommands[] = {
    {
        .name = "player play",
        .help = "Play a program",
        .details =
            R"(Without PROGRAM the project's start program plays, or its first one. In a window it plays over what the face
shows, and repeats.)",
        .examples = R"(vxctl player play SHOP
vxctl player play SHOP MORNING --then next
vxctl player play SHOP OFFERS --window 2)",
        .arguments = {kProject, kProgram, kFrom, kThen,
                      Number("--window", 1, kWindows, "play in this window").Excludes("--then")},
        .signs = Signs::kMany,
        .run = Play,
    },
    {
        .name = "player switch",
        .help = "Go to another program of the project that plays",
        .details = "Without PROGRAM what plays begins anew, and what follows it is set.",
        .examples = R"(vxctl player switch EVENING
vxctl player switch --then next)",
        .arguments = {Text("PROGRAM", "the program").Optional(), kThen},
        .signs = Signs::kMany,
        .run = Switch,
    },
    {
        .name = "player emergency",
        .help = "Play a program over everything else",
        .details = "It repeats until it is stopped; then what played before is seen again.",
        .examples = R"(vxctl player emergency TUNNEL FIRE
vxctl player emergency --stop)",
        .arguments = {kProject.Optional(), kProgram, kFrom, Flag("--stop", "end it").Excludes("PROJECT")},
        .signs = Signs::kMany,
        .run = Emergency,
    },
    {
        .name = "player stop",
        .help = "Stop a program, or all but an emergency",
        .examples = R"(vxctl player stop
vxctl player stop OFFERS)",
        .arguments = {Text("PROGRAM", "this program alone").Optional()},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxCoreStopPlay(Bytes(args.Text("PROGRAM"))); },
    },
    {
        .name = "player playing",
        .help = "Show which programs play, and where",
        .examples = R"(vxctl player playing
vxctl --json player playing | jq .programs)",
        .signs = Signs::kMany,
        .run = ShowPlaying,
    },
    {
        .name = "player windows",
        .help = "Set how windows are shown, and where they are",
        .details =
            R"(over: over what else the face shows; alone: on an unlit face; hidden: not at all. The areas are those of window 1, 2
and so on; windows without one stay where they are.)",
        .examples = R"(vxctl player windows over 0,0,64x32 64,0,64x32
vxctl player windows hidden)",
        .arguments = {Choice("MODE", kWindowModes, "how they are shown"),
                      Of(kFaceArea, "AREA", "the windows, up to 4").Optional().Repeated(1, kWindows)},
        .signs = Signs::kMany,
        .run = SetWindows,
    },
    {
        .name = "player project",
        .help = "Announce a project to the sign",
        .details =
            R"(How many programs it has, for player progress, and which of them plays when none is named. The project announced last
is the one that switch goes to when nothing plays.)",
        .examples = "vxctl player project SHOP --programs 2 --version 7 --start MORNING",
        .arguments = {Text("NAME", "the project"),
                      Number("--programs", 0, 65535, "programs that it has").In("N").Required(),
                      Number("--version", 0, 65535, "a number of your own").In("N").Default("0"),
                      Text("--start", "the program that it starts with").In("PROGRAM")},
        .signs = Signs::kMany,
        .run = Announce,
    },
    {
        .name = "player progress",
        .help = "Show how much of the latest project has arrived",
        .examples = "vxctl player progress",
        .signs = Signs::kMany,
        .run = ShowProgress,
    },
};

} // namespace

const CommandTable kPlayerCommands{"Zones and programs", kCommands};

} // namespace vxctl
