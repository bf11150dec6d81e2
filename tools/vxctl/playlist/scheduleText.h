// Schedules of a play list as people write them.
#pragma once

#include <vxsign/playlist.h>

#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// A schedule from its three parts, of which an empty one is no limit:
// - days: "mon-fri", "sat,sun", "fri-mon"
// - dates: "2026-12-01..2026-12-24", either end may be missing
// - hours: "07:00..19:30", to the end of that minute; either end may be missing, and 22:00..06:00 goes over midnight
// Throws UsageError for anything else.
SCH MakeSchedule(std::string_view days, std::string_view dates, std::string_view hours);

// What limits a schedule: the names of the days of the week, all of them for none; dates as "2026-12-01" and times as
// "07:00", where "" is no limit.
struct ScheduleLimits
{
    std::vector<std::string> days;
    std::string firstDate;
    std::string lastDate;
    std::string from;
    std::string until;
};

ScheduleLimits LimitsOf(const SCH& at);

// "Mon-Fri, 2026-12-01 to 2026-12-24, 07:00 to 19:30"; "always" for one without limits.
std::string DescribeSchedule(const SCH& schedule);

} // namespace vxctl
