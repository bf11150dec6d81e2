// The sequence file, SEQUENT.SYS: what the sign plays, in which order.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

// A point in time as schedules hold it. All numbers are BCD: year 0x2008 is 2008.
struct ScheduleTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    bool dateValid = false;
    bool timeValid = false;

    bool operator==(const ScheduleTime&) const = default;
};

struct Schedule
{
    std::uint8_t weekMask = 0; // 127 is all seven days, 255 no restriction
    ScheduleTime begin;
    ScheduleTime end;

    bool operator==(const Schedule&) const = default;
};

// A file of the list.
struct FileEntry
{
    std::string path; // on the sign, such as "D:\\T\\QMSG.Nmg"; empty where the list names no file
    std::uint8_t playTimes = 1;
    std::uint16_t pictureStaySeconds = 0; // the picture fields are 0 where the list has none
    std::uint8_t pictureEntryMode = 0;
    std::uint8_t pictureExitMode = 0;
    std::vector<Schedule> schedules; // none: always

    bool operator==(const FileEntry&) const = default;
};

// An item of the list: a file, or a group of further items.
struct SequenceItem
{
    std::optional<FileEntry> file; // empty for a group
    std::string groupName;
    std::uint8_t playType = 0;
    std::vector<SequenceItem> children;
};

struct Sequence
{
    std::uint16_t version = 0;
    std::vector<SequenceItem> items;
};

// Groups may stand in groups this deep; what lies deeper ends the list.
inline constexpr int kDeepestGroup = 8;

// Reads a sequence file: version 4, a flat list, or 6, a tree. nullopt for any other bytes. A record that isn't whole
// or has an unknown tag ends the list; what was read before it stands, whatever the counts say.
std::optional<Sequence> ParseSequence(std::span<const std::uint8_t> bytes);

// The files of the whole tree in the order of the list.
std::vector<FileEntry> FilesInOrder(const Sequence& sequence);

} // namespace vxsim
