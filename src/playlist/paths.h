// Places of a play list by path and by name.
#pragma once

#include "playlist/playlist.h"

#include <string_view>

namespace vxsign::playlist {

/// A path in parts. A level path has nothing behind its last slash; of a file path, `file` is the file's name.
struct PathParts
{
    bool hasGroup = false;
    bool hasSubGroup = false;
    std::string_view group;
    std::string_view subGroup;
    std::string_view file;
};

/// How the place of the slash behind a sub-group's name is kept.
enum class SecondSlash
{
    kInOneByte, // level paths
    kExact      // file paths
};

/// Cuts a path. Its first byte is never looked at. The place of the first slash behind it is kept in one byte, where 0
/// and 255 mean that there is none: the path then has no group, and all of it behind its first byte is the file.
/// The slash behind a sub-group's name is kept the same way, or counts as missing beyond 254.
PathParts CutPath(std::string_view path, SecondSlash second);

/// Whether a path may name a level: it ends in a slash or is one byte long. One byte that is no slash is a path to
/// nowhere rather than a bad one.
bool IsLevelPath(std::string_view path);

/// A place found. Positions are 1-based; 0 means none.
struct Level
{
    enum class Kind
    {
        kMissing,
        kRoot,
        kGroup,
        kSubGroup
    };
    Kind kind = Kind::kMissing;
    std::uint8_t group = 0;
    std::uint8_t child = 0; // of the group: the sub-group, or the default child
    Item* item = nullptr;
    Child* node = nullptr; // at the position `child`
};

/// The group or sub-group that the parts of a path name. A group without a child of its own name, the default child,
/// counts as missing.
Level FindLevel(const Items& items, const PathParts& parts);

/// The same for a level path, of which "/" is the root.
Level FindLevel(const Items& items, std::string_view path);

/// The 1-based position of the first node of that name among the top-level items (parent 0), or among the children of
/// item `parent`. The position is one byte wide: node 256 cannot be found, and node 257 is taken for the first.
std::uint8_t FindGroup(const Items& items, std::string_view name, std::uint8_t parent);

/// The 1-based position of a file, one byte wide too; 0 for none. There are three different searches:
/// - group 0: the top-level items by the first file of their first child, groups not excepted; the item's position;
/// - subGroup 0: the children of the group by the name of the node, not of a file; the child's position;
/// - otherwise all files of all children of the group, whatever subGroup says; the position within the child that
///   holds the file. Used in another child, it selects whatever stands there at that position.
std::uint8_t FindFile(const Items& items, std::string_view name, std::uint8_t group, std::uint8_t subGroup);

/// The record that a file path names, null if there is none.
VXPLAYLIST_FILE_INFO* FindRecord(const Items& items, std::string_view path);

/// The file by which an item or a child of type 0 is known; null if there is none.
VXPLAYLIST_FILE_INFO* FirstFile(const Child& child);
VXPLAYLIST_FILE_INFO* FirstFile(const Item& item);

/// The name in a record, which may fill its field.
std::string_view FileName(const VXPLAYLIST_FILE_INFO& file);

} // namespace vxsign::playlist
