// What is in a folder of the sign.
#pragma once

#include "vxctl/cli/clockTime.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace vxctl {

inline constexpr std::size_t kShortEntrySize = 32;
inline constexpr std::size_t kLongEntrySize = 276;

struct DirectoryEntry
{
    std::string name;
    bool isFolder = false;
    std::uint32_t size = 0;           // bytes
    std::optional<ClockTime> changed; // nothing when the sign has no time for it
};

// An entry of a page: a FAT directory entry. Nothing for one that stands for no file or folder, such as a deleted one.
std::optional<DirectoryEntry> DecodeShortEntry(std::span<const std::uint8_t, kShortEntrySize> entry);

// Whether it ends the entries of a page.
bool IsEnd(std::span<const std::uint8_t, kShortEntrySize> entry);

// An entry of a long listing: the name (260 bytes, zero padded), size (32 bits), date and time (16 bits each) and the
// attribute byte. Nothing as above.
std::optional<DirectoryEntry> DecodeLongEntry(std::span<const std::uint8_t, kLongEntrySize> entry);

} // namespace vxctl
