// The rules of paths and searches, oddities included.
#include "playlist/paths.h"

#include "util/text.h"

#include <algorithm>
#include <optional>

namespace vxsign::playlist {
namespace {

constexpr std::size_t kNoSlash = 255;

// What becomes of a place in one byte. The place of no slash at all becomes 255 as well.
std::optional<std::size_t> InOneByte(std::size_t place)
{
    const std::size_t kept = place & 0xFF;
    if (kept == 0 || kept == kNoSlash)
        return {};
    return kept;
}

template <class Iterator>
std::uint8_t Position(Iterator first, Iterator found, Iterator last)
{
    return found == last ? std::uint8_t{0} : static_cast<std::uint8_t>(found - first + 1);
}

template <class Nodes, class Matches>
std::uint8_t FirstMatch(const Nodes& nodes, Matches matches)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) { return matches(*node); });
    return Position(nodes.begin(), found, nodes.end());
}

template <class Nodes>
std::uint8_t FindNode(const Nodes& nodes, std::string_view name)
{
    return FirstMatch(nodes, [=](const auto& node) { return node.groupName == name; });
}

// Compares without measuring the stored name: long lists are searched for each file that is added.
bool IsNamed(const VXPLAYLIST_FILE_INFO& file, std::string_view name)
{
    constexpr std::size_t kSize = sizeof file.fileName;
    return name.size() <= kSize && std::memcmp(file.fileName, name.data(), name.size()) == 0 &&
           (name.size() == kSize || file.fileName[name.size()] == '\0');
}

std::uint8_t FindTopLevelFile(const Items& items, std::string_view name)
{
    return FirstMatch(items, [=](const Item& item) {
        const VXPLAYLIST_FILE_INFO* const file = FirstFile(item);
        return file != nullptr && IsNamed(*file, name);
    });
}

std::uint8_t FindInAnyChild(const Item& item, std::string_view name)
{
    for (const auto& child : item.children) {
        const auto& files = child->children;
        const auto isNamed = [=](const FilePointer& file) { return IsNamed(*file, name); };
        const auto found = std::find_if(files.begin(), files.end(), isNamed);
        if (found != files.end())
            return Position(files.begin(), found, files.end());
    }
    return 0;
}

} // namespace

PathParts CutPath(std::string_view path, SecondSlash second)
{
    PathParts parts;
    const auto groupEnd = InOneByte(path.find('/', 1));
    if (!groupEnd) {
        parts.file = path.substr(std::min<std::size_t>(path.size(), 1));
        return parts;
    }
    parts.hasGroup = true;
    parts.group = path.substr(1, *groupEnd - 1);
    parts.file = path.substr(*groupEnd + 1);

    const std::size_t place = path.find('/', *groupEnd + 1);
    const bool outOfReach = second == SecondSlash::kExact && place >= kNoSlash;
    const auto subGroupEnd = outOfReach ? std::nullopt : InOneByte(place);
    if (!subGroupEnd)
        return parts;
    parts.hasSubGroup = true;
    // A place beyond 255 can come out in front of the group's slash: nothing stands between them then.
    parts.subGroup = path.substr(*groupEnd + 1, std::max(*subGroupEnd, *groupEnd + 1) - *groupEnd - 1);
    parts.file = path.substr(*subGroupEnd + 1);
    return parts;
}

bool IsLevelPath(std::string_view path)
{
    return path.size() == 1 || path.ends_with('/');
}

Level FindLevel(const Items& items, const PathParts& parts)
{
    if (!parts.hasGroup)
        return {};
    const std::uint8_t group = FindGroup(items, parts.group, 0);
    if (group == 0)
        return {};
    const std::uint8_t child = FindGroup(items, parts.hasSubGroup ? parts.subGroup : parts.group, group);
    if (child == 0)
        return {};
    Item* const item = items[group - 1U].get();
    return {parts.hasSubGroup ? Level::Kind::kSubGroup : Level::Kind::kGroup, group, child, item,
            item->children[child - 1U].get()};
}

Level FindLevel(const Items& items, std::string_view path)
{
    if (path == "/")
        return {Level::Kind::kRoot};
    return FindLevel(items, CutPath(path, SecondSlash::kInOneByte));
}

std::uint8_t FindGroup(const Items& items, std::string_view name, std::uint8_t parent)
{
    return parent == 0 ? FindNode(items, name) : FindNode(items[parent - 1U]->children, name);
}

std::uint8_t FindFile(const Items& items, std::string_view name, std::uint8_t group, std::uint8_t subGroup)
{
    if (group == 0)
        return FindTopLevelFile(items, name);
    const Item& item = *items[group - 1U];
    return subGroup == 0 ? FindNode(item.children, name) : FindInAnyChild(item, name);
}

VXPLAYLIST_FILE_INFO* FindRecord(const Items& items, std::string_view path)
{
    const PathParts parts = CutPath(path, SecondSlash::kExact);
    if (parts.file.empty())
        return nullptr;
    if (!parts.hasGroup) {
        const std::uint8_t position = FindFile(items, parts.file, 0, 0);
        return position == 0 ? nullptr : FirstFile(*items[position - 1U]);
    }
    const Level level = FindLevel(items, parts);
    if (level.kind == Level::Kind::kMissing)
        return nullptr;
    const std::uint8_t position = FindFile(items, parts.file, level.group, level.child);
    const auto& files = level.node->children;
    return position == 0 || position > files.size() ? nullptr : files[position - 1U].get();
}

VXPLAYLIST_FILE_INFO* FirstFile(const Child& child)
{
    return child.children.empty() ? nullptr : child.children.front().get();
}

VXPLAYLIST_FILE_INFO* FirstFile(const Item& item)
{
    return item.children.empty() ? nullptr : FirstFile(*item.children.front());
}

std::string_view FileName(const VXPLAYLIST_FILE_INFO& file)
{
    return FieldText(file.fileName, sizeof file.fileName);
}

} // namespace vxsign::playlist
