// playlist: editing a list.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/playlist/scheduleText.h"
#include "vxctl/show/showCodes.h"

#ifdef VXCTL_HAS_PREVIEW
#include "vxctl/show/pictures.h"
#endif

#include <vxsign/local.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::uint16_t kAtEnd = std::numeric_limits<std::uint16_t>::max();

// The list as the command finds it: it is saved when the change is made.
PlayList ListOf(const Args& args)
{
    return PlayList::Open(args.Text("--list"));
}

std::uint32_t Save(PlayList& list)
{
    list.Save();
    return VX_OK;
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

std::uint8_t ModeByte(const std::string& text)
{
    return text.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(ParseMode(text));
}

// What --times, --stay, --in and --out say of every new file.
VXPLAYLIST_FILE_INFO CommonOf(const Args& args)
{
    VXPLAYLIST_FILE_INFO common{};
    common.playTimes = args.Number<std::uint8_t>("--times");
    common.Drive = 'D';
    common.PicStaySec = args.Number<std::uint16_t>("--stay");
    common.PicInMode = ModeByte(args.Text("--in"));
    common.PicOutMode = ModeByte(args.Text("--out"));
    return common;
}

// With the names of a file on this PC, and the sign's folder for it.
VXPLAYLIST_FILE_INFO InfoOf(VXPLAYLIST_FILE_INFO info, const std::string& local)
{
    const std::string name = fs::path(local).filename().string();
    const std::string source = fs::absolute(local).lexically_normal().string();
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
    return info;
}

// Ahead of any change: a file that the sign would pass over in silence is of no use in a list.
void LookAt([[maybe_unused]] const std::string& local)
{
#ifdef VXCTL_HAS_PREVIEW
    const std::string why = WhyNotShown(ReadWhole(local));
    if (!why.empty())
        throw UsageError(local + " cannot be shown: it is " + why + "; --raw adds it all the same");
#endif
}

std::uint32_t Add(Session& /*session*/, const Args& args)
{
    const PlayListPlace place = args.Has("--to") ? ParsePlace(args.Text("--to")) : PlayListPlace();
    PlayList list = ListOf(args);
    if (!place.file.empty())
        throw UsageError("--to names a group: /GROUP/ or /GROUP/SUB/");
    auto index = args.Number<std::uint16_t>("--at", kAtEnd);
    for (const std::string& local : args.List("FILE")) {
        if (!args.Has("--raw"))
            LookAt(local);
        list.AddFile(place, InfoOf(CommonOf(args), local), index);
        index = static_cast<std::uint16_t>(index + (index == kAtEnd ? 0 : 1));
        CopyInto(list.Folder(), local, fs::path(local).filename().string());
    }
    return Save(list);
}

std::uint32_t AddGroup(Session& /*session*/, const Args& args)
{
    PlayList list = ListOf(args);
    list.AddGroup(ParsePlace(args.Text("PATH")), args.Number<std::uint8_t>("--type"),
                  args.Number<std::uint16_t>("--at", kAtEnd));
    return Save(list);
}

std::uint32_t Remove(Session& /*session*/, const Args& args)
{
    PlayList list = ListOf(args);
    list.Remove(ParsePlace(args.Text("PATH")));
    return Save(list);
}

std::uint32_t Move(Session& /*session*/, const Args& args)
{
    PlayList list = ListOf(args);
    const int steps = args.Number<int>("--by");
    list.Move(ParsePlace(args.Text("PATH")), args.Text("DIRECTION") == "up" ? -steps : steps);
    return Save(list);
}

void AddSchedule(VXPLAYLIST_FILE_INFO& info, const Args& args)
{
    constexpr std::size_t kMostSchedules = 255; // their count is one byte
    if (info.schCount >= kMostSchedules)
        throw UsageError("a file has " + std::to_string(kMostSchedules) + " schedules at most");
    info.SCH[info.schCount++] = MakeSchedule(args.Text("--days"), args.Text("--dates"), args.Text("--hours"));
}

std::uint32_t Schedule(Session& /*session*/, const Args& args)
{
    const PlayListPlace place = ParsePlace(args.Text("PATH"));
    PlayList list = ListOf(args);
    const bool limited = !args.Text("--days").empty() || !args.Text("--dates").empty() || !args.Text("--hours").empty();
    if (place.file.empty())
        throw UsageError("schedules belong to files");
    if (!limited && !args.Has("--clear"))
        throw UsageError("give --days, --dates or --hours; or --clear");
    list.Find(place);
    auto info = list.Get(list.FilesOf(place), place.file);
    if (!info)
        throw UsageError("another sub-group has a file of that name, so this one is out of reach");
    if (args.Has("--clear")) {
        info->schCount = 0;
        std::fill(std::begin(info->SCH), std::end(info->SCH), SCH{});
    }
    if (limited)
        AddSchedule(*info, args);
    list.Modify(place, *info);
    return Save(list);
}

std::uint32_t Make(Session& /*session*/, const Args& args)
{
    const std::string& file = args.Text("--list");
    std::error_code error;
    if (fs::exists(file, error))
        throw UsageError(file + " is there already");
    PlayList::OpenOrMake(file);
    return VX_OK;
}

constexpr Argument kAt = Number("--at", 0, 254, "position from 0 on; otherwise the end").In("N");

const Command kCommands[] = {
    {
        .name = "playlist",
        .help = "Edit, send and fetch play lists",
        .details =
            R"(A play list is a file on this PC, with the files that it plays beside it. A path in it is /FILE, /GROUP/,
/GROUP/FILE, /GROUP/SUB/ or /GROUP/SUB/FILE.)",
        .examples = R"(vxctl playlist -l shop/list.xml new
vxctl playlist -l shop/list.xml add hello.nmg logo.bmp
vxctl playlist -l shop/list.xml schedule /logo.bmp --days mon-fri --hours 07:00..19:30
vxctl playlist -l shop/list.xml preview shop.gif
vxctl playlist -l shop/list.xml send)",
        .arguments = {WriteFile("-l,--list", "the list").Default("playlist.xml").From("VXLIST")},
    },
    {
        .name = "playlist new",
        .help = "Make an empty list",
        .examples = "vxctl playlist -l shop/list.xml new",
        .line = Line::kNone,
        .run = Make,
    },
    {
        .name = "playlist add",
        .help = "Add files",
        .details =
            R"(The files are copied beside the list. In the root new files always go to the end. Pictures take --stay, --in
and --out; other files say these things themselves. A file is looked at first: what is neither a message nor a picture
(BMP, PNG, JPEG) is refused, unless --raw adds it for a sign that knows it.)",
        .examples = R"(vxctl playlist add hello.nmg logo.bmp
vxctl playlist add --to /winter/ --stay 5 --in 3 snow.bmp)",
        .arguments = {ReadFile("FILE", "files on this PC").Repeated(),
                      Of(kListPlace, "--to", "the group, /GROUP/ or /GROUP/SUB/; otherwise the root"), kAt,
                      Number("--times", 1, 255, "plays in each turn").In("N").Default("1"),
                      Number("--stay", 0, 65535, "seconds that a picture stays").In("SECONDS").Default("0"),
                      Of(kModeCode, "--in", "how a picture enters: a character or its code"),
                      Of(kModeCode, "--out", "how a picture leaves"),
                      Flag("--raw", "add files of kinds that only the sign knows")},
        .line = Line::kNone,
        .run = Add,
    },
    {
        .name = "playlist group",
        .help = "Make a group, or a sub-group in one",
        .details = "The play type is the sign's own; often 1 is at random, anything else in the order of the list.",
        .examples = R"(vxctl playlist group /winter/
vxctl playlist group /winter/night/ --type 1)",
        .arguments = {Of(kListPlace, "PATH", "/GROUP/ or /GROUP/SUB/"),
                      Number("--type", 0, 255, "play type").In("N").Default("0"), kAt},
        .line = Line::kNone,
        .run = AddGroup,
    },
    {
        .name = "playlist schedule",
        .help = "Say when a file may play",
        .details =
            R"(Each call adds one schedule; the file plays whenever one of them holds, and always if it has none. What is
left out is no limit. A sign that takes flat lists alone gets the first schedule alone.)",
        .examples = R"(vxctl playlist schedule /hello.nmg --days mon-fri --hours 07:00..19:30
vxctl playlist schedule /winter/snow.bmp --dates 2026-12-01..2027-02-28
vxctl playlist schedule /hello.nmg --clear)",
        .arguments = {Of(kListPlace, "PATH", "the file"), Text("--days", "such as mon-fri or sat,sun").In("DAYS"),
                      Text("--dates", "such as 2026-12-01..2026-12-24").In("SPAN"),
                      Text("--hours", "such as 07:00..19:30 or 22:00..06:00").In("SPAN"),
                      Flag("--clear", "without the schedules it has")},
        .line = Line::kNone,
        .run = Schedule,
    },
    {
        .name = "playlist mv",
        .help = "Move a file or group among its neighbours",
        .examples = R"(vxctl playlist mv /logo.bmp up
vxctl playlist mv /winter/ down --by 3)",
        .arguments = {Of(kListPlace, "PATH", "a file, a group or a sub-group"),
                      Choice("DIRECTION", "up|down", "towards the start, or the end"),
                      Number("--by", 1, 255, "places").In("N").Default("1")},
        .line = Line::kNone,
        .run = Move,
    },
    {
        .name = "playlist rm",
        .help = "Take a file or a whole group out of the list",
        .details = "The files beside the list stay.",
        .examples = R"(vxctl playlist rm /hello.nmg
vxctl playlist rm /winter/)",
        .arguments = {Of(kListPlace, "PATH", "a file, a group or a sub-group")},
        .line = Line::kNone,
        .run = Remove,
    },
};

} // namespace

const CommandTable kPlayListCommands{"Play lists", kCommands};

} // namespace vxctl
