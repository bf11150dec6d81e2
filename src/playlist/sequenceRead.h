// Sequence files into a list: the forms of the sign, and what the PC's own files share with them.
//
// A count in a file is a promise that the file may break: reading ends where the file ends, and a record counts as no
// shorter than its head. So a file of any contents makes no more nodes than it has places for their heads.
#pragma once

#include "playlist/playlist.h"
#include "playlist/recordFile.h"
#include "thread/threadRecords.h"

#include <functional>
#include <string>

namespace vxsign::playlist {

/// What loading gives when memory ran out.
constexpr std::uint32_t kOutOfMemory = 0xFFFFFFFF;

/// In what the tree forms of the sign and of the PC differ.
struct TreeRules
{
    std::uint32_t subGroupRest;   // bytes that a sub-group's record has besides the field of its name
    std::size_t mostSchedules;    // that are read of each file
    std::uint8_t everyDay;        // the days of a schedule that does not restrict them
    bool subGroupsKeepPlayType;   // else it becomes the mark of their level
    bool fixedFileRecords;        // 340 bytes with a path of 256, however long it is; bytes 2 and 3 count all behind it
    bool filesAlwaysHaveSchedule; // one that means "always", if there is no other
    std::function<void(VXPLAYLIST_FILE_INFO&, const std::string&)> takeSource; // gets the path behind the schedules
};

/// Appends what stands behind the header of a file of the tree form.
void ReadTreeForm(RecordFile& file, std::uint16_t count, const TreeRules& rules, Items& items);

/// Appends the records of the flat form that begin at a position. `picture` becomes stay time, entry and exit mode.
void ReadFlatForm(RecordFile& file, std::uint64_t position, std::uint16_t count, std::uint8_t picture, Items& items);

/// Replaces the list with the sign's sequence file at path. A file that is not there, or of another form, leaves it.
void LoadSequence(vxPlaylistState& list, const char* path);

} // namespace vxsign::playlist
