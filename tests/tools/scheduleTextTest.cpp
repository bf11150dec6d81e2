// Schedules on the command line.
#include "vxctl/playlist/scheduleText.h"
#include "vxctl/cli/failure.h"

#include <cstring>
#include <gtest/gtest.h>
#include <tuple>

namespace vxctl::test {
namespace {

TEST(ScheduleText, PartsBecomeTheRecord)
{
    const SCH schedule = MakeSchedule("fri-mon,wed", "2026-12-01..2027-02-28", "22:30..06:05");
    const std::uint8_t expected[] = {0b1101011, 0,    0x26, 0x20, 0x12, 0x01, 0x22, 0x30, 1,
                                     1,         0x27, 0x20, 0x02, 0x28, 0x06, 0x05, 1,    1};
    static_assert(sizeof expected == sizeof schedule);
    EXPECT_EQ(std::memcmp(&schedule, expected, sizeof schedule), 0);
    EXPECT_EQ(DescribeSchedule(schedule), "Mon,Wed,Fri-Sun, 2026-12-01 to 2027-02-28, 22:30 to 06:05");
}

TEST(ScheduleText, WhatIsLeftOutIsNoLimit)
{
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"", "", "", "always"},
        {"sat,sun", "", "", "Sat,Sun"},
        {"sun-sat", "", "00:00..23:59", "always"},
        {"", "2026-01-01..", "", "from 2026-01-01"},
        {"", "..2026-01-31", "..12:00", "until 2026-01-31, until 12:00"},
        {"", "2008-01-01..2008-01-01", "", "always"}, // how hosts mark a file that always plays
    };
    for (const auto& [days, dates, hours, words] : rows)
        EXPECT_EQ(DescribeSchedule(MakeSchedule(days, dates, hours)), words);
}

TEST(ScheduleText, RefusesWhatIsNone)
{
    for (const char* days : {"mo", "mon-", "mon,,tue", "-", "monday"})
        EXPECT_THROW(MakeSchedule(days, "", ""), UsageError) << days;
    for (const char* dates : {"2026-12-01", "2026-02-30..", "1.1.2026..", "2026-12-01...."})
        EXPECT_THROW(MakeSchedule("", dates, ""), UsageError) << dates;
    for (const char* hours : {"7..9", "24:00..", "07:00:30..", "07:00-09:00"})
        EXPECT_THROW(MakeSchedule("", "", hours), UsageError) << hours;
}

} // namespace
} // namespace vxctl::test
