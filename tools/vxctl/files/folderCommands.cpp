#include "vxctl/cli/command.h"
#include "vxctl/files/directoryEntry.h"
#include "vxctl/files/signPaths.h"

#include <vxsign/filesystem.h>

#include <array>
#include <cstdio>
#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Files";
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
    } while (start < total);
    return VX_OK;
}

void List(Session& session, const std::string& path, bool details)
{
    session.Connect();
    Report& report = session.report;
    Entries entries;
    std::uint32_t result = ReadLong(path, entries);
    // A sign that makes no long listing has the pages; one that cannot list at all says why once more.
    const bool isShort = result != VX_OK && result != VX_COMMUNICATION && result != VX_ABORTED;
    if (isShort) {
        entries.clear();
        result = ReadPages(path, entries);
    }
    Check(result);
    Report::Json list = Report::Json::array();
    for (const DirectoryEntry& entry : entries) {
        const std::string changed = entry.changed ? FormatTime(*entry.changed, 'T') : "";
        list.push_back({{"name", entry.name}, {"folder", entry.isFolder}, {"size", entry.size}, {"changed", changed}});
        std::array<char, 64> front{};
        if (details)
            std::snprintf(front.data(), front.size(), "%10u  %-19s  ", static_cast<unsigned>(entry.size),
                          entry.changed ? FormatTime(*entry.changed, ' ').c_str() : "-");
        report.Line(front.data() + entry.name + (entry.isFolder ? "/" : ""));
    }
    report.Put("shortNames", isShort);
    report.Put("entries", std::move(list));
}

void AddList(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {kGroup, "ls", "List a folder on the sign",
              R"(Folders end in a slash. A sign without long listings tells short names, such as LONGNA~1.TXT.

Examples:
  vxctl ls D:/
  vxctl ls -l D:/T
  vxctl --json ls D:/T | jq -r '.entries[].name')"});
    const auto path = std::make_shared<std::string>();
    const auto details = std::make_shared<bool>(false);
    AddSignPath(*command, "PATH", *path, "the folder")->required();
    command->add_flag("-l", *details, "with size and time of the last change");
    command->callback([&session, path, details] { List(session, *path, *details); });
}

void AddMakeFolder(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "mkdir", "Make a folder on the sign", "Example:\n  vxctl mkdir D:/T/NEW"});
    const auto path = std::make_shared<std::string>();
    AddSignPath(*command, "PATH", *path, "the folder")->required();
    command->callback([&session, path] {
        session.Connect();
        Check(vxCreateDir(path->c_str()));
    });
}

void Move(const Session& session, const std::string& from, std::string to)
{
    if (from.size() + to.size() > kLongestPaths)
        throw UsageError("both paths together have " + std::to_string(kLongestPaths) + " characters at most");
    const bool intoFolder = to.ends_with('\\') || to.ends_with('/');
    if (intoFolder && !to.ends_with(":\\"))
        to.pop_back();
    session.Connect();
    Check(!intoFolder && IsSameFolder(from, to) ? vxRename(from.c_str(), to.c_str())
                                                : vxMove(from.c_str(), to.c_str()));
}

void AddMove(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {kGroup, "mv", "Rename or move a file on the sign",
              R"(Within one folder the file is renamed, otherwise moved. With a slash at its end TO is a folder.

Examples:
  vxctl mv D:/T/A.NMG B.NMG
  vxctl mv D:/T/A.NMG E:/T/A.NMG
  vxctl mv D:/T/A.NMG D:/T/OLD/)"});
    const auto from = std::make_shared<std::string>();
    const auto to = std::make_shared<std::string>();
    AddSignPath(*command, "FROM", *from, "the file")->required();
    AddSignPath(*command, "TO", *to, "its new name, path or folder")->required();
    command->callback([&session, from, to] { Move(session, *from, *to); });
}

} // namespace

void AddFolderCommands(CLI::App& app, Session& session)
{
    AddList(app, session);
    AddMakeFolder(app, session);
    AddMove(app, session);
}

} // namespace vxctl
