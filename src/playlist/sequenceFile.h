// Records of the sign's sequence files, as bytes.
#pragma once

#include <vxsign/playlist.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vxsign::sequence {

constexpr std::uint8_t kFlatForm = 4; // records that follow each other
constexpr std::uint8_t kTreeForm = 6; // groups, and files with many schedules

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kEntrySize = 36;
constexpr std::size_t kPathSize = 320; // of a file's path in the tree form
constexpr std::size_t kHeadSize = 16;  // opens every record of the tree form
constexpr std::size_t kPictureSize = 4;
constexpr std::size_t kFileRecordSize = kHeadSize + kPathSize + kPictureSize;
constexpr std::size_t kGroupNameSize = 1024;
constexpr std::size_t kScheduleSize = 18;
constexpr std::size_t kShortNameSize = 12;
constexpr std::uint8_t kNoSchedule = 255;

using Header = std::array<std::uint8_t, kHeaderSize>;
using Entry = std::array<std::uint8_t, kEntrySize>;
using Record = std::vector<std::uint8_t>;
using Schedule = std::array<std::uint8_t, kScheduleSize>;
using Picture = std::array<std::uint8_t, kPictureSize>; // stay time (two bytes), entry and exit mode

/// The schedule that means "always".
constexpr Schedule kAlways{0x7F, 0x00, 0x08, 0x20, 0x01, 0x01, 0x00, 0x00, 0x01,
                           0x01, 0x08, 0x20, 0x01, 0x01, 0x23, 0x59, 0x01, 0x01};

/// `size` is read by no sign; each writer puts its own sum there.
Header MakeHeader(std::uint8_t form, std::uint16_t count, std::uint16_t size);

/// One file in the flat form. The schedule is its week mask, and begin and end as they stand in bytes 2 to 17 of a
/// Schedule.
Entry MakeEntry(char drive, std::uint8_t folder, std::string_view shortName, std::uint8_t weekMask = kNoSchedule,
                const std::array<std::uint8_t, 16>& beginAndEnd = {});

/// One file in the tree form, without the schedules that follow it. `mark` is byte 7. The path is cut to its field, and
/// keeps a terminator.
Record MakeFileRecord(std::string_view path, std::uint16_t scheduleCount, std::uint8_t playTimes, std::uint8_t mark,
                      const Picture& picture, std::size_t pathSize = kPathSize);

/// What a group's record says besides its name.
struct Group
{
    std::size_t length; // of all that its children take
    std::size_t count;  // of its children
    std::uint8_t playType;
    std::uint8_t level; // 1 for a sub-group
    std::uint8_t parentIndex;
};

/// A group in the tree form, without its children. The name fills up to a multiple of four bytes, and has no terminator
/// when it ends at one.
Record MakeGroupRecord(std::string_view name, const Group& group);

/// The size of the same record.
std::size_t GroupRecordSize(std::string_view name);

/// A schedule as the files hold it.
Schedule StoreSchedule(const SCH& schedule);
SCH LoadSchedule(const Schedule& bytes);

} // namespace vxsign::sequence
