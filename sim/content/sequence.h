// The sequence file, SEQUENT.SYS: what the sign plays, in which order.
#pragma once

#include "sim/content/schedule.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

// A file of the list.
struct FileEntry
{
    std::string path = {};                // on the sign, such as "D:\\T\\QMSG.Nmg"; empty where the list names no file
    std::uint8_t playTimes = 1;           // in each of its turns; 0 is once too
    std::uint16_t pictureStaySeconds = 0; // the picture fields are 0 where the list has none
    std::uint8_t pictureEntryMode = 0;
    std::uint8_t pictureExitMode = 0;
    std::vector<Schedule> schedules = {}; // none: always

    bool operator==(const FileEntry&) const = default;
};

// An item of the list: a file, or a group of further items.
struct SequenceItem
{
    std::optional<FileEntry> file = {}; // empty for a group
    std::string groupName = {};
    std::uint8_t playType = 0;
    std::vector<SequenceItem> children = {};
};

struct Sequence
{
    std::uint16_t version = 0;
    std::vector<SequenceItem> items;
};

// Groups may stand in groups this deep; what lies deeper ends the list.
inline constexpr int kDeepestGroup = 8;

// Reads a sequence file: version 4, a flat list, or 6, a tree. nullopt for any other bytes. A record that isn't whole
// or has an unknown tag ends the list; what was read before it stands, whatever the counts say. A group's default
// child, which is a group in it that isn't marked as a sub-group, only holds files of the group, so these take its
// place.
std::optional<Sequence> ParseSequence(std::span<const std::uint8_t> bytes);

} // namespace vxsim
