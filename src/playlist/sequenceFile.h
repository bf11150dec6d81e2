// Records of the sign's sequence files, as bytes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vxsign::sequence {

constexpr std::uint8_t kFlatForm = 4; // records that follow each other
constexpr std::uint8_t kTreeForm = 6; // groups, and files with many schedules

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kEntrySize = 36;
constexpr std::size_t kPathSize = 320; // of a file's path in the tree form
constexpr std::size_t kFileHeadSize = 16;
constexpr std::size_t kFileRecordSize = kFileHeadSize + kPathSize + 4;
constexpr std::size_t kScheduleSize = 18;
constexpr std::size_t kShortNameSize = 12;
constexpr std::uint8_t kNoSchedule = 255;

using Header = std::array<std::uint8_t, kHeaderSize>;
using Entry = std::array<std::uint8_t, kEntrySize>;
using FileRecord = std::array<std::uint8_t, kFileRecordSize>;
using Schedule = std::array<std::uint8_t, kScheduleSize>;

/// The schedule that means "always".
constexpr Schedule kAlways{0x7F, 0x00, 0x08, 0x20, 0x01, 0x01, 0x00, 0x00, 0x01,
                           0x01, 0x08, 0x20, 0x01, 0x01, 0x23, 0x59, 0x01, 0x01};

/// `size` is read by no sign; each writer puts its own sum there.
Header MakeHeader(std::uint8_t form, std::uint16_t count, std::uint16_t size);

/// One file in the flat form. The schedule is its week mask, and begin and end as they stand in bytes 2 to 17 of a
/// Schedule.
Entry MakeEntry(char drive, std::uint8_t folder, std::string_view shortName, std::uint8_t weekMask = kNoSchedule,
                const std::array<std::uint8_t, 16>& beginAndEnd = {});

/// One file in the tree form, without the schedules that follow it. `picture` is stay time (two bytes), entry and exit
/// mode; `mark` is byte 7.
FileRecord MakeFileRecord(std::string_view path, std::uint16_t scheduleCount, std::uint8_t playTimes, std::uint8_t mark,
                          const std::array<std::uint8_t, 4>& picture);

} // namespace vxsign::sequence
