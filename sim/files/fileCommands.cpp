#include "sim/files/fileCommands.h"

#include "sim/files/signText.h"
#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <system_error>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kPlayFolders = "TSPA";
constexpr const char* kLongListingPath = "E:\\dlist.dlt";
constexpr std::size_t kListPartPath = 4;
constexpr std::size_t kMostListed = 40; // entries in a reply; a host takes 1536 bytes
constexpr std::uintmax_t kDriveUnit = 1024;
constexpr std::uint8_t kTellCount = 1;

// "D:\*.*" and "D:\*" list what "D:\" does.
std::string_view WithoutWildcard(std::string_view path)
{
    for (const std::string_view wildcard : {"*.*", "*"}) {
        if (path.ends_with(wildcard))
            return path.substr(0, path.size() - wildcard.size());
    }
    return path;
}

std::uint32_t Units(std::uintmax_t bytes)
{
    return static_cast<std::uint32_t>(
        std::min<std::uintmax_t>(bytes / kDriveUnit, std::numeric_limits<std::uint32_t>::max()));
}

} // namespace

FileCommands::FileCommands(const Drives& signDrives, TransferCommands& moved, const SignObservers& tell,
                           std::function<void()> makeFiles)
    : drives(signDrives), transfers(moved), observers(tell), makeSystemFiles(std::move(makeFiles))
{
}

std::span<const CommandRow> FileCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {7, 2, "format", 0, 0, kLogged, Run<&FileCommands::Format>,
         "empties the drive with this letter; drive C only with \"SYS\" behind the letter, and makes its `CONFIG.SYS` "
         "anew"},
        {7, 3, "create folder", 0, 0, kUnlogged, Run<&FileCommands::CreateFolder>,
         "makes a folder and those above it; one that is there is well"},
        {7, 4, "rename", 0, 0, kUnlogged, Run<&FileCommands::Rename>,
         "a blank separates the paths, and since names may hold blanks, the first is the shortest one that exists. The "
         "new name stands alone or with the same folder"},
        {7, 5, "move", 0, 0, kUnlogged, Run<&FileCommands::Move>, "to a folder that is there, or to a new path in one"},
        {7, 6, "delete", 0, 0, kUnlogged, Run<&FileCommands::Delete>, "deletes a file"},
        {7, 7, "delete texts", 1, 0, kUnlogged, Run<&FileCommands::DeleteKind, 'T'>,
         "deletes the files in the folder T of the drive with this letter or number, 1 being the first; 0 means all "
         "drives"},
        {7, 8, "delete strings", 1, 0, kUnlogged, Run<&FileCommands::DeleteKind, 'S'>, "likewise in S"},
        {7, 9, "delete pictures", 1, 0, kUnlogged, Run<&FileCommands::DeleteKind, 'P'>, "likewise in P"},
        {7, 10, "delete array pictures", 1, 0, kUnlogged, Run<&FileCommands::DeleteKind, 'A'>, "likewise in A"},
        {7, 11, "list", 0, 0, kUnlogged, Run<&FileCommands::List>,
         "a [listing](#listings) of 40 entries at most; the count (16 bits) is that of the whole folder. \"*.*\" or "
         "\"*\" at the end is as without"},
        {7, 12, "list part", 0, 0, kUnlogged, Run<&FileCommands::ListPart>,
         "likewise; byte 0 is how many entries, byte 2 from which on (16 bits each)"},
        {7, 13, "drive information", 0, 0, kUnlogged, Run<&FileCommands::DriveInfo>,
         "total and free kilobytes (32 bits each, cut to that), the number 1024, 8 bytes 0"},
        {7, 14, "file exists", 0, 0, kUnlogged, Run<&FileCommands::Exists>, "whether a file or folder exists"},
        {7, 15, "clear play files", 1, 0, kLogged, Run<&FileCommands::ClearPlayFiles>,
         "deletes all files in T, S, P and A and `SEQUENT.SYS`; mode 1 tells how many those were"},
        {7, 16, "long list", 0, 0, kUnlogged, Run<&FileCommands::ListLong>,
         "writes the long listing to `E:\\dlist.dlt`"},
    };
    return kRows;
}

// Whatever the command does to the list that plays, the face follows.
Reply FileCommands::Execute(const Call& call)
{
    std::error_code error;
    const bool hadSequence = fs::exists(drives.SequenceFile(), error);
    Reply reply = CommandFamily::Execute(call);
    transfers.Forget();
    if (hadSequence != fs::exists(drives.SequenceFile(), error))
        observers.Tell(&SignEvents::sequenceWritten);
    return reply;
}

// Drive C goes only with the word SYS behind it: the sign's own files are there.
Reply FileCommands::Format(const Call& call) const
{
    const std::string_view text = TextAt(call.payload, 0);
    const auto drive = drives.Resolve(std::string(text.substr(0, 1)) + ":");
    const bool isSystem = text.starts_with('C') || text.starts_with('c');
    std::error_code error;
    if (!drive || (isSystem && text.substr(1) != "SYS"))
        return Reply::WithCode(Code::kFormatFailed);
    for (fs::directory_iterator entry(*drive, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code kept;
        fs::remove_all(entry->path(), kept);
        if (kept)
            return Reply::WithCode(Code::kFormatFailed);
    }
    if (isSystem)
        makeSystemFiles();
    return Reply::WithCode(error ? Code::kFormatFailed : Code::kOk);
}

Reply FileCommands::CreateFolder(const Call& call) const
{
    const auto folder = drives.Resolve(TextAt(call.payload, 0));
    std::error_code error;
    if (folder)
        fs::create_directories(*folder, error);
    return Reply::WithCode(folder && fs::is_directory(*folder, error) ? Code::kOk : Code::kCreateFolderFailed);
}

// Whether this is a file or folder, and not the drive itself.
bool FileCommands::IsEntry(std::string_view path) const
{
    const auto entry = drives.Resolve(path);
    std::error_code error;
    return entry && *entry != drives.Resolve(path.substr(0, 2)) && fs::exists(fs::symlink_status(*entry, error));
}

// One blank separates the two paths, but either may have blanks of its own: the first path is one that exists.
std::pair<std::string, std::string> FileCommands::SplitPaths(std::string_view paths) const
{
    for (std::size_t at = paths.find(' '); at != std::string_view::npos; at = paths.find(' ', at + 1)) {
        if (IsEntry(paths.substr(0, at)))
            return {std::string(paths.substr(0, at)), std::string(paths.substr(at + 1))};
    }
    return {};
}

// The new name stands alone or with the path of the same folder.
Reply FileCommands::Rename(const Call& call) const
{
    auto [from, to] = SplitPaths(TextAt(call.payload, 0));
    if (from.empty())
        return Reply::WithCode(Code::kRenameFailed);
    const fs::path source = *drives.Resolve(from);
    if (to.find_first_of(":\\/") == std::string::npos)
        to.insert(0, from, 0, from.find_last_of("\\/:") + 1);
    const auto target = drives.Resolve(to);
    if (!target || target->parent_path() != source.parent_path())
        return Reply::WithCode(Code::kBadRenamePath);
    std::error_code error;
    // A name of another case finds the file itself.
    const bool sameFile = *target == source;
    if (!sameFile && fs::exists(*target, error))
        return Reply::WithCode(Code::kRenameFailed);
    const std::string name = to.substr(to.find_last_of("\\/:") + 1);
    fs::rename(source, source.parent_path() / name, error);
    return Reply::WithCode(error ? Code::kRenameFailed : Code::kOk);
}

// The target is a folder that is there, or the new path in one.
Reply FileCommands::Move(const Call& call) const
{
    const auto [from, to] = SplitPaths(TextAt(call.payload, 0));
    if (from.empty())
        return Reply::WithCode(Code::kMoveFailed);
    const fs::path source = *drives.Resolve(from);
    auto target = drives.Resolve(to);
    std::error_code error;
    if (target && fs::is_directory(*target, error))
        target = drives.Resolve(to + "\\" + source.filename().string());
    if (!target || fs::exists(*target, error))
        return Reply::WithCode(Code::kMoveFailed);
    fs::rename(source, *target, error);
    return Reply::WithCode(error ? Code::kMoveFailed : Code::kOk);
}

Reply FileCommands::Delete(const Call& call) const
{
    const auto file = drives.Resolve(TextAt(call.payload, 0));
    std::error_code error;
    if (!file)
        return Reply::WithCode(Code::kDeleteFailed);
    const fs::file_status status = fs::symlink_status(*file, error);
    if (!fs::exists(status))
        return Reply::WithCode(Code::kFileGone);
    return Reply::WithCode(fs::is_directory(status) || !fs::remove(*file, error) ? Code::kDeleteFailed : Code::kOk);
}

std::size_t FileCommands::DeleteFilesIn(char drive, char folder) const
{
    const auto place = drives.Resolve(std::string{drive, ':', '\\', folder});
    std::size_t count = 0;
    std::error_code error;
    if (!place)
        return 0;
    for (fs::directory_iterator entry(*place, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code failed;
        if (fs::is_regular_file(entry->symlink_status(failed)) && fs::remove(entry->path(), failed))
            ++count;
    }
    return count;
}

// The drive is named by its letter or by its number, from 1; 0 means all.
Reply FileCommands::DeleteKind(const Call& call, char folder) const
{
    const std::uint8_t selector = call.payload[0];
    std::string chosen;
    if (selector == 0)
        chosen = drives.Letters();
    else if (selector <= drives.Letters().size())
        chosen = drives.Letters().substr(selector - 1U, 1);
    else if (drives.Has(static_cast<char>(selector)))
        chosen = static_cast<char>(selector);
    else
        return Reply::WithCode(Code::kDeleteFailed);
    for (const char drive : chosen)
        DeleteFilesIn(drive, folder);
    return Reply::Done();
}

Reply FileCommands::List(const Call& call) const
{
    return Listing(TextAt(call.payload, 0), 0, kMostListed);
}

Reply FileCommands::ListPart(const Call& call) const
{
    return Listing(TextAt(call.payload, kListPartPath), Load16(call.payload, 2), Load16(call.payload, 0));
}

// A standard folder is there from the first day on, with nothing in it.
std::optional<std::vector<DirectoryEntry>> FileCommands::EntriesOf(std::string_view path) const
{
    const auto folder = drives.Resolve(WithoutWildcard(path));
    if (!folder)
        return std::nullopt;
    return drives.IsStandardFolder(*folder) && !std::filesystem::exists(*folder) ? std::vector<DirectoryEntry>{}
                                                                                 : ReadDirectory(*folder);
}

Reply FileCommands::Listing(std::string_view path, std::size_t start, std::size_t count) const
{
    const auto entries = EntriesOf(path);
    if (!entries)
        return Reply::WithCode(Code::kListFailed);
    const std::size_t from = std::min(start, entries->size());
    const std::size_t shown = std::min({count, kMostListed, entries->size() - from});
    Reply reply{0, std::vector<std::uint8_t>(4), PackEntries(std::span(*entries).subspan(from, shown))};
    Store16(reply.payload, 0, static_cast<std::uint16_t>(entries->size()));
    return reply;
}

Reply FileCommands::ListLong(const Call& call) const
{
    const auto entries = EntriesOf(TextAt(call.payload, 0));
    const auto listing = drives.Resolve(kLongListingPath);
    if (!entries || !listing)
        return Reply::WithCode(Code::kListFailed);
    return Reply::WithCode(ReplaceFile(*listing, PackLongListing(*entries)) ? Code::kOk : Code::kWriteFailed);
}

// Total and free in units of 1024 bytes, then the size of the unit.
Reply FileCommands::DriveInfo(const Call& call) const
{
    const auto drive = drives.Resolve(std::string(TextAt(call.payload, 0).substr(0, 1)) + ":");
    std::error_code error;
    const fs::space_info space = drive ? fs::space(*drive, error) : fs::space_info{};
    if (!drive || error)
        return Reply::WithCode(Code::kNoDriveInfo);
    std::array<std::uint8_t, 20> record{};
    Store32(record, 0, Units(space.capacity));
    Store32(record, 4, Units(space.available));
    Store32(record, 8, kDriveUnit);
    return Reply::WithPayload(record);
}

Reply FileCommands::Exists(const Call& call) const
{
    const auto entry = drives.Resolve(TextAt(call.payload, 0));
    std::error_code error;
    return Reply::WithCode(entry && fs::exists(*entry, error) ? Code::kOk : Code::kFileGone);
}

Reply FileCommands::ClearPlayFiles(const Call& call) const
{
    std::size_t count = 0;
    for (const char drive : drives.Letters()) {
        for (const char folder : kPlayFolders)
            count += DeleteFilesIn(drive, folder);
    }
    std::error_code error;
    if (const auto sequence = drives.Resolve(kSequencePath); sequence && fs::remove(*sequence, error))
        ++count;
    if (call.payload[0] != kTellCount)
        return Reply::Done();
    std::array<std::uint8_t, 4> record{};
    Store16(record, 0, static_cast<std::uint16_t>(std::min<std::size_t>(count, 0xFFFF)));
    return Reply::WithPayload(record);
}

} // namespace vxsim
