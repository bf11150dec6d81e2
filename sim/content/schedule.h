// When a file of the list may play.
#pragma once

#include <cstdint>
#include <span>

namespace vxsim {

// A point in time as schedules hold it. All numbers are BCD: year 0x2008 is 2008.
struct ScheduleTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    bool dateValid = false; // an invalid date or time is no limit
    bool timeValid = false;

    bool operator==(const ScheduleTime&) const = default;
};

// Days of the week, a span of dates and a span of the day, each end counting as whole: to 23:59 is to midnight.
struct Schedule
{
    std::uint8_t weekMask = 0; // bit 0 is Sunday, bit 6 Saturday; none of these seven is every day, as all are
    ScheduleTime begin;
    ScheduleTime end;

    bool operator==(const Schedule&) const = default;
};

// A minute of the sign's clock, in BCD as well: 0x20080315, 0x0630.
struct Moment
{
    std::uint32_t date = 0;
    std::uint16_t time = 0;
    unsigned weekday = 0; // 0 is Sunday
};

// Whether one of the schedules holds at that moment; without any, always. A time of day that begins later than it
// ends goes over midnight, and each of its two parts belongs to the day that it lies in.
bool MayPlay(std::span<const Schedule> schedules, const Moment& moment);

} // namespace vxsim
