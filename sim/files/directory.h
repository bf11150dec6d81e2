// What is in a folder, and the two records that tell of it.
#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kEntrySize = 32;
inline constexpr std::size_t kLongEntrySize = 276;

// A plain file or folder on the disk.
struct FolderEntry
{
    std::string name;
    bool isFolder = false;
    std::uintmax_t size = 0;
    std::time_t time = 0; // of the last change
};

// What is in a folder, folders first, each group by name, so that a listing in pages holds together. Nothing if it is
// no folder that can be read.
std::optional<std::vector<FolderEntry>> ReadFolder(const std::filesystem::path& folder);

// One file or folder as a listing tells of it.
struct DirectoryEntry
{
    std::string name;
    std::string shortName; // eight characters and three, blank padded, in upper case
    bool isFolder = false;
    std::uint32_t size = 0;
    std::uint16_t date = 0; // as FAT has them: 2 s, minutes, hours; day, month, years from 1980, from the lowest bit on
    std::uint16_t time = 0;
};

// As ReadFolder. Short names are unique within the folder.
std::optional<std::vector<DirectoryEntry>> ReadDirectory(const std::filesystem::path& folder);

// The 32-byte records of a listing, one after the other.
std::vector<std::uint8_t> PackEntries(std::span<const DirectoryEntry> entries);

// The whole file of a long listing: its header and 276-byte records.
std::vector<std::uint8_t> PackLongListing(std::span<const DirectoryEntry> entries);

} // namespace vxsim
