// The play list of a thread, in short words.
#pragma once

#include "playlist/paths.h"
#include "thread/threadRecords.h"

#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace vxsign::test {

/// A literal for a function that takes char*: a copy that lives as long as the expression.
struct Bytes
{
    explicit Bytes(std::string_view value) : text(value) {}
    operator char*() { return text.data(); }
    std::string text;
};

class ListThread
{
public:
    std::uint32_t AddGroup(std::string_view path, std::string_view name, std::uint16_t index = 999,
                           std::uint8_t type = 0)
    {
        return vxPLAddGroup(Bytes(path), index, Bytes(name), type);
    }
    std::uint32_t ModifyGroup(std::string_view path, std::string_view name, std::uint8_t type)
    {
        return vxPLModifyGroup(Bytes(path), Bytes(name), type);
    }

    /// Whether the list took the record.
    bool AddFile(std::string_view path, std::string_view name, std::uint16_t index = 999)
    {
        auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
        std::memcpy(info->fileName, name.data(), name.size());
        const std::size_t before = Count();
        vxPLAddFile(Bytes(path), index, info);
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
        vxPLGetFile(Bytes(path), &info);
        return std::string(playlist::FileName(info));
    }

    /// The entries of a level: kind as digit, then the name.
    std::vector<std::string> Names(std::string_view path)
    {
        std::uint16_t count = 1000;
        std::vector<VXPLAYLIST_ITEM> items(count);
        vxPLGetItems(Bytes(path), &count, items.data());
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

    playlist::Items& List() { return ThreadPlaylist()->items; }

private:
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

    std::size_t Count()
    {
        std::size_t count = 0;
        for (const auto& item : List())
            for (const auto& child : item->children)
                count += child->children.size();
        return count;
    }
};

/// Runs a body on a thread, and so on a list, of its own.
inline void InThread(const std::function<void(ListThread&)>& body)
{
    std::thread([&] {
        ListThread list;
        body(list);
    }).join();
}

} // namespace vxsign::test
