// Edits of the thread's play list.
#include "playlist/levelCall.h"

#include <algorithm>

using namespace vxsign;
using namespace vxsign::playlist;

namespace {

// Where a new entry goes: at the end if index lies behind it. The place is one byte wide.
template <class Entry>
auto PlaceFor(std::vector<Entry>& entries, std::uint16_t index)
{
    const auto place = static_cast<std::uint8_t>(std::min<std::size_t>(index, entries.size()));
    return entries.begin() + place;
}

template <class Entry>
void Insert(std::vector<Entry>& entries, std::uint16_t index, Entry entry)
{
    entries.insert(PlaceFor(entries, index), std::move(entry));
}

// Makes room for one more, so that the next insertion cannot fail.
template <class Entry>
void Grow(std::vector<Entry>& entries)
{
    if (entries.size() == entries.capacity())
        entries.reserve(2 * entries.size() + 1);
}

// A node that stands at the end of a list of `count` items, itself included. Only a default child is named as its item.
std::shared_ptr<Item> MakeItem(std::string_view name, std::uint8_t playType, ItemType type, std::size_t count)
{
    auto item = std::make_shared<Item>();
    item->groupName = name;
    item->playType = playType;
    item->itemType = type;
    item->parentIndex = static_cast<std::uint8_t>(count - 1);
    auto child = std::make_shared<Child>();
    child->groupName = name;
    child->itemType = type;
    child->parentIndex = static_cast<std::uint8_t>(count); // one more than the item's own
    item->children.push_back(std::move(child));
    return item;
}

template <class Node>
void Rename(Node& node, const std::string& name, std::uint8_t playType)
{
    node.groupName = name;
    node.playType = playType;
}

// The groups that a new sub-group of the group is compared with are those of the item in front; in front of the first
// item there is the top level.
bool IsSubGroupTaken(const Items& items, std::string_view name, std::uint8_t group)
{
    return FindGroup(items, name, static_cast<std::uint8_t>(group - 1)) != 0;
}

std::uint32_t AddSubGroup(Items& items, std::string_view path, std::uint16_t index, const char* name,
                          std::uint8_t playType)
{
    const PathParts parts = CutPath(path, SecondSlash::kInOneByte);
    const std::uint8_t group = parts.hasGroup ? FindGroup(items, parts.group, 0) : std::uint8_t{0};
    if (group == 0 || IsSubGroupTaken(items, name, group))
        return VX_FAILED_OPERATION;
    Item& item = *items[group - 1U];
    auto child = std::make_shared<Child>();
    Rename(*child, name, playType);
    child->itemType = kSubGroup;
    child->parentIndex = item.parentIndex;
    Insert(item.children, index, std::move(child));
    return VX_OK;
}

// Whether a new file would meet its own name, in the search that belongs to the level. In a group that is the search
// among the names of sub-groups: the files of the default child are not looked at.
bool IsFileTaken(const Items& items, const Level& level, std::string_view name)
{
    return FindFile(items, name, level.group, level.kind == Level::Kind::kSubGroup ? level.child : std::uint8_t{0}) !=
           0;
}

// Runs use with the stored record of a file path; not at all if there is none.
template <class Use>
std::uint32_t WithRecord(const char* path, const VXPLAYLIST_FILE_INFO* info, Use use)
{
    if (path == nullptr || info == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        vxPlaylistState* const state = ThreadPlaylist();
        if (state == nullptr)
            return VX_CALL;
        if (VXPLAYLIST_FILE_INFO* const stored = FindRecord(state->items, path))
            use(*stored);
        return VX_OK;
    });
}

} // namespace

std::uint32_t vxPLAddGroup(char* path, std::uint16_t index, char* name, std::uint8_t playType)
{
    if (name == nullptr)
        return VX_ARGUMENTS;
    return LevelCall(path, [=](Items& items) -> std::uint32_t {
        const std::string_view place = path;
        if (place.size() > 1)
            return AddSubGroup(items, place, index, name, playType);
        if (place != "/")
            return VX_OK;
        if (FindGroup(items, name, 0) != 0)
            return VX_FAILED_OPERATION;
        Insert(items, index, MakeItem(name, playType, kGroup, items.size() + 1));
        return VX_OK;
    });
}

std::uint32_t vxPLModifyGroup(char* path, char* name, std::uint8_t playType)
{
    if (name == nullptr)
        return VX_ARGUMENTS;
    return LevelCall(path, [=](Items& items) {
        const Level level = FindLevel(items, path);
        if (level.kind == Level::Kind::kGroup)
            Rename(*level.item, name, playType);
        if (level.node != nullptr)
            Rename(*level.node, name, playType);
        return VX_OK;
    });
}

std::uint32_t vxPLAddFile(char* path, std::uint16_t index, VXPLAYLIST_FILE_INFO* info)
{
    if (info == nullptr)
        return VX_ARGUMENTS;
    // All that can fail comes before the record is taken: until then it is the caller's to free.
    return LevelCall(path, [=](Items& items) {
        const Level level = FindLevel(items, path);
        if (level.kind == Level::Kind::kMissing || IsFileTaken(items, level, FileName(*info)))
            return VX_OK;
        if (level.kind == Level::Kind::kRoot) {
            auto item = MakeItem("", 0, kFile, items.size() + 1);
            auto& files = item->children.front()->children;
            Grow(items);
            Grow(files);
            files.push_back(TakeFile(info));
            items.push_back(std::move(item));
            return VX_OK;
        }
        Grow(level.node->children);
        Insert(level.node->children, index, TakeFile(info));
        return VX_OK;
    });
}

std::uint32_t vxPLModifyFile(char* path, VXPLAYLIST_FILE_INFO* info)
{
    return WithRecord(path, info, [=](VXPLAYLIST_FILE_INFO& stored) { stored = *info; });
}

std::uint32_t vxPLGetFile(char* path, VXPLAYLIST_FILE_INFO* info)
{
    return WithRecord(path, info, [=](const VXPLAYLIST_FILE_INFO& stored) { *info = stored; });
}

std::uint32_t vxPLMoveItem(char* path, std::uint16_t index, std::uint16_t direction)
{
    return LevelCall(path, [=](Items& items) {
        VisitEntries(items, FindLevel(items, path), [=](auto& entries) {
            const std::size_t lower = direction == VX_MOVE_DOWN ? index + 1U : index;
            if (lower > 0 && lower < entries.size())
                std::swap(entries[lower - 1], entries[lower]);
        });
        return VX_OK;
    });
}

std::uint32_t vxPLDelItem(char* path, std::uint16_t first, std::uint16_t last)
{
    return LevelCall(path, [=](Items& items) {
        VisitEntries(items, FindLevel(items, path), [=](auto& entries) {
            if (entries.empty())
                return;
            const std::size_t from = std::min<std::size_t>(first, entries.size() - 1);
            const std::size_t to = std::min<std::size_t>(last, entries.size() - 1);
            if (from <= to)
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(from),
                              entries.begin() + static_cast<std::ptrdiff_t>(to) + 1);
        });
        return VX_OK;
    });
}
