#include "sim/content/sequence.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vxsim {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kFlatRecordSize = 36;
constexpr std::size_t kFlatNameOffset = 24;
constexpr std::size_t kFlatNameSize = 12;
constexpr std::uint8_t kNoSchedule = 255;

constexpr std::size_t kHeadSize = 16;
constexpr std::size_t kSubGroupOffset = 12;
constexpr std::size_t kPictureFieldsSize = 4; // they close a file record
constexpr std::size_t kScheduleSize = 18;

// Paths and group names are cut to this.
constexpr std::size_t kMostTextSize = 1024;

std::uint16_t Load16(Bytes bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(bytes[offset] | bytes[offset + 1] << 8);
}

std::uint32_t Load32(Bytes bytes, std::size_t offset)
{
    return Load16(bytes, offset) | static_cast<std::uint32_t>(Load16(bytes, offset + 2)) << 16;
}

// Text up to its zero byte, or the whole field.
std::string LoadText(Bytes field)
{
    const Bytes kept = field.first(std::min(field.size(), kMostTextSize));
    return {kept.begin(), std::find(kept.begin(), kept.end(), 0)};
}

ScheduleTime LoadTime(Bytes bytes, std::size_t offset)
{
    const Bytes time = bytes.subspan(offset, 8);
    return {Load16(time, 0), time[2], time[3], time[4], time[5], time[6] != 0, time[7] != 0};
}

FileEntry LoadFlatRecord(Bytes record)
{
    FileEntry file;
    const std::string name = LoadText(record.subspan(kFlatNameOffset, kFlatNameSize));
    // A record made for a file that was missing has neither folder nor name.
    if (!name.empty())
        file.path = {static_cast<char>(record[0]), ':', '\\', static_cast<char>(record[1]), '\\'};
    file.path += name;
    if (record[3] != kNoSchedule)
        file.schedules.push_back({record[3], LoadTime(record, 4), LoadTime(record, 12)});
    return file;
}

// Reads the records of the tree one behind the other. Group heads count their children and have no end marks.
class TreeReader
{
public:
    explicit TreeReader(Bytes bytes) : rest(bytes) {}

    // False when the list ends early.
    bool ReadItems(std::size_t count, int depth, std::vector<SequenceItem>& items)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (rest.size() < kHeadSize)
                return false;
            const bool group = rest[0] == 'G' && rest[1] == 'P';
            const bool file = rest[0] == 'F' && rest[1] == 'S';
            if (group ? !ReadGroup(depth, items) : !file || !ReadFile(items))
                return false;
        }
        return true;
    }

private:
    bool ReadGroup(int depth, std::vector<SequenceItem>& items)
    {
        const std::size_t size = Load32(rest, 8);
        if (size < kHeadSize || size > rest.size() || depth >= kDeepestGroup)
            return false;
        const bool defaultChild = depth > 0 && rest[kSubGroupOffset] == 0;
        SequenceItem group;
        group.groupName = LoadText(rest.subspan(kHeadSize, size - kHeadSize));
        group.playType = rest[6];
        const std::size_t children = Load16(rest, 4);
        rest = rest.subspan(size);
        if (defaultChild)
            return ReadItems(children, depth + 1, items);
        const bool whole = ReadItems(children, depth + 1, group.children);
        items.push_back(std::move(group));
        return whole;
    }

    bool ReadFile(std::vector<SequenceItem>& items)
    {
        const std::size_t size = Load32(rest, 8);
        const std::size_t schedules = Load16(rest, 4);
        if (size < kHeadSize + kPictureFieldsSize || size > rest.size() ||
            schedules * kScheduleSize > rest.size() - size)
            return false;
        FileEntry file;
        file.path = LoadText(rest.subspan(kHeadSize, size - kHeadSize - kPictureFieldsSize));
        file.playTimes = rest[6];
        file.pictureStaySeconds = Load16(rest, size - 4);
        file.pictureEntryMode = rest[size - 2];
        file.pictureExitMode = rest[size - 1];
        for (std::size_t i = 0; i < schedules; ++i) {
            const Bytes schedule = rest.subspan(size + i * kScheduleSize, kScheduleSize);
            file.schedules.push_back({schedule[0], LoadTime(schedule, 2), LoadTime(schedule, 10)});
        }
        rest = rest.subspan(size + schedules * kScheduleSize);
        items.push_back({std::move(file), {}, 0, {}});
        return true;
    }

    Bytes rest;
};

} // namespace

std::optional<Sequence> ParseSequence(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kHeaderSize || bytes[0] != 'S' || bytes[1] != 'Q')
        return std::nullopt;
    Sequence sequence{Load16(bytes, 2), {}};
    const std::size_t count = Load16(bytes, 4);
    Bytes rest = bytes.subspan(kHeaderSize);

    if (sequence.version == 6) {
        TreeReader(rest).ReadItems(count, 0, sequence.items);
        return sequence;
    }
    if (sequence.version != 4)
        return std::nullopt;
    for (std::size_t i = 0; i < count && rest.size() >= kFlatRecordSize; ++i) {
        sequence.items.push_back({LoadFlatRecord(rest.first(kFlatRecordSize)), {}, 0, {}});
        rest = rest.subspan(kFlatRecordSize);
    }
    return sequence;
}

} // namespace vxsim
