#include "sim/sign/directory.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <ctime>
#include <limits>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <tuple>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kStem = 8;
constexpr std::size_t kExtension = 3;
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

// A folder that holds more is told of in part.
constexpr std::size_t kMostEntries = 65535;

std::uint8_t AttributeOf(const DirectoryEntry& entry)
{
    return entry.isFolder ? kFolderAttribute : kFileAttribute;
}

// The letters, digits and marks that a short name takes, in upper case; others are left out.
std::string ShortPart(std::string_view text)
{
    std::string part;
    for (const char c : text) {
        if (c >= 'a' && c <= 'z')
            part += static_cast<char>(c - 'a' + 'A');
        else if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                 std::string_view("!#$%&'()-@^_`{}~").find(c) != std::string_view::npos)
            part += c;
    }
    return part;
}

std::string Padded(std::string stem, std::string extension)
{
    stem.resize(kStem, ' ');
    extension.resize(kExtension, ' ');
    return stem + extension;
}

// A name that fits is its own short name; of any other a number makes one: LONGNA~1.
std::string ShortNameOf(std::string_view name, std::set<std::string>& taken)
{
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0;
    const std::string_view wholeStem = hasExtension ? name.substr(0, dot) : name;
    const std::string_view wholeExtension = hasExtension ? name.substr(dot + 1) : std::string_view();
    std::string stem = ShortPart(wholeStem);
    const std::string extension = ShortPart(wholeExtension).substr(0, kExtension);
    const bool fits = !stem.empty() && stem.size() <= kStem && stem.size() == wholeStem.size() &&
                      extension.size() == wholeExtension.size();
    std::string shortName = Padded(stem, extension);
    for (unsigned number = 1; !(fits && number == 1 && taken.insert(shortName).second); ++number) {
        const std::string tail = "~" + std::to_string(number);
        shortName = Padded(stem.substr(0, kStem - tail.size()) + tail, extension);
        if (taken.insert(shortName).second)
            break;
    }
    return shortName;
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

std::optional<std::vector<DirectoryEntry>> ReadDirectory(const fs::path& folder)
{
    std::error_code error;
    fs::directory_iterator file(folder, error);
    if (error)
        return std::nullopt;
    std::vector<DirectoryEntry> entries;
    for (; file != fs::directory_iterator() && entries.size() < kMostEntries; file.increment(error)) {
        struct stat status = {};
        if (error)
            return std::nullopt;
        if (::lstat(file->path().c_str(), &status) != 0 || !(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)))
            continue;
        DirectoryEntry entry;
        entry.name = file->path().filename().string();
        entry.isFolder = S_ISDIR(status.st_mode);
        if (!entry.isFolder)
            entry.size = static_cast<std::uint32_t>(
                std::min<std::intmax_t>(status.st_size, std::numeric_limits<std::uint32_t>::max()));
        SetTime(status.st_mtime, entry);
        entries.push_back(std::move(entry));
    }
    std::ranges::sort(entries, {}, [](const DirectoryEntry& e) { return std::tuple(!e.isFolder, e.name); });
    std::set<std::string> taken;
    for (DirectoryEntry& entry : entries)
        entry.shortName = ShortNameOf(entry.name, taken);
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
