// Play lists of tests: made node by node, told as text.
#pragma once

#include "playlist/playlist.h"
#include "support/bytes.h"
#include "support/tempFolder.h"
#include "thread/threadRecords.h"

#include <sstream>
#include <string>

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

inline Bytes BytesOf(const SCH* schedules, std::size_t count)
{
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(schedules);
    return {begin, begin + count * sizeof(SCH)};
}

/// A text in a field of `size` bytes.
inline Bytes Padded(std::string_view text, std::size_t size)
{
    Bytes bytes = FromText(text);
    bytes.resize(size);
    return bytes;
}

inline std::string WriteBytes(const TempFolder& folder, std::string_view name, const Bytes& bytes)
{
    return folder.Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

inline Bytes ReadBytes(const TempFolder& folder, std::string_view name)
{
    return FromText(folder.Read(name));
}

/// A damaged copy after the other: each byte flipped, each length cut. Padding counts at its beginning alone.
template <class Use>
void EachDamage(const Bytes& good, Use&& use)
{
    constexpr std::size_t kPadding = 16;
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < good.size(); ++i) {
        zeros = good[i] == 0 ? zeros + 1 : 0;
        if (zeros > kPadding)
            continue;
        Bytes flipped = good;
        flipped[i] ^= 0xFF;
        use(flipped);
        use(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(i)));
    }
}

} // namespace vxsign::test
