// Play lists of tests: made node by node, told as text.
#pragma once

#include "playlist/paths.h"
#include "playlist/playlist.h"
#include "support/bytes.h"
#include "support/tempFolder.h"
#include "thread/threadRecords.h"

#include <cstring>
#include <sstream>

namespace vxsign::test {

/// The thread's list, emptied and bound to a directory.
inline vxPlaylistState& FreshList(const std::string& directory = {})
{
    vxPlaylistState& list = *ThreadPlaylist();
    list = {};
    list.playlistDir = directory;
    return list;
}

inline VXPLAYLIST_FILE_INFO& AddFile(playlist::Child& child, std::string_view name)
{
    VXPLAYLIST_FILE_INFO& info = *child.children.emplace_back(playlist::MakeFile());
    name.copy(info.fileName, sizeof info.fileName);
    return info;
}

/// A group, a sub-group, or a wrapper of a file.
template <class Node>
Node& Add(std::vector<std::shared_ptr<Node>>& nodes, std::string_view name, std::uint8_t type,
          std::uint8_t playType = 0, std::uint8_t parentIndex = 0)
{
    Node& node = *nodes.emplace_back(std::make_shared<Node>());
    node.groupName = name;
    node.itemType = type;
    node.playType = playType;
    node.parentIndex = parentIndex;
    return node;
}

inline VXPLAYLIST_FILE_INFO& AddTopFile(vxPlaylistState& list, std::string_view name)
{
    return AddFile(Add(Add(list.items, "", playlist::kFile).children, "", playlist::kFile), name);
}

/// Nodes as "name:type/playType/parentIndex[...]", files as "D\T\name schedules x plays stay/in/out".
inline std::string Describe(const vxPlaylistState& list)
{
    std::ostringstream text;
    const auto node = [&](const auto& n) {
        text << n.groupName << ':' << +n.itemType << '/' << +n.playType << '/' << +n.parentIndex << '[';
    };
    for (const auto& item : list.items) {
        node(*item);
        for (const auto& child : item->children) {
            node(*child);
            for (const auto& f : child->children)
                text << f->Drive << '\\' << f->Type << '\\' << f->fileName << ' ' << +f->schCount << 'x'
                     << +f->playTimes << ' ' << f->PicStaySec << '/' << +f->PicInMode << '/' << +f->PicOutMode << ';';
            text << ']';
        }
        text << ']';
    }
    return text.str();
}

/// A literal for a function that takes char*: a copy that lives as long as the expression.
struct Mutable
{
    explicit Mutable(std::string_view value) : text(value) {}
    operator char*() { return text.data(); }
    std::string text;
};

/// The list of the thread by its paths.
class PathList
{
public:
    std::uint32_t AddGroup(std::string_view path, std::string_view name, std::uint16_t index = 999,
                           std::uint8_t type = 0)
    {
        return vxPLAddGroup(Mutable(path), index, Mutable(name), type);
    }
    std::uint32_t ModifyGroup(std::string_view path, std::string_view name, std::uint8_t type)
    {
        return vxPLModifyGroup(Mutable(path), Mutable(name), type);
    }

    /// Whether the list took the record.
    bool AddFile(std::string_view path, std::string_view name, std::uint16_t index = 999)
    {
        auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
        std::memcpy(info->fileName, name.data(), name.size());
        const std::size_t before = Count();
        vxPLAddFile(Mutable(path), index, info);
        const bool isTaken = Count() > before;
        if (!isTaken)
            std::free(info);
        return isTaken;
    }

    /// The name in the record of that path; "untouched" without one.
    std::string Get(std::string_view path)
    {
        VXPLAYLIST_FILE_INFO info{};
        std::strcpy(info.fileName, "untouched");
        vxPLGetFile(Mutable(path), &info);
        return std::string(playlist::FileName(info));
    }

    /// The entries of a level: kind as digit, then the name.
    std::vector<std::string> Names(std::string_view path)
    {
        std::uint16_t count = 1000;
        std::vector<VXPLAYLIST_ITEM> items(count);
        vxPLGetItems(Mutable(path), &count, items.data());
        std::vector<std::string> names;
        for (std::size_t i = 0; i < count; ++i)
            names.push_back(std::to_string(items[i].kind) + std::string(items[i].name, ::strnlen(items[i].name, 256)));
        return names;
    }

    /// parentIndex and playType of the nodes of a level.
    std::string Indices(std::string_view path)
    {
        return Join(path, [](const auto& node) { return node.parentIndex; });
    }
    std::string Types(std::string_view path)
    {
        return Join(path, [](const auto& node) { return node.playType; });
    }

    static playlist::Items& List() { return ThreadPlaylist()->items; }

private:
    static std::size_t Count()
    {
        std::size_t count = 0;
        for (const auto& item : List())
            for (const auto& child : item->children)
                count += child->children.size();
        return count;
    }

    template <class Field>
    std::string Join(std::string_view path, Field field)
    {
        std::string text;
        const auto add = [&](const auto& nodes) {
            for (const auto& node : nodes)
                text += (text.empty() ? "" : " ") + std::to_string(field(*node));
        };
        const playlist::Level level = playlist::FindLevel(List(), path);
        if (level.kind == playlist::Level::Kind::kRoot)
            add(List());
        else if (level.kind == playlist::Level::Kind::kGroup)
            add(level.item->children);
        return text;
    }
};

/// A list of the thread's own, empty at first, and a folder.
class ListTest : public testing::Test
{
protected:
    ListTest() { FreshList(folder.Path()); }

    const TempFolder folder;
    PathList list;
};

inline Bytes BytesOf(const SCH* schedules, std::size_t count)
{
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(schedules);
    return {begin, begin + count * sizeof(SCH)};
}

inline std::string WriteBytes(const TempFolder& folder, std::string_view name, const Bytes& bytes)
{
    return folder.Write(name, ToText(bytes));
}

inline Bytes ReadBytes(const TempFolder& folder, std::string_view name)
{
    return FromText(folder.Read(name));
}

} // namespace vxsign::test
