// The play list of a file, and its places.
#pragma once

#include "vxctl/cli/argument.h"

#include <vxsign/playlist.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

struct PlayListEntry
{
    bool isGroup = false;
    std::string name;

    bool operator==(const PlayListEntry&) const = default;
};

// A place in a list: "/" the root, "/G/" a group, "/G/S/" a sub-group, and with a name behind it a file.
struct PlayListPlace
{
    std::string group;
    std::string subGroup;
    std::string file;

    bool operator==(const PlayListPlace&) const = default;
};

// A path of the command line; the first slash may be missing. Throws UsageError for one with too many names, an empty
// one, or with more bytes than the library looks at.
PlayListPlace ParsePlace(std::string_view path);

inline constexpr ArgumentType kListPlace{"PATH", Checked<ParsePlace>};

// The play list of this thread, bound to a file. Its content files lie in the folder of that file.
//
// The library's file keeps the files of sub-groups, but of the files of a group itself only the first. So a group gets
// a sub-group of its own name in place of the default child, and its files live there.
class PlayList
{
public:
    // A list that is there. Throws UsageError if there is none or it is not readable.
    static PlayList Open(const std::filesystem::path& file);
    // The same; one that is not there begins empty, and its folder is made.
    static PlayList OpenOrMake(const std::filesystem::path& file);

    const std::filesystem::path& File() const { return file; }
    std::filesystem::path Folder() const { return file.parent_path(); }

    // Writes the file, and reads it again to see that it is whole. Throws SignFailure, with the file as it was before.
    void Save();

    // What stands at a level in the library's own words; nullopt if there is no such level.
    std::optional<std::vector<PlayListEntry>> Level(const std::string& levelPath) const;

    // The files below a level in the order of the list; of those that share a name, which are the same for a sign, some
    // are out of reach.
    std::vector<VXPLAYLIST_FILE_INFO> Files(const std::string& levelPath = "/") const;

    // The library's level that holds the files of a place. Throws UsageError if there is none.
    std::string FilesOf(const PlayListPlace& place) const;

    // Level and index of a file, a group or a sub-group. Throws UsageError if it is not there.
    struct Spot
    {
        std::string level;
        std::uint16_t index;
    };
    Spot Find(const PlayListPlace& place) const;

    // The record of a file; nullopt where the library has no way to it.
    std::optional<VXPLAYLIST_FILE_INFO> Get(const std::string& levelPath, const std::string& name) const;

    // All throw UsageError for what is there already, what is not there, and what is beyond the library's reach.
    void AddGroup(const PlayListPlace& place, std::uint8_t playType, std::uint16_t index);
    void AddFile(const PlayListPlace& place, const VXPLAYLIST_FILE_INFO& info, std::uint16_t index);
    void Modify(const PlayListPlace& place, const VXPLAYLIST_FILE_INFO& info);
    void Remove(const PlayListPlace& place);
    void Move(const PlayListPlace& place, int steps); // up if negative, as far as the level reaches

private:
    explicit PlayList(std::filesystem::path boundFile);

    std::filesystem::path file;
    mutable std::vector<VXPLAYLIST_ITEM> lines; // room for any level
};

} // namespace vxctl
