#include "playlist/sequenceFile.h"

#include "util/littleEndian.h"
#include "util/text.h"

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

FileRecord MakeFileRecord(std::string_view path, std::uint16_t scheduleCount, std::uint8_t playTimes, std::uint8_t mark,
                          const std::array<std::uint8_t, 4>& picture)
{
    FileRecord record{'F', 'S'};
    Store16(record.data() + 2, static_cast<std::uint16_t>(kScheduleSize * scheduleCount));
    Store16(record.data() + 4, scheduleCount);
    record[6] = playTimes;
    record[7] = mark;
    Store32(record.data() + 8, kFileRecordSize);
    CopyToText(reinterpret_cast<char*>(record.data()) + kFileHeadSize, kPathSize, path);
    std::copy(picture.begin(), picture.end(), record.end() - 4);
    return record;
}

} // namespace vxsign::sequence
