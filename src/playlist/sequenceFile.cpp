// Lays the records of sequence files out and takes them apart.
#include "playlist/sequenceFile.h"

#include "util/littleEndian.h"
#include "util/text.h"

#include <algorithm>

namespace vxsign::sequence {
namespace {

constexpr std::uint8_t kEntryMark = 15; // stands in every flat record

} // namespace

Header MakeHeader(std::uint8_t form, std::uint16_t count, std::uint16_t size)
{
    Header header{'S', 'Q', form, 0};
    Store16(header.data() + 4, count);
    Store16(header.data() + 6, size);
    return header;
}

Entry MakeEntry(char drive, std::uint8_t folder, std::string_view shortName, std::uint8_t weekMask,
                const std::array<std::uint8_t, 16>& beginAndEnd)
{
    Entry entry{static_cast<std::uint8_t>(drive), folder, kEntryMark, weekMask};
    std::copy(beginAndEnd.begin(), beginAndEnd.end(), entry.begin() + 4);
    CopyToField(entry.data() + 24, kShortNameSize, shortName);
    return entry;
}

Record MakeFileRecord(std::string_view path, std::uint16_t scheduleCount, std::uint8_t playTimes, std::uint8_t mark,
                      const Picture& picture, std::size_t pathSize)
{
    Record record(kHeadSize + pathSize + kPictureSize);
    record[0] = 'F';
    record[1] = 'S';
    Store16(record.data() + 2, static_cast<std::uint16_t>(kScheduleSize * scheduleCount));
    Store16(record.data() + 4, scheduleCount);
    record[6] = playTimes;
    record[7] = mark;
    Store32(record.data() + 8, static_cast<std::uint32_t>(record.size()));
    CopyToText(reinterpret_cast<char*>(record.data()) + kHeadSize, pathSize, path);
    std::copy(picture.begin(), picture.end(), record.end() - kPictureSize);
    return record;
}

std::size_t GroupRecordSize(std::string_view name)
{
    return kHeadSize + (std::min(name.size(), kGroupNameSize) + 3) / 4 * 4;
}

Record MakeGroupRecord(std::string_view name, const Group& group)
{
    Record record(GroupRecordSize(name));
    record[0] = 'G';
    record[1] = 'P';
    Store16(record.data() + 2, static_cast<std::uint16_t>(group.length));
    Store16(record.data() + 4, static_cast<std::uint16_t>(group.count));
    record[6] = group.playType;
    Store32(record.data() + 8, static_cast<std::uint32_t>(record.size()));
    record[12] = group.level;
    record[13] = group.parentIndex;
    CopyToField(record.data() + kHeadSize, record.size() - kHeadSize, name);
    return record;
}

Schedule StoreSchedule(const SCH& schedule)
{
    Schedule bytes{schedule.bweek_rep, schedule.reserved};
    Store16(bytes.data() + 2, schedule.b_year);
    bytes[4] = schedule.b_month;
    bytes[5] = schedule.b_day;
    bytes[6] = schedule.b_hour;
    bytes[7] = schedule.b_minute;
    bytes[8] = schedule.b_date_valid;
    bytes[9] = schedule.b_time_valid;
    Store16(bytes.data() + 10, schedule.e_year);
    bytes[12] = schedule.e_month;
    bytes[13] = schedule.e_day;
    bytes[14] = schedule.e_hour;
    bytes[15] = schedule.e_minute;
    bytes[16] = schedule.e_date_valid;
    bytes[17] = schedule.e_time_valid;
    return bytes;
}

SCH LoadSchedule(const Schedule& bytes)
{
    return {.bweek_rep = bytes[0],
            .reserved = bytes[1],
            .b_year = Load16(bytes.data() + 2),
            .b_month = bytes[4],
            .b_day = bytes[5],
            .b_hour = bytes[6],
            .b_minute = bytes[7],
            .b_date_valid = bytes[8],
            .b_time_valid = bytes[9],
            .e_year = Load16(bytes.data() + 10),
            .e_month = bytes[12],
            .e_day = bytes[13],
            .e_hour = bytes[14],
            .e_minute = bytes[15],
            .e_date_valid = bytes[16],
            .e_time_valid = bytes[17]};
}

} // namespace vxsign::sequence
