#include "sim/files/directory.h"

#include "sim/files/shortNames.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::uint8_t kFolderAttribute = 0x10;
constexpr std::uint8_t kFileAttribute = 0x20;
constexpr std::size_t kAttributeAt = 11;
constexpr std::size_t kTimeAt = 22;
constexpr std::size_t kDateAt = 24;
constexpr std::size_t kSizeAt = 28;

constexpr std::size_t kLongHeaderSize = 16;
constexpr std::size_t kLongNameSize = 260;
constexpr std::size_t kLongSizeAt = 260;
constexpr std::size_t kLongDateAt = 264;
constexpr std::size_t kLongTimeAt = 266;
constexpr std::size_t kLongAttributeAt = 268;

// A folder that holds more is told of in part, so that nobody waits long for who lists it.
constexpr std::size_t kMostEntries = 10000;

std::uint8_t AttributeOf(const DirectoryEntry& entry)
{
    return entry.isFolder ? kFolderAttribute : kFileAttribute;
}

void SetTime(std::time_t seconds, DirectoryEntry& entry)
{
    std::tm local = {};
    ::localtime_r(&seconds, &local);
    const int year = std::clamp(local.tm_year - 80, 0, 127); // FAT counts from 1980
    entry.date = static_cast<std::uint16_t>(year << 9 | (local.tm_mon + 1) << 5 | local.tm_mday);
    entry.time = static_cast<std::uint16_t>(local.tm_hour << 11 | local.tm_min << 5 | local.tm_sec / 2);
}

} // namespace

std::optional<std::vector<FolderEntry>> ReadFolder(const fs::path& folder)
{
    std::error_code error;
    fs::directory_iterator file(folder, error);
    if (error)
        return std::nullopt;
    std::vector<FolderEntry> entries;
    for (; file != fs::directory_iterator() && entries.size() < kMostEntries; file.increment(error)) {
        struct stat status = {};
        if (error)
            return std::nullopt;
        if (::lstat(file->path().c_str(), &status) != 0 || !(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)))
            continue;
        const bool isFolder = S_ISDIR(status.st_mode);
        entries.push_back({file->path().filename().string(), isFolder,
                           isFolder ? 0 : static_cast<std::uintmax_t>(status.st_size), status.st_mtime});
    }
    std::ranges::sort(entries, {},
                      [](const FolderEntry& e) { return std::pair(!e.isFolder, std::string_view(e.name)); });
    return entries;
}

std::optional<std::vector<DirectoryEntry>> ReadDirectory(const fs::path& folder)
{
    const auto there = ReadFolder(folder);
    if (!there)
        return std::nullopt;
    std::vector<DirectoryEntry> entries;
    entries.reserve(there->size());
    ShortNames names;
    for (const FolderEntry& known : *there) {
        DirectoryEntry& entry = entries.emplace_back();
        entry.name = known.name;
        entry.shortName = names.Next(known.name);
        entry.isFolder = known.isFolder;
        entry.size =
            static_cast<std::uint32_t>(std::min<std::uintmax_t>(known.size, std::numeric_limits<std::uint32_t>::max()));
        SetTime(known.time, entry);
    }
    return entries;
}

std::vector<std::uint8_t> PackEntries(std::span<const DirectoryEntry> entries)
{
    std::vector<std::uint8_t> records(entries.size() * kEntrySize);
    std::span<std::uint8_t> record = records;
    for (const DirectoryEntry& entry : entries) {
        std::ranges::copy(entry.shortName, record.begin());
        record[kAttributeAt] = AttributeOf(entry);
        Store16(record, kTimeAt, entry.time);
        Store16(record, kDateAt, entry.date);
        Store32(record, kSizeAt, entry.size);
        record = record.subspan(kEntrySize);
    }
    return records;
}

std::vector<std::uint8_t> PackLongListing(std::span<const DirectoryEntry> entries)
{
    std::vector<std::uint8_t> file(kLongHeaderSize + entries.size() * kLongEntrySize);
    file[0] = 'L';
    file[1] = 'D';
    Store16(file, 2, kLongHeaderSize);
    Store32(file, 4, static_cast<std::uint32_t>(entries.size()));
    Store32(file, 8, static_cast<std::uint32_t>(file.size()));
    std::span<std::uint8_t> record = std::span(file).subspan(kLongHeaderSize);
    for (const DirectoryEntry& entry : entries) {
        std::copy_n(entry.name.begin(), std::min(entry.name.size(), kLongNameSize - 1), record.begin());
        Store32(record, kLongSizeAt, entry.size);
        Store16(record, kLongDateAt, entry.date);
        Store16(record, kLongTimeAt, entry.time);
        record[kLongAttributeAt] = AttributeOf(entry);
        record = record.subspan(kLongEntrySize);
    }
    return file;
}

} // namespace vxsim
