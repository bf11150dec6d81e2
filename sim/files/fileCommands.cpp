#include "sim/files/fileCommands.h"

#include "sim/files/directory.h"
#include "sim/files/signText.h"
#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <limits>
#include <system_error>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

enum : std::uint8_t
{
    kFormat = 2,
    kCreateFolder = 3,
    kRename = 4,
    kMove = 5,
    kDelete = 6,
    kDeleteTexts = 7,
    kDeleteStrings = 8,
    kDeletePictures = 9,
    kDeleteArrays = 10,
    kList = 11,
    kListPart = 12,
    kDriveInfo = 13,
    kExists = 14,
    kClearPlayFiles = 15,
    kListLong = 16
};

constexpr std::string_view kPlayFolders = "TSPA";
constexpr const char* kSequencePath = "C:\\SEQUENT.SYS";
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

FileCommands::FileCommands(const Drives& signDrives, std::function<void()> makeFiles)
    : drives(signDrives), makeSystemFiles(std::move(makeFiles))
{
}

Reply FileCommands::Execute(const Frame& request) const
{
    const std::string_view path = TextAt(request.payload, 0);
    switch (request.minor) {
    case kFormat:
        return Format(request);
    case kCreateFolder:
        return CreateFolder(path);
    case kRename:
        return Rename(path);
    case kMove:
        return Move(path);
    case kDelete:
        return Delete(path);
    case kDeleteTexts:
        return DeleteKind(request, 'T');
    case kDeleteStrings:
        return DeleteKind(request, 'S');
    case kDeletePictures:
        return DeleteKind(request, 'P');
    case kDeleteArrays:
        return DeleteKind(request, 'A');
    case kList:
        return List(path, 0, kMostListed);
    case kListPart:
        return List(TextAt(request.payload, kListPartPath), Load16(request.payload, 2), Load16(request.payload, 0));
    case kDriveInfo:
        return DriveInfo(request);
    case kExists:
        return Exists(path);
    case kClearPlayFiles:
        return ClearPlayFiles(request);
    case kListLong:
        return ListLong(path);
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

// Drive C goes only with the word SYS behind it: the sign's own files are there.
Reply FileCommands::Format(const Frame& request) const
{
    const std::string_view text = TextAt(request.payload, 0);
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

Reply FileCommands::CreateFolder(std::string_view path) const
{
    const auto folder = drives.Resolve(path);
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
Reply FileCommands::Rename(std::string_view paths) const
{
    auto [from, to] = SplitPaths(paths);
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
Reply FileCommands::Move(std::string_view paths) const
{
    const auto [from, to] = SplitPaths(paths);
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

Reply FileCommands::Delete(std::string_view path) const
{
    const auto file = drives.Resolve(path);
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
Reply FileCommands::DeleteKind(const Frame& request, char folder) const
{
    if (request.payload.empty())
        return Reply::WithCode(Code::kBadLength);
    const std::uint8_t selector = request.payload[0];
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

Reply FileCommands::List(std::string_view path, std::size_t start, std::size_t count) const
{
    const auto folder = drives.Resolve(WithoutWildcard(path));
    const auto entries = folder ? ReadDirectory(*folder) : std::nullopt;
    if (!entries)
        return Reply::WithCode(Code::kListFailed);
    const std::size_t from = std::min(start, entries->size());
    const std::size_t shown = std::min({count, kMostListed, entries->size() - from});
    Reply reply{0, std::vector<std::uint8_t>(4), PackEntries(std::span(*entries).subspan(from, shown))};
    Store16(reply.payload, 0, static_cast<std::uint16_t>(entries->size()));
    return reply;
}

Reply FileCommands::ListLong(std::string_view path) const
{
    const auto folder = drives.Resolve(WithoutWildcard(path));
    const auto listing = drives.Resolve(kLongListingPath);
    const auto entries = folder && listing ? ReadDirectory(*folder) : std::nullopt;
    if (!entries)
        return Reply::WithCode(Code::kListFailed);
    return Reply::WithCode(ReplaceFile(*listing, PackLongListing(*entries)) ? Code::kOk : Code::kWriteFailed);
}

// Total and free in units of 1024 bytes, then the size of the unit.
Reply FileCommands::DriveInfo(const Frame& request) const
{
    const auto drive = drives.Resolve(std::string(TextAt(request.payload, 0).substr(0, 1)) + ":");
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

Reply FileCommands::Exists(std::string_view path) const
{
    const auto entry = drives.Resolve(path);
    std::error_code error;
    return Reply::WithCode(entry && fs::exists(*entry, error) ? Code::kOk : Code::kFileGone);
}

Reply FileCommands::ClearPlayFiles(const Frame& request) const
{
    if (request.payload.empty())
        return Reply::WithCode(Code::kBadLength);
    std::size_t count = 0;
    for (const char drive : drives.Letters()) {
        for (const char folder : kPlayFolders)
            count += DeleteFilesIn(drive, folder);
    }
    std::error_code error;
    if (const auto sequence = drives.Resolve(kSequencePath); sequence && fs::remove(*sequence, error))
        ++count;
    if (request.payload[0] != kTellCount)
        return Reply::Done();
    std::array<std::uint8_t, 4> record{};
    Store16(record, 0, static_cast<std::uint16_t>(std::min<std::size_t>(count, 0xFFFF)));
    return Reply::WithPayload(record);
}

} // namespace vxsim
