// The XML form of a play list: what its elements are called. Values are the text of elements; there are no attributes.
#pragma once

#include "thread/threadRecords.h"

#include <vxsign/playlist.h>

#include <cstddef>

namespace vxsign::playlist {

/// A number of a public record and the element that holds it, in decimal. Letters are numbers too.
struct NumberField
{
    const char* name;
    std::size_t offset;
    std::size_t size; // 1 or 2
};

inline constexpr NumberField kFileNumbers[] = {
    {"schCount", offsetof(VXPLAYLIST_FILE_INFO, schCount), 1},
    {"playTimes", offsetof(VXPLAYLIST_FILE_INFO, playTimes), 1},
    {"Drive", offsetof(VXPLAYLIST_FILE_INFO, Drive), 1},
    {"Type", offsetof(VXPLAYLIST_FILE_INFO, Type), 1},
};

inline constexpr NumberField kPictureNumbers[] = {
    {"PicStaySec", offsetof(VXPLAYLIST_FILE_INFO, PicStaySec), 2},
    {"PicInMode", offsetof(VXPLAYLIST_FILE_INFO, PicInMode), 1},
    {"PicOutMode", offsetof(VXPLAYLIST_FILE_INFO, PicOutMode), 1},
};

inline constexpr NumberField kScheduleNumbers[] = {
    {"bweek_rep", offsetof(SCH, bweek_rep), 1},
    {"b_year", offsetof(SCH, b_year), 2},
    {"b_month", offsetof(SCH, b_month), 1},
    {"b_day", offsetof(SCH, b_day), 1},
    {"b_hour", offsetof(SCH, b_hour), 1},
    {"b_minute", offsetof(SCH, b_minute), 1},
    {"b_date_valid", offsetof(SCH, b_date_valid), 1},
    {"b_time_valid", offsetof(SCH, b_time_valid), 1},
    {"e_year", offsetof(SCH, e_year), 2},
    {"e_month", offsetof(SCH, e_month), 1},
    {"e_day", offsetof(SCH, e_day), 1},
    {"e_hour", offsetof(SCH, e_hour), 1},
    {"e_minute", offsetof(SCH, e_minute), 1},
    {"e_date_valid", offsetof(SCH, e_date_valid), 1},
    {"e_time_valid", offsetof(SCH, e_time_valid), 1},
};

/// The file that a list is bound to.
inline std::string BoundFile(const vxPlaylistState& state)
{
    return state.playlistDir + '/' + state.playlistFile;
}

} // namespace vxsign::playlist
