#include "vxctl/playlist/playListCommands.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/playlist/scheduleText.h"
#include "vxctl/show/showCodes.h"

#include <vxsign/local.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <memory>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::uint16_t kAtEnd = std::numeric_limits<std::uint16_t>::max();

CLI::Option* AddPlace(CLI::App& app, PlayListPlace& place, const std::string& description)
{
    return app
        .add_option_function<std::string>(
            "PATH", [&place](const std::string& path) { place = ParsePlace(path); }, description)
        ->required()
        ->type_name("PATH");
}

CLI::Option* AddIndex(CLI::App& app, std::uint32_t& index)
{
    return AddNumber(app, "--at", index, 0, 254, "position from 0 on; otherwise the end");
}

// What every command here does: opens the list, changes it, saves it.
template <class Change>
void Edit(const Session& session, Change change)
{
    PlayList list = PlayList::Open(session.options.playList);
    change(list);
    list.Save();
}

// A file whose place in the list's folder is taken by another one is not overwritten.
void CopyInto(const fs::path& folder, const std::string& local, const std::string& name)
{
    const fs::path target = folder / name;
    std::error_code error;
    if (fs::equivalent(local, target, error))
        return;
    if (fs::exists(target, error) && ReadWhole(local) != ReadWhole(target.string()))
        throw UsageError(target.string() + " is there already, with other contents");
    fs::copy_file(local, target, fs::copy_options::overwrite_existing, error);
    if (error)
        throw UsageError("cannot copy " + local + " to " + folder.string() + ": " + error.message());
}

struct NewFiles
{
    std::vector<std::string> files;
    PlayListPlace place;
    std::uint32_t index = kAtEnd;
    std::uint32_t times = 1;
    std::uint32_t staySec = 0;
    std::string entryMode;
    std::string exitMode;
};

std::uint8_t ModeByte(const std::string& text)
{
    return text.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(ParseMode(text));
}

void Add(PlayList& list, const NewFiles& wanted)
{
    if (!wanted.place.file.empty())
        throw UsageError("--to names a group: /GROUP/ or /GROUP/SUB/");
    VXPLAYLIST_FILE_INFO common{};
    common.playTimes = static_cast<std::uint8_t>(wanted.times);
    common.Drive = 'D';
    common.PicStaySec = static_cast<std::uint16_t>(wanted.staySec);
    common.PicInMode = ModeByte(wanted.entryMode);
    common.PicOutMode = ModeByte(wanted.exitMode);
    std::uint32_t index = wanted.index;
    for (const std::string& local : wanted.files) {
        const std::string name = fs::path(local).filename().string();
        const std::string source = fs::absolute(local).lexically_normal().string();
        VXPLAYLIST_FILE_INFO info = common;
        if (name.size() >= sizeof info.fileName || source.size() >= sizeof info.pcFileName)
            throw UsageError("the name of " + local + " is too long for a play list");
        name.copy(info.fileName, name.size());
        source.copy(info.pcFileName, source.size());
        std::array<char, 64> path{};
        std::array<char, 12> shortName{};
        std::uint8_t folder = 0;
        Check(vxMakeSignPath(local.c_str(), path.data(), path.size(), static_cast<std::uint8_t>(info.Drive), &folder,
                             shortName.data()));
        info.Type = static_cast<char>(folder);
        list.AddFile(wanted.place, info, static_cast<std::uint16_t>(index));
        index += index == kAtEnd ? 0 : 1;
        CopyInto(list.Folder(), local, name);
    }
}

void AddAdd(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Edit", "add", "Add files",
         R"(The files are copied beside the list. In the root new files always go to the end. Pictures take --stay, --in
and --out; other files say these things themselves.

Examples:
  vxctl playlist add hello.nmg logo.bmp
  vxctl playlist add --to /winter/ --stay 5 --in 3 snow.bmp)"});
    const auto wanted = std::make_shared<NewFiles>();
    command->add_option("FILE", wanted->files, "files on this PC")
        ->type_name("FILE")
        ->required()
        ->check(ReadableFile());
    command
        ->add_option_function<std::string>(
            "--to", [wanted](const std::string& path) { wanted->place = ParsePlace(path); },
            "the group, /GROUP/ or /GROUP/SUB/; otherwise the root")
        ->type_name("PATH");
    AddIndex(*command, wanted->index);
    AddNumber(*command, "--times", wanted->times, 1, 255, "plays in each turn")->default_str("1");
    AddNumber(*command, "--stay", wanted->staySec, 0, 65535, "seconds that a picture stays")->default_str("0");
    command->add_option("--in", wanted->entryMode, "how a picture enters: a character or its code")->type_name("MODE");
    command->add_option("--out", wanted->exitMode, "how a picture leaves")->type_name("MODE");
    command->callback([&session, wanted] { Edit(session, [&](PlayList& list) { Add(list, *wanted); }); });
}

void AddGroup(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(
        app, {"Edit", "group", "Make a group, or a sub-group in one",
              R"(The play type is the sign's own; for vxsim 1 is at random, anything else in the order of the list.

Examples:
  vxctl playlist group /winter/
  vxctl playlist group /winter/night/ --type 1)"});
    struct Wanted
    {
        PlayListPlace place;
        std::uint32_t playType = 0;
        std::uint32_t index = kAtEnd;
    };
    const auto wanted = std::make_shared<Wanted>();
    AddPlace(*command, wanted->place, "/GROUP/ or /GROUP/SUB/");
    AddNumber(*command, "--type", wanted->playType, 0, 255, "play type")->default_str("0");
    AddIndex(*command, wanted->index);
    command->callback([&session, wanted] {
        Edit(session, [&](PlayList& list) {
            list.AddGroup(wanted->place, static_cast<std::uint8_t>(wanted->playType),
                          static_cast<std::uint16_t>(wanted->index));
        });
    });
}

void AddRemove(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(app, {"Edit", "rm", "Take a file or a whole group out of the list",
                                               "The files beside the list stay.\n\nExamples:\n"
                                               "  vxctl playlist rm /hello.nmg\n  vxctl playlist rm /winter/"});
    const auto place = std::make_shared<PlayListPlace>();
    AddPlace(*command, *place, "a file, a group or a sub-group");
    command->callback([&session, place] { Edit(session, [&](PlayList& list) { list.Remove(*place); }); });
}

void AddMove(CLI::App& app, const Session& session)
{
    CLI::App* const command =
        AddCommand(app, {"Edit", "mv", "Move a file or group among its neighbours",
                         "Examples:\n  vxctl playlist mv /logo.bmp up\n  vxctl playlist mv /winter/ down --by 3"});
    struct Wanted
    {
        PlayListPlace place;
        std::string direction;
        std::uint32_t steps = 1;
    };
    const auto wanted = std::make_shared<Wanted>();
    AddPlace(*command, wanted->place, "a file, a group or a sub-group");
    command->add_option("DIRECTION", wanted->direction, "up or down")
        ->type_name("")
        ->required()
        ->check(CLI::IsMember({"up", "down"}));
    AddNumber(*command, "--by", wanted->steps, 1, 255, "places")->default_str("1");
    command->callback([&session, wanted] {
        const int steps = static_cast<int>(wanted->steps);
        Edit(session, [&](PlayList& list) { list.Move(wanted->place, wanted->direction == "up" ? -steps : steps); });
    });
}

struct NewSchedule
{
    PlayListPlace place;
    std::string days;
    std::string dates;
    std::string hours;
    bool clear = false;
};

void Schedule(PlayList& list, const NewSchedule& wanted)
{
    constexpr std::size_t kMostSchedules = 255; // their count is one byte
    const bool limited = !wanted.days.empty() || !wanted.dates.empty() || !wanted.hours.empty();
    if (wanted.place.file.empty())
        throw UsageError("schedules belong to files");
    if (!limited && !wanted.clear)
        throw UsageError("give --days, --dates or --hours; or --clear");
    list.Find(wanted.place);
    auto info = list.Get(list.FilesOf(wanted.place), wanted.place.file);
    if (!info)
        throw UsageError("another sub-group has a file of that name, so this one is out of reach");
    if (wanted.clear) {
        info->schCount = 0;
        std::fill(std::begin(info->SCH), std::end(info->SCH), SCH{});
    }
    if (limited) {
        if (info->schCount >= kMostSchedules)
            throw UsageError("a file has " + std::to_string(kMostSchedules) + " schedules at most");
        info->SCH[info->schCount++] = MakeSchedule(wanted.days, wanted.dates, wanted.hours);
    }
    list.Modify(wanted.place, *info);
}

void AddSchedule(CLI::App& app, const Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Edit", "schedule", "Say when a file may play",
         R"(Each call adds one schedule; the file plays whenever one of them holds, and always if it has none. What is
left out is no limit. A sign that takes flat lists alone gets the first schedule alone.

Examples:
  vxctl playlist schedule /hello.nmg --days mon-fri --hours 07:00..19:30
  vxctl playlist schedule /winter/snow.bmp --dates 2026-12-01..2027-02-28
  vxctl playlist schedule /hello.nmg --clear)"});
    const auto wanted = std::make_shared<NewSchedule>();
    AddPlace(*command, wanted->place, "the file");
    command->add_option("--days", wanted->days, "such as mon-fri or sat,sun")->type_name("DAYS");
    command->add_option("--dates", wanted->dates, "such as 2026-12-01..2026-12-24")->type_name("SPAN");
    command->add_option("--hours", wanted->hours, "such as 07:00..19:30 or 22:00..06:00")->type_name("SPAN");
    command->add_flag("--clear", wanted->clear, "without the schedules it has");
    command->callback([&session, wanted] { Edit(session, [&](PlayList& list) { Schedule(list, *wanted); }); });
}

} // namespace

void AddPlayListCommands(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Play", "playlist", "Edit, send and fetch play lists",
         R"(A play list is a file on this PC, with the files that it plays beside it. A path in it is /FILE, /GROUP/,
/GROUP/FILE, /GROUP/SUB/ or /GROUP/SUB/FILE.

Example:
  vxctl playlist -l shop/list.xml new
  vxctl playlist -l shop/list.xml add hello.nmg logo.bmp
  vxctl playlist -l shop/list.xml schedule /logo.bmp --days mon-fri --hours 07:00..19:30
  vxctl playlist -l shop/list.xml preview shop.gif
  vxctl playlist -l shop/list.xml send)"});
    command->require_subcommand(1);
    command->add_option("-l,--list", session.options.playList, "the list")
        ->envname("VXLIST")
        ->type_name("FILE")
        ->capture_default_str();
    AddCommand(*command, {"Edit", "new", "Make an empty list", "Example:\n  vxctl playlist -l shop/list.xml new"})
        ->callback([&session] {
            const std::string& file = session.options.playList;
            std::error_code error;
            if (fs::exists(file, error))
                throw UsageError(file + " is there already");
            PlayList::OpenOrMake(file);
        });
    AddAdd(*command, session);
    AddGroup(*command, session);
    AddSchedule(*command, session);
    AddMove(*command, session);
    AddRemove(*command, session);
    AddPlayListTree(*command, session);
#ifdef VXCTL_HAS_PREVIEW
    AddPlayListPreview(*command, session);
#endif
    AddPlayListTransfer(*command, session);
}

} // namespace vxctl
