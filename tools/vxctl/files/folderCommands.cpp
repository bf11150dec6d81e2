// ls, mkdir, mv: folders on the sign.
#include "vxctl/cli/tables.h"
#include "vxctl/files/directoryEntry.h"
#include "vxctl/files/signPaths.h"

#include <vxsign/filesystem.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint16_t kPageEntries = 20;
constexpr std::size_t kLongestPaths = 254; // from and to

using Entries = std::vector<DirectoryEntry>;

std::uint32_t ReadLong(const std::string& path, Entries& entries)
{
    const auto take = [](std::uint8_t* entry, void* user) -> std::uint32_t {
        const std::span<const std::uint8_t, kLongEntrySize> record(entry, kLongEntrySize);
        if (const auto found = DecodeLongEntry(record))
            static_cast<Entries*>(user)->push_back(*found);
        return VX_OK;
    };
    return vxLstLongFolderCB(path.c_str(), take, &entries);
}

// Page after page, until the sign has no more or has told as many as there are.
std::uint32_t ReadPages(const std::string& path, Entries& entries)
{
    std::uint32_t total = 0;
    std::uint32_t start = 0;
    do {
        std::array<std::uint8_t, kPageEntries * kShortEntrySize> page{};
        const std::uint32_t result = vxGetDirFileEx(path.c_str(), static_cast<std::uint16_t>(start), kPageEntries,
                                                    &total, page.data(), kPageEntries);
        if (result != VX_OK)
            return result;
        const std::uint32_t before = start;
        for (std::size_t at = 0; at < page.size(); at += kShortEntrySize) {
            const std::span<const std::uint8_t, kShortEntrySize> record(page.data() + at, kShortEntrySize);
            if (IsEnd(record))
                break;
            ++start;
            if (const auto found = DecodeShortEntry(record))
                entries.push_back(*found);
        }
        if (start == before)
            break;
    } while (start < std::min<std::uint32_t>(total, UINT16_MAX)); // a request has 16 bits for the start
    return VX_OK;
}

std::uint32_t List(Session& session, const Args& args)
{
    const std::string& path = args.Text("PATH");
    Report& report = session.report;
    Entries entries;
    std::uint32_t result = ReadLong(path, entries);
    // A sign that makes no long listing has the pages; one that cannot list at all says why once more.
    const bool isShort = result != VX_OK && !IsLineDown(result);
    if (isShort) {
        entries.clear();
        result = ReadPages(path, entries);
    }
    Check(result);
    Report::Json list = Report::Json::array();
    for (const DirectoryEntry& entry : entries) {
        list.push_back({{"name", entry.name},
                        {"folder", entry.isFolder},
                        {"bytes", entry.size},
                        {"changed", JsonTime(entry.changed)}});
        std::array<char, 64> front{};
        if (args.Has("-l"))
            std::snprintf(front.data(), front.size(), "%10u  %-19s  ", static_cast<unsigned>(entry.size),
                          entry.changed ? FormatTime(*entry.changed, ' ').c_str() : "-");
        report.Line(front.data() + entry.name + (entry.isFolder ? "/" : ""));
    }
    report.Put("shortNames", isShort);
    report.Put("entries", std::move(list));
    return VX_OK;
}

std::uint32_t Move(Session& /*session*/, const Args& args)
{
    const std::string& from = args.Text("FROM");
    std::string to = args.Text("TO");
    if (from.size() + to.size() > kLongestPaths)
        throw UsageError("both paths together have " + std::to_string(kLongestPaths) + " characters at most");
    const bool intoFolder = to.ends_with('\\') || to.ends_with('/');
    if (intoFolder && !to.ends_with(":\\"))
        to.pop_back();
    return !intoFolder && IsSameFolder(from, to) ? vxRename(from.c_str(), to.c_str())
                                                 : vxMove(from.c_str(), to.c_str());
}

const Command kCommands[] = {
    {
        .name = "ls",
        .help = "List a folder on the sign",
        .details = "Folders end in a slash. A sign without long listings has short names, such as LONGNA~1.TXT.",
        .examples = R"(vxctl ls D:/
vxctl ls -l D:/T
vxctl --json ls D:/T | jq -r '.entries[].name')",
        .arguments = {SignPath("PATH", "the folder"), Flag("-l", "with size and time of the last change")},
        .signs = Signs::kMany,
        .run = List,
    },
    {
        .name = "mkdir",
        .help = "Make a folder on the sign",
        .examples = "vxctl mkdir D:/T/NEW",
        .arguments = {SignPath("PATH", "the folder")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxCreateDir(args.Text("PATH").c_str()); },
    },
    {
        .name = "mv",
        .help = "Rename or move a file on the sign",
        .details = "Within one folder the file is renamed, otherwise moved. With a slash at its end TO is a folder.",
        .examples = R"(vxctl mv D:/T/A.NMG B.NMG
vxctl mv D:/T/A.NMG E:/T/A.NMG
vxctl mv D:/T/A.NMG D:/T/OLD/)",
        .arguments = {SignPath("FROM", "the file"), SignPath("TO", "its new name, path or folder")},
        .signs = Signs::kMany,
        .run = Move,
    },
};

} // namespace

const CommandTable kFolderCommands{"Files", kCommands};

} // namespace vxctl
