#include "sim/content/schedule.h"

#include <gtest/gtest.h>

#include <vector>

namespace vxsim::test {
namespace {

constexpr bool kValid = true;

// Saturday, 2008-03-15.
constexpr Moment Saturday(std::uint16_t time)
{
    return {0x20080315, time, 6};
}

TEST(Schedule, HoldsWhenDayDateAndTimeFit)
{
    const ScheduleTime any{};
    const ScheduleTime march15{0x2008, 0x03, 0x15, 0, 0, kValid, false};
    const ScheduleTime march14{0x2008, 0x03, 0x14, 0, 0, kValid, false};
    const ScheduleTime six{0, 0, 0, 0x06, 0x00, false, kValid};
    const ScheduleTime nine59{0, 0, 0, 0x09, 0x59, false, kValid};
    const ScheduleTime ten{0, 0, 0, 0x10, 0x00, false, kValid};
    const ScheduleTime defaultBegin{0x2008, 1, 1, 0, 0, kValid, kValid};
    const ScheduleTime defaultEnd{0x2008, 1, 1, 0x23, 0x59, kValid, kValid};
    const struct
    {
        const char* rule;
        Schedule schedule;
        Moment moment;
        bool holds;
    } rows[] = {
        {"always", {127, defaultBegin, defaultEnd}, Saturday(0x2359), true},
        {"always, without weekdays", {255, defaultBegin, defaultEnd}, Saturday(0x0000), true},
        {"weekends, else always", {0x41, defaultBegin, defaultEnd}, Saturday(0x1200), true},
        {"Sunday to Friday", {0x3F, defaultBegin, defaultEnd}, Saturday(0x1200), false},
        {"Sunday is bit 0", {0x01, any, any}, {0x20080316, 0, 0}, true},
        {"Monday is bit 1", {0x02, any, any}, {0x20080316, 0, 0}, false},
        {"no day is every day", {0, any, any}, Saturday(0), true},
        {"bit 7 is no day", {0x81, any, any}, Saturday(0), false},
        {"first day", {127, march15, any}, Saturday(0x0000), true},
        {"the day after", {127, any, march14}, Saturday(0x0000), false},
        {"last day", {127, march14, march15}, Saturday(0x2359), true},
        {"the day before", {127, march15, any}, {0x20080314, 0x2359, 5}, false},
        {"years weigh most", {127, march15, any}, {0x20090101, 0, 4}, true},
        {"first minute", {127, six, ten}, Saturday(0x0600), true},
        {"the minute before", {127, six, ten}, Saturday(0x0559), false},
        {"last minute", {127, six, nine59}, Saturday(0x0959), true},
        {"the minute after", {127, six, nine59}, Saturday(0x1000), false},
        {"BCD: 9:59 is before 10:00", {127, nine59, ten}, Saturday(0x0958), false},
        {"over midnight, evening", {127, ten, six}, Saturday(0x2300), true},
        {"over midnight, morning", {127, ten, six}, Saturday(0x0600), true},
        {"over midnight, day", {127, ten, six}, Saturday(0x0601), false},
        {"open end", {127, six, any}, Saturday(0x2359), true},
        {"digits that are none", {127, {0xFFFF, 255, 255, 255, 255, true, true}, any}, Saturday(0), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MayPlay({&row.schedule, 1}, row.moment), row.holds) << row.rule;

    EXPECT_TRUE(MayPlay({}, Saturday(0)));
    const std::vector<Schedule> two{{127, any, march14}, {0x40, any, any}};
    EXPECT_TRUE(MayPlay(two, Saturday(0))) << "one of them is enough";
}

} // namespace
} // namespace vxsim::test
