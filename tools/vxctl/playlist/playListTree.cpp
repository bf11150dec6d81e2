// playlist ls: the list as a tree.
#include "vxctl/cli/tables.h"
#include "vxctl/playlist/playList.h"
#include "vxctl/playlist/scheduleText.h"
#include "vxctl/show/showCodes.h"

#include <algorithm>
#include <system_error>

namespace vxctl {

namespace {

class Tree
{
public:
    Tree(const PlayList& shown, const Report& target) : list(shown), report(target) {}

    Report::Json Show() { return Entries("/", "", {}); }

private:
    Report::Json Entries(const std::string& level, const std::string& indent, const std::string& ofGroup)
    {
        Report::Json shown = Report::Json::array();
        const auto found = list.Level(level);
        if (!found) {
            report.Line(indent + "`-- (a part that has no name of its own)");
            return shown;
        }
        std::vector<Row> rows;
        for (const PlayListEntry& entry : *found) {
            // The files of the group itself, which live one level below, stand where people look for them.
            const bool own = entry.isGroup && !ofGroup.empty() && entry.name == ofGroup;
            if (!own)
                rows.push_back({level, entry});
            else
                for (const PlayListEntry& file :
                     list.Level(level + entry.name + '/').value_or(std::vector<PlayListEntry>()))
                    rows.push_back({level + entry.name + '/', file});
        }
        for (std::size_t i = 0; i < rows.size(); ++i)
            shown.push_back(Entry(rows[i], indent, i + 1 == rows.size()));
        return shown;
    }

    struct Row
    {
        std::string level;
        PlayListEntry entry;
    };

    Report::Json Entry(const Row& row, const std::string& indent, bool last)
    {
        const std::string& name = row.entry.name;
        const std::string front = indent + (last ? "`-- " : "|-- ");
        const std::string below = indent + (last ? "    " : "|   ");
        if (row.entry.isGroup) {
            report.Line(front + name + '/');
            const bool isTop = row.level == "/";
            return {{"group", name}, {"entries", Entries(row.level + name + '/', below, isTop ? name : "")}};
        }
        const auto info = list.Get(row.level, name);
        std::error_code error;
        const bool isMissing = !std::filesystem::exists(list.Folder() / name, error);
        Report::Json shown{{"file", name}, {"missing", isMissing}};
        if (isMissing)
            report.Line(front + name + "  (missing)");
        else
            report.Line(front + name + (info ? Details(*info) : std::string()));
        if (!info)
            return shown;
        shown["times"] = info->playTimes;
        shown["staySeconds"] = info->PicStaySec;
        shown["entryMode"] = ModeOf(info->PicInMode);
        shown["exitMode"] = ModeOf(info->PicOutMode);
        shown["source"] = info->pcFileName;
        shown["schedules"] = Report::Json::array();
        const std::string inside = below + "  ";
        for (std::size_t i = 0; i < info->schCount; ++i) {
            const std::string words = DescribeSchedule(info->SCH[i]);
            shown["schedules"].push_back(Limits(info->SCH[i], words));
            report.Line(inside + words);
        }
        return shown;
    }

    // 0 leaves it to the sign.
    static Report::Json ModeOf(std::uint8_t code) { return code != 0 ? Report::Json(CodeText(code)) : Report::Json(); }

    static Report::Json Limits(const SCH& schedule, const std::string& words)
    {
        const ScheduleLimits limits = LimitsOf(schedule);
        const auto orNull = [](const std::string& text) { return text.empty() ? Report::Json() : Report::Json(text); };
        return {{"text", words},
                {"days", limits.days.empty() ? Report::Json() : Report::Json(limits.days)},
                {"firstDate", orNull(limits.firstDate)},
                {"lastDate", orNull(limits.lastDate)},
                {"from", orNull(limits.from)},
                {"until", orNull(limits.until)}};
    }

    static std::string Details(const VXPLAYLIST_FILE_INFO& info)
    {
        std::string text;
        if (info.playTimes > 1)
            text += "  " + std::to_string(info.playTimes) + " times";
        if (info.PicStaySec != 0)
            text += "  " + std::to_string(info.PicStaySec) + " s";
        return text;
    }

    const PlayList& list;
    const Report& report;
};

std::uint32_t ShowTree(Session& session, const Args& args)
{
    const PlayList list = PlayList::Open(args.Text("--list"));
    session.report.Line(args.Text("--list"));
    session.report.Put("entries", Tree(list, session.report).Show());
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "playlist ls",
        .help = "Show the list as a tree, with its schedules in words",
        .examples = R"(vxctl playlist ls
vxctl --json playlist ls | jq '.entries[].file')",
        .line = Line::kNone,
        .run = ShowTree,
    },
};

} // namespace

const CommandTable kPlayListTreeCommands{"Play lists", kCommands};

} // namespace vxctl
