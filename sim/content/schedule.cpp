#include "sim/content/schedule.h"

#include <algorithm>

namespace vxsim {

namespace {

constexpr unsigned kAllDays = 127;

// The schedule that hosts give a file which always plays spans this one date, so it stands for every date.
constexpr std::uint32_t kEveryDate = 0x20080101;

// BCD numbers compare like the numbers that they stand for.
std::uint32_t DateOf(const ScheduleTime& time)
{
    return static_cast<std::uint32_t>(time.year) << 16 | static_cast<std::uint32_t>(time.month) << 8 | time.day;
}

unsigned TimeOf(const ScheduleTime& time)
{
    return static_cast<unsigned>(time.hour) << 8 | time.minute;
}

bool DayFits(const Schedule& schedule, const Moment& moment)
{
    const unsigned days = schedule.weekMask & kAllDays;
    return days == 0 || (days >> moment.weekday & 1) != 0;
}

bool DateFits(const ScheduleTime& begin, const ScheduleTime& end, std::uint32_t date)
{
    if (begin.dateValid && end.dateValid && DateOf(begin) == kEveryDate && DateOf(end) == kEveryDate)
        return true;
    return (!begin.dateValid || date >= DateOf(begin)) && (!end.dateValid || date <= DateOf(end));
}

bool TimeFits(const ScheduleTime& begin, const ScheduleTime& end, unsigned time)
{
    const bool begun = !begin.timeValid || time >= TimeOf(begin);
    const bool open = !end.timeValid || time <= TimeOf(end);
    const bool overMidnight = begin.timeValid && end.timeValid && TimeOf(begin) > TimeOf(end);
    return overMidnight ? begun || open : begun && open;
}

} // namespace

bool MayPlay(std::span<const Schedule> schedules, const Moment& moment)
{
    return schedules.empty() || std::ranges::any_of(schedules, [&moment](const Schedule& schedule) {
               return DayFits(schedule, moment) && DateFits(schedule.begin, schedule.end, moment.date) &&
                      TimeFits(schedule.begin, schedule.end, moment.time);
           });
}

} // namespace vxsim
