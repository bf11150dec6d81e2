#include "sim/state/signClock.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace vxsim {
namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::seconds;

constexpr int kFirstYear = 1970;
constexpr int kLastYear = 9999; // four digits of BCD

} // namespace

std::string TimeText(const ClockTime& time)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%d-%02u-%02u %02u:%02u:%02u", time.year, time.month, time.day, time.hour,
                  time.minute, time.second);
    return text.data();
}

std::uint16_t PackedDate(const ClockTime& time)
{
    const auto years = static_cast<unsigned>(std::clamp(time.year - 1980, 0, 127));
    return static_cast<std::uint16_t>(time.day | time.month << 5 | years << 9);
}

std::uint16_t PackedTime(const ClockTime& time)
{
    return static_cast<std::uint16_t>(time.second / 2 | time.minute << 5 | time.hour << 11);
}

ClockTime SignClock::At(std::uint64_t nowMs) const
{
    const local_seconds now{seconds(SecondsAt(nowMs))};
    const auto day = floor<days>(now);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(now - day);
    return {static_cast<int>(date.year()),
            static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day()),
            static_cast<unsigned>(time.hours().count()),
            static_cast<unsigned>(time.minutes().count()),
            static_cast<unsigned>(time.seconds().count())};
}

unsigned SignClock::WeekdayAt(std::uint64_t nowMs) const
{
    return std::chrono::weekday(floor<days>(local_seconds(seconds(SecondsAt(nowMs))))).c_encoding();
}

bool SignClock::Set(const ClockTime& time, std::uint64_t nowMs)
{
    if (time.year < kFirstYear || time.year > kLastYear || time.hour > 23 || time.minute > 59 || time.second > 59)
        return false;
    const std::chrono::year_month_day date{std::chrono::year(time.year), std::chrono::month(time.month),
                                           std::chrono::day(time.day)};
    if (!date.ok())
        return false;
    const auto wanted = local_days(date).time_since_epoch() + std::chrono::hours(time.hour) +
                        std::chrono::minutes(time.minute) + seconds(time.second);
    atZero += seconds(wanted).count() - SecondsAt(nowMs);
    return true;
}

} // namespace vxsim
