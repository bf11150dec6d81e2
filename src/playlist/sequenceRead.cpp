// Reads sequence files of both forms.
#include "playlist/sequenceRead.h"

#include "playlist/sequenceFile.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/result.h>

#include <algorithm>
#include <limits>
#include <new>

namespace vxsign::playlist {
namespace {

using sequence::kHeadSize;
using sequence::kScheduleSize;

constexpr std::size_t kLongestText = 1023; // of a path or a group's name that is read
constexpr std::size_t kFixedPathSize = 256;
constexpr std::size_t kFixedPicture = 336;

const TreeRules kSignRules{.subGroupRest = kHeadSize,
                           .mostSchedules = 255,
                           .everyDay = 255,
                           .subGroupsKeepPlayType = false,
                           .fixedFileRecords = false,
                           .filesAlwaysHaveSchedule = false,
                           .takeSource = {}};

std::uint8_t Cut(std::size_t index)
{
    return static_cast<std::uint8_t>(index);
}

FilePointer NewFile()
{
    FilePointer file = MakeFile();
    if (!file)
        throw std::bad_alloc();
    return file;
}

template <class Node>
Node& Append(std::vector<std::shared_ptr<Node>>& nodes)
{
    return *nodes.emplace_back(std::make_shared<Node>());
}

// The head of a record of the tree form.
struct Head
{
    std::uint64_t start;
    std::array<std::uint8_t, kHeadSize> bytes;

    bool IsGroup(std::uint8_t level) const { return bytes[0] == 'G' && bytes[1] == 'P' && bytes[12] == level; }
    bool IsFile() const { return bytes[0] == 'F' && bytes[1] == 'S'; }
    std::uint16_t Behind() const { return Load16(bytes.data() + 2); }
    std::uint16_t Count() const { return Load16(bytes.data() + 4); }
    std::uint32_t Length() const { return Load32(bytes.data() + 8); }
    // Where a record of this head ends that has `length` bytes in all.
    std::uint64_t End(std::uint64_t length) const { return start + std::max<std::uint64_t>(length, kHeadSize); }
};

class TreeReader
{
public:
    TreeReader(RecordFile& source, const TreeRules& r) : file(source), rules(r) {}

    void Read(std::uint16_t count, Items& items);

private:
    // Behind a head that is refused the next one is looked for at once, in step or not.
    Head NextHead();
    std::string ReadName(const Head& head, std::uint32_t rest);
    void ReadGroup(Item& item, const Head& head, std::uint8_t index);
    void ReadSubGroup(Child& child, const Head& head, std::uint8_t parentIndex);
    FilePointer ReadFile(const Head& head);
    void ReadSchedules(VXPLAYLIST_FILE_INFO& info, std::uint64_t at, std::uint16_t count);
    std::string ReadSource(std::uint64_t at);

    RecordFile& file;
    const TreeRules& rules;
    std::uint64_t position = sequence::kHeaderSize;
};

void TreeReader::Read(std::uint16_t count, Items& items)
{
    for (std::uint16_t i = 0; i < count && file.Holds(position); ++i) {
        const std::uint8_t index = Cut(items.size());
        Item& item = Append(items);
        const Head head = NextHead();
        if (head.IsGroup(0))
            ReadGroup(item, head, index);
        else if (head.IsFile()) {
            item.parentIndex = index;
            Child& child = Append(item.children);
            child.parentIndex = Cut(index + 1u);
            child.children.push_back(ReadFile(head));
        }
    }
}

Head TreeReader::NextHead()
{
    Head head{position, {}};
    file.Read(position, head.bytes.data(), head.bytes.size());
    position += kHeadSize;
    return head;
}

std::string TreeReader::ReadName(const Head& head, std::uint32_t rest)
{
    const std::uint32_t field = head.Length() > rest ? head.Length() - rest : 0;
    char name[kLongestText];
    const std::size_t size = std::min<std::size_t>(field, sizeof name);
    file.Read(head.start + kHeadSize, name, size);
    return std::string(FieldText(name, size));
}

void TreeReader::ReadGroup(Item& item, const Head& head, std::uint8_t index)
{
    item.groupName = ReadName(head, kHeadSize);
    item.playType = head.bytes[6];
    item.itemType = kGroup;
    item.parentIndex = index;
    position = head.End(head.Length());
    for (std::uint16_t i = 0; i < head.Count() && file.Holds(position); ++i) {
        Child& child = Append(item.children);
        const Head next = NextHead();
        if (next.IsGroup(1))
            ReadSubGroup(child, next, index);
        else if (next.IsFile()) {
            child.groupName = item.groupName;
            child.playType = next.bytes[6];
            child.parentIndex = index;
            child.children.push_back(ReadFile(next));
        }
    }
}

void TreeReader::ReadSubGroup(Child& child, const Head& head, std::uint8_t parentIndex)
{
    child.groupName = ReadName(head, rules.subGroupRest);
    child.playType = rules.subGroupsKeepPlayType ? head.bytes[6] : head.bytes[12];
    child.itemType = kSubGroup;
    child.parentIndex = parentIndex;
    position = head.End(head.Length());
    for (std::uint16_t i = 0; i < head.Count() && file.Holds(position); ++i) {
        const Head next = NextHead();
        if (next.IsFile())
            child.children.push_back(ReadFile(next));
        else
            position = next.End(next.Length() + std::uint64_t{kScheduleSize} * next.Count());
    }
}

// The path's field of a file record of the sign, by the record's length.
std::size_t PathSize(std::uint32_t length)
{
    constexpr std::uint32_t kOthers = kHeadSize + sequence::kPictureSize;
    if (length < kHeadSize || length > kLongestText + kHeadSize)
        return kLongestText;
    return length > kOthers ? length - kOthers : 0;
}

FilePointer TreeReader::ReadFile(const Head& head)
{
    const std::uint64_t body = head.start + kHeadSize;
    const std::uint32_t length = head.Length();
    const std::uint64_t behind = head.start + length; // where the schedules begin
    FilePointer info = NewFile();

    char path[kLongestText + 1] = {};
    const std::size_t pathSize = rules.fixedFileRecords ? kFixedPathSize : PathSize(length);
    file.Read(body, path, pathSize);
    info->playTimes = head.bytes[6];
    info->Drive = path[0];
    info->Type = path[3];
    CopyToText(info->fileName, sizeof info->fileName, FieldText(path + 5, sizeof path - 5));

    sequence::Picture picture{};
    file.Read(rules.fixedFileRecords ? head.start + kFixedPicture : body + pathSize, picture.data(), picture.size());
    info->PicStaySec = Load16(picture.data());
    info->PicInMode = picture[2];
    info->PicOutMode = picture[3];

    ReadSchedules(*info, behind, head.Count());
    const std::uint64_t schedules = std::uint64_t{kScheduleSize} * head.Count();
    if (rules.takeSource)
        rules.takeSource(*info, ReadSource(behind + schedules));
    position = head.End(length + (rules.fixedFileRecords ? head.Behind() : schedules));
    return info;
}

// Schedules that restrict nothing are not counted, but keep their places.
void TreeReader::ReadSchedules(VXPLAYLIST_FILE_INFO& info, std::uint64_t at, std::uint16_t count)
{
    for (std::size_t i = 0; i < std::min<std::size_t>(count, rules.mostSchedules) && file.Holds(at); ++i) {
        sequence::Schedule bytes{};
        file.Read(at, bytes.data(), bytes.size());
        at += bytes.size();
        const SCH& schedule = info.SCH[i] = sequence::LoadSchedule(bytes);
        if ((schedule.bweek_rep & rules.everyDay) != rules.everyDay || schedule.b_date_valid != 1 ||
            schedule.b_time_valid != 1)
            ++info.schCount;
    }
    if (info.schCount == 0 && rules.filesAlwaysHaveSchedule) {
        info.SCH[0] = sequence::LoadSchedule(sequence::kAlways);
        info.schCount = 1;
    }
}

// A length byte, and as many bytes of text.
std::string TreeReader::ReadSource(std::uint64_t at)
{
    std::uint8_t length = 0;
    file.Read(at, &length, sizeof length);
    char source[std::numeric_limits<std::uint8_t>::max()];
    file.Read(at + 1, source, length);
    return std::string(FieldText(source, length));
}

} // namespace

void ReadTreeForm(RecordFile& file, std::uint16_t count, const TreeRules& rules, Items& items)
{
    TreeReader(file, rules).Read(count, items);
}

void ReadFlatForm(RecordFile& file, std::uint64_t position, std::uint16_t count, std::uint8_t picture, Items& items)
{
    for (std::uint16_t i = 0; i < count && file.Holds(position); ++i) {
        sequence::Entry entry;
        file.Read(position, entry.data(), entry.size());
        position += entry.size();

        FilePointer info = NewFile();
        CopyToText(info->fileName, sizeof info->fileName,
                   FieldText(reinterpret_cast<const char*>(entry.data()) + 24, sequence::kShortNameSize));
        info->schCount = 1;
        info->playTimes = 1;
        info->Drive = static_cast<char>(entry[0]);
        info->Type = static_cast<char>(entry[1]);
        sequence::Schedule schedule{entry[3]};
        std::copy_n(entry.begin() + 4, schedule.size() - 2, schedule.begin() + 2);
        info->SCH[0] = sequence::LoadSchedule(schedule);
        info->PicStaySec = info->PicInMode = info->PicOutMode = picture;

        // One less than the count before, so that it is 255 for the first item.
        const std::uint8_t parentIndex = Cut(items.size() - 1);
        Item& item = Append(items);
        item.parentIndex = parentIndex;
        Child& child = Append(item.children);
        child.parentIndex = parentIndex;
        child.children.push_back(std::move(info));
    }
}

void LoadSequence(vxPlaylistState& list, const char* path)
{
    File opened = OpenFile(path, "rb");
    if (!opened)
        return;
    RecordFile file(std::move(opened));
    sequence::Header header{};
    file.Read(0, header.data(), header.size());
    const std::uint16_t count = Load16(header.data() + 4);
    const std::uint8_t form = header[2];
    if (form != sequence::kFlatForm && form != sequence::kTreeForm)
        return;
    list.items.clear();
    if (form == sequence::kFlatForm)
        ReadFlatForm(file, header.size(), count, 0, list.items);
    else
        ReadTreeForm(file, count, kSignRules, list.items);
}

} // namespace vxsign::playlist

std::uint32_t vxLoadSYSFromLED(const char* path)
{
    vxPlaylistState* const list = vxsign::ThreadPlaylist();
    if (path == nullptr || list == nullptr)
        return VX_NO_RECORD;
    return vxsign::LocalCall<std::uint32_t>(vxsign::playlist::kOutOfMemory, [&]() -> std::uint32_t {
        vxsign::playlist::LoadSequence(*list, path);
        return VX_OK;
    });
}
