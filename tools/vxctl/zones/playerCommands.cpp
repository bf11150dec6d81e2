#include "vxctl/zones/playerCommands.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/zones/faceArea.h"
#include "vxctl/zones/programProperty.h"

#include <vxsign/player.h>

#include <array>
#include <map>
#include <memory>

namespace vxctl {

namespace {

constexpr std::uint32_t kWindows = 4;
constexpr std::size_t kStartSize = sizeof(ProjectExtra);

const std::map<std::string, std::uint8_t> kFollow{{"repeat", 0}, {"next", 1}, {"list", 2}};
const std::map<std::string, std::uint8_t> kWindowModes{{"over", 0}, {"alone", 1}, {"hidden", 2}};

std::string NameOf(const std::map<std::string, std::uint8_t>& names, std::uint8_t value)
{
    for (const auto& [name, number] : names) {
        if (number == value)
            return name;
    }
    return std::to_string(value);
}

const std::uint8_t* Bytes(const std::string& text)
{
    return reinterpret_cast<const std::uint8_t*>(text.c_str());
}

struct Played
{
    std::string project;
    std::string program;
    std::string from;
    std::string follow = "repeat";
    std::uint32_t window = 0;
    bool stop = false;
};

CLI::Option* AddFollow(CLI::App& command, Played& played)
{
    return command.add_option("--then", played.follow, "what follows: itself, the next program, the play list")
        ->check(CLI::IsMember({"repeat", "next", "list"}))
        ->capture_default_str();
}

void AddPlay(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(
        player,
        {kProgramGroup, "play", "Play a program",
         R"(Without PROGRAM the project's start program plays, or its first one. In a window it plays over what the face
shows, and repeats.

Examples:
  vxctl player play SHOP
  vxctl player play SHOP MORNING --then next
  vxctl player play SHOP OFFERS --window 2)"});
    const auto played = std::make_shared<Played>();
    command->add_option("PROJECT", played->project, "the project")->required();
    command->add_option("PROGRAM", played->program, "its program");
    AddSignPath(*command, "--from", played->from, "the file of the program to begin with");
    CLI::Option* const follow = AddFollow(*command, *played);
    AddNumber(*command, "--window", played->window, 1, kWindows, "play in this window")->excludes(follow);
    command->callback([&session, played] {
        session.Connect();
        const std::uint8_t* const project = Bytes(played->project);
        const std::uint8_t* const program = Bytes(played->program);
        const std::uint8_t* const from = Bytes(played->from);
        if (played->window == 0)
            return Check(vxCorePlayProgram(project, program, from, kFollow.at(played->follow)));
        Check(vxCorePlayWindowProgram(project, program, from, Bytes(std::to_string(played->window))));
    });
}

void AddSwitch(CLI::App& player, Session& session)
{
    CLI::App* const command =
        AddCommand(player, {kProgramGroup, "switch", "Go to another program of the project that plays",
                            R"(Without PROGRAM what plays begins anew, and what follows it is set.

Examples:
  vxctl player switch EVENING
  vxctl player switch --then next)"});
    const auto played = std::make_shared<Played>();
    command->add_option("PROGRAM", played->program, "the program");
    AddFollow(*command, *played);
    command->callback([&session, played] {
        session.Connect();
        const std::uint8_t mode = kFollow.at(played->follow);
        Check(played->program.empty() ? vxCoreSwitchMode(mode) : vxCoreSwitchProgram(Bytes(played->program), mode));
    });
}

void AddEmergency(CLI::App& player, Session& session)
{
    CLI::App* const command =
        AddCommand(player, {kProgramGroup, "emergency", "Play a program over everything else",
                            R"(It repeats until it is stopped; then what played before is seen again.

Examples:
  vxctl player emergency TUNNEL FIRE
  vxctl player emergency --stop)"});
    const auto played = std::make_shared<Played>();
    CLI::Option* const project = command->add_option("PROJECT", played->project, "the project");
    command->add_option("PROGRAM", played->program, "its program");
    AddSignPath(*command, "--from", played->from, "the file of the program to begin with");
    command->add_flag("--stop", played->stop, "end it")->excludes(project);
    command->callback([&session, played] {
        if (!played->stop && played->project.empty())
            throw UsageError("player emergency takes a project, or --stop");
        session.Connect();
        Check(played->stop
                  ? vxCoreStopEmergencyProgram()
                  : vxCorePlayEmergencyProgram(Bytes(played->project), Bytes(played->program), Bytes(played->from)));
    });
}

void AddStop(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(player, {kProgramGroup, "stop", "Stop a program, or all but an emergency",
                                                  "Examples:\n  vxctl player stop\n  vxctl player stop OFFERS"});
    const auto program = std::make_shared<std::string>();
    command->add_option("PROGRAM", *program, "this program alone");
    command->callback([&session, program] {
        session.Connect();
        Check(vxCoreStopPlay(Bytes(*program)));
    });
}

void AddPlaying(CLI::App& player, Session& session)
{
    AddCommand(player, {kProgramGroup, "playing", "Tell which programs play, and where",
                        "Examples:\n  vxctl player playing\n  vxctl --json player playing | jq .programs"})
        ->callback([&session] {
            session.Connect();
            const PlayingPrograms playing = ReadPlaying();
            session.report.Value("then", "then", NameOf(kFollow, playing.follow));
            session.report.Value("windows", "windows", NameOf(kWindowModes, playing.windowMode));
            TextTable table({{"place"}, {"project"}, {"program"}, {"file"}});
            for (const PlayingProgram& program : playing.programs)
                table.Add({program.place, program.project, program.program, program.file});
            table.Show(session.report, "programs");
        });
}

struct WindowSettings
{
    std::string mode;
    std::vector<std::string> areas;
};

void AddWindows(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(
        player,
        {kProgramGroup, "windows", "Set how windows are shown, and where they are",
         R"(over: over what else the face shows; alone: on an unlit face; hidden: not at all. The areas are those of window 1, 2
and so on; windows without one stay where they are.

Examples:
  vxctl player windows over 0,0,64x32 64,0,64x32
  vxctl player windows hidden)"});
    const auto settings = std::make_shared<WindowSettings>();
    command->add_option("MODE", settings->mode, "over, alone or hidden")
        ->required()
        ->check(CLI::IsMember({"over", "alone", "hidden"}));
    command->add_option("AREA", settings->areas, "the windows, up to 4")->type_name("X,Y,WxH");
    command->callback([&session, settings] {
        if (settings->areas.size() > kWindows)
            throw UsageError("there are " + std::to_string(kWindows) + " windows");
        std::vector<std::uint8_t> areas(settings->areas.size() * kFaceAreaSize);
        for (std::size_t i = 0; i < settings->areas.size(); ++i)
            StoreArea(std::span(areas).subspan(i * kFaceAreaSize).first<kFaceAreaSize>(),
                      ParseArea(settings->areas[i]));
        session.Connect();
        Check(vxCoreWinMode(kWindowModes.at(settings->mode), areas.empty() ? nullptr : areas.data(),
                            static_cast<std::uint32_t>(areas.size())));
    });
}

struct Announced
{
    std::string name;
    std::uint32_t programs = 0;
    std::uint32_t version = 0;
    std::string start;
};

void AddProject(CLI::App& player, Session& session)
{
    CLI::App* const command = AddCommand(
        player,
        {kProgramGroup, "project", "Tell the sign of a project",
         R"(How many programs it has, for player progress, and which of them plays when none is named. The project told of last
is the one that switch goes to when nothing plays.

Example:
  vxctl player project SHOP --programs 2 --version 7 --start MORNING)"});
    const auto project = std::make_shared<Announced>();
    command->add_option("NAME", project->name, "the project")->required();
    AddNumber(*command, "--programs", project->programs, 0, 65535, "programs that it has")->required();
    AddNumber(*command, "--version", project->version, 0, 65535, "a number of your own")->default_str("0");
    CLI::Option* const start = command->add_option("--start", project->start, "the program that it starts with");
    command->callback([&session, project, start] {
        if (project->start.size() > kStartSize)
            throw UsageError("the name of a program has " + std::to_string(kStartSize) + " bytes at most");
        session.Connect();
        const auto programs = static_cast<std::uint16_t>(project->programs);
        const auto version = static_cast<std::uint16_t>(project->version);
        if (start->count() == 0)
            return Check(vxCoreProjectInfo(Bytes(project->name), programs, version));
        ProjectExtra extra{};
        project->start.copy(reinterpret_cast<char*>(extra.bytes), kStartSize);
        Check(vxCoreProjectInfoEx(Bytes(project->name), programs, version, &extra));
    });
}

void AddProgress(CLI::App& player, Session& session)
{
    AddCommand(player, {kProgramGroup, "progress", "Tell how much of the latest project has arrived",
                        "Example:\n  vxctl player progress"})
        ->callback([&session] {
            std::uint8_t percent = 0;
            std::uint8_t state = 0;
            constexpr std::array<const char*, 3> kStates{"none", "under way", "complete"};
            session.Connect();
            Check(vxCorePrjSyncProgress(&percent, &state));
            session.report.Value("percent", "percent", percent);
            session.report.Value("project", "state", state < kStates.size() ? kStates[state] : std::to_string(state));
        });
}

} // namespace

void AddPlayerCommands(CLI::App& app, Session& session)
{
    CLI::App* const player = AddCommand(app, {kProgramGroup, "player", "Programs of the player core",
                                              R"(A program is a list of files, in a project; both have names.

Examples:
  vxctl player put SHOP MORNING hello.nmg logo.bmp
  vxctl player play SHOP MORNING
  vxctl player playing)"});
    player->require_subcommand(1);
    AddProgramCommands(*player, session);
    AddPlay(*player, session);
    AddSwitch(*player, session);
    AddEmergency(*player, session);
    AddStop(*player, session);
    AddPlaying(*player, session);
    AddWindows(*player, session);
    AddProject(*player, session);
    AddProgress(*player, session);
}

} // namespace vxctl
