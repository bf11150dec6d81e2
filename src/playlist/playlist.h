// The tree of a play list: top-level items, their children, the files of these.
#pragma once

#include <vxsign/playlist.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vxsign::playlist {

enum ItemType : std::uint8_t
{
    kFile = 0,
    kGroup = 1, // also the default child of a group
    kSubGroup = 2,
};

/// Records come from callers, who made them with malloc or calloc.
using FilePointer = std::shared_ptr<VXPLAYLIST_FILE_INFO>;

/// A record of the library's own, cleared; null when memory runs out.
FilePointer MakeFile();

/// Takes over a caller's record. When this throws, the record is still the caller's.
FilePointer TakeFile(VXPLAYLIST_FILE_INFO* record);

} // namespace vxsign::playlist

/// What a node of either upper level holds. parentIndex is set when the node is made, and stays.
template <class Child>
struct vxPlaylistNode
{
    std::string groupName; // empty for the wrappers of a top-level file
    std::uint8_t playType = 0;
    std::uint8_t itemType = vxsign::playlist::kFile;
    std::uint8_t parentIndex = 0;
    std::uint8_t reserved = 0;
    std::vector<std::shared_ptr<Child>> children;
};

/// A child of a top-level item: default child, sub-group, or the wrapper of one file.
struct VXPLAYLIST_PC_STRUCT : vxPlaylistNode<VXPLAYLIST_FILE_INFO>
{
};

/// A top-level item: group, or the outer wrapper of one file.
struct VXPLAYLIST_PC_STRUCTNew : vxPlaylistNode<VXPLAYLIST_PC_STRUCT>
{
};

namespace vxsign::playlist {

using Child = VXPLAYLIST_PC_STRUCT;
using Item = VXPLAYLIST_PC_STRUCTNew;
using Items = std::vector<std::shared_ptr<Item>>;

} // namespace vxsign::playlist
