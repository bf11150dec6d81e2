// When a file may play.
#include "sim/content/schedule.h"

#include <gtest/gtest.h>

#include <tuple>
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
    const std::tuple<const char*, Moment, Schedule, bool> rows[] = {
        {"always", Saturday(0x2359), {127, defaultBegin, defaultEnd}, true},
        {"always, without weekdays", Saturday(0x0000), {255, defaultBegin, defaultEnd}, true},
        {"weekends, else always", Saturday(0x1200), {0x41, defaultBegin, defaultEnd}, true},
        {"Sunday to Friday", Saturday(0x1200), {0x3F, defaultBegin, defaultEnd}, false},
        {"Sunday is bit 0", {0x20080316, 0, 0}, {0x01, any, any}, true},
        {"Monday is bit 1", {0x20080316, 0, 0}, {0x02, any, any}, false},
        {"no day is every day", Saturday(0), {0, any, any}, true},
        {"bit 7 is no day", Saturday(0), {0x81, any, any}, false},
        {"first day", Saturday(0x0000), {127, march15, any}, true},
        {"the day after", Saturday(0x0000), {127, any, march14}, false},
        {"last day", Saturday(0x2359), {127, march14, march15}, true},
        {"the day before", {0x20080314, 0x2359, 5}, {127, march15, any}, false},
        {"years weigh most", {0x20090101, 0, 4}, {127, march15, any}, true},
        {"first minute", Saturday(0x0600), {127, six, ten}, true},
        {"the minute before", Saturday(0x0559), {127, six, ten}, false},
        {"last minute", Saturday(0x0959), {127, six, nine59}, true},
        {"the minute after", Saturday(0x1000), {127, six, nine59}, false},
        {"BCD: 9:59 is before 10:00", Saturday(0x0958), {127, nine59, ten}, false},
        {"over midnight, evening", Saturday(0x2300), {127, ten, six}, true},
        {"over midnight, morning", Saturday(0x0600), {127, ten, six}, true},
        {"over midnight, day", Saturday(0x0601), {127, ten, six}, false},
        {"open end", Saturday(0x2359), {127, six, any}, true},
        {"digits that are none", Saturday(0), {127, {0xFFFF, 255, 255, 255, 255, true, true}, any}, false},
    };
    for (const auto& [rule, moment, schedule, holds] : rows)
        EXPECT_EQ(MayPlay({&schedule, 1}, moment), holds) << rule;

    EXPECT_TRUE(MayPlay({}, Saturday(0)));
    const std::vector<Schedule> two{{127, any, march14}, {0x40, any, any}};
    EXPECT_TRUE(MayPlay(two, Saturday(0))) << "one of them is enough";
}

} // namespace
} // namespace vxsim::test
