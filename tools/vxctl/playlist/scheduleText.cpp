// Schedules from words and in words.
#include "vxctl/playlist/scheduleText.h"

#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/codeNames.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>

namespace vxctl {

namespace {

constexpr std::array<std::string_view, 7> kDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}; // from bit 0 on
constexpr std::uint8_t kAllDays = 127;

// Hosts mark a file that always plays with this one date.
constexpr std::uint16_t kAlwaysYear = 0x2008;

struct Span
{
    std::string_view from;
    std::string_view until;
};

Span Split(std::string_view text)
{
    const std::size_t dots = text.find("..");
    if (dots == std::string_view::npos)
        throw UsageError('"' + std::string(text) + "\" is no span such as FROM..UNTIL");
    return {text.substr(0, dots), text.substr(dots + 2)};
}

std::size_t DayAt(std::string_view text)
{
    for (std::size_t day = 0; day < kDays.size(); ++day) {
        std::string name(kDays[day]);
        name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
        if (text == name || text == kDays[day])
            return day;
    }
    throw UsageError('"' + std::string(text) + "\" is no day: sun, mon, tue, wed, thu, fri, sat");
}

std::uint8_t ParseDays(std::string_view text)
{
    unsigned days = 0;
    while (!text.empty()) {
        const std::string_view part = text.substr(0, text.find(','));
        text.remove_prefix(std::min(text.size(), part.size() + 1));
        const std::size_t dash = part.find('-');
        const std::size_t first = DayAt(part.substr(0, dash));
        const std::size_t last = dash == std::string_view::npos ? first : DayAt(part.substr(dash + 1));
        for (std::size_t day = first;; day = (day + 1) % kDays.size()) {
            days |= 1U << day;
            if (day == last)
                break;
        }
    }
    return static_cast<std::uint8_t>(days);
}

// One end of a schedule. Its fields have other names at the other end.
struct End
{
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    bool hasDate = false;
    bool hasTime = false;
};

void SetDate(End& end, std::string_view text)
{
    if (text.empty())
        return;
    const auto date = ParseClockTime(std::string(text) + " 00:00");
    if (!date)
        throw UsageError('"' + std::string(text) + "\" is no date such as 2026-11-21");
    end.year = static_cast<std::uint16_t>(ToBcd(date->year / 100U) << 8 | ToBcd(date->year % 100U));
    end.month = ToBcd(date->month);
    end.day = ToBcd(date->day);
    end.hasDate = true;
}

void SetTime(End& end, std::string_view text)
{
    if (text.empty())
        return;
    const auto time = ParseClockTime("2026-01-01 " + std::string(text));
    if (!time || text.size() != 5)
        throw UsageError('"' + std::string(text) + "\" is no time such as 07:00");
    end.hour = ToBcd(time->hour);
    end.minute = ToBcd(time->minute);
    end.hasTime = true;
}

template <class... Numbers>
std::string Print(const char* format, Numbers... numbers)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(numbers)...);
    return text.data();
}

// Monday comes first for people.
std::string DescribeDays(unsigned mask)
{
    std::string text;
    const auto has = [mask](std::size_t at) { return at <= kDays.size() && (mask >> at % kDays.size() & 1) != 0; };
    for (std::size_t day = 1; day <= kDays.size(); ++day) {
        if (!has(day))
            continue;
        std::size_t last = day;
        while (has(last + 1))
            ++last;
        text += (text.empty() ? "" : ",") + std::string(kDays[day % kDays.size()]);
        if (last != day)
            text += (last > day + 1 ? "-" : ",") + std::string(kDays[last % kDays.size()]);
        day = last;
    }
    return text;
}

std::string DescribeSpan(const std::string& from, const std::string& until)
{
    if (from.empty())
        return until.empty() ? "" : "until " + until;
    return until.empty() ? "from " + from : from + " to " + until;
}

// How hosts mark a file that always plays.
bool HasUsualDates(const SCH& at)
{
    return at.b_date_valid != 0 && at.e_date_valid != 0 && at.b_year == kAlwaysYear && at.e_year == kAlwaysYear &&
           at.b_month == 1 && at.e_month == 1 && at.b_day == 1 && at.e_day == 1;
}

} // namespace

SCH MakeSchedule(std::string_view days, std::string_view dates, std::string_view hours)
{
    End begin;
    End end;
    if (!dates.empty()) {
        const Span span = Split(dates);
        SetDate(begin, span.from);
        SetDate(end, span.until);
    }
    if (!hours.empty()) {
        const Span span = Split(hours);
        SetTime(begin, span.from);
        SetTime(end, span.until);
    }
    SCH schedule{};
    schedule.bweek_rep = days.empty() ? kAllDays : ParseDays(days);
    schedule.b_year = begin.year;
    schedule.b_month = begin.month;
    schedule.b_day = begin.day;
    schedule.b_hour = begin.hour;
    schedule.b_minute = begin.minute;
    schedule.b_date_valid = begin.hasDate ? 1 : 0;
    schedule.b_time_valid = begin.hasTime ? 1 : 0;
    schedule.e_year = end.year;
    schedule.e_month = end.month;
    schedule.e_day = end.day;
    schedule.e_hour = end.hour;
    schedule.e_minute = end.minute;
    schedule.e_date_valid = end.hasDate ? 1 : 0;
    schedule.e_time_valid = end.hasTime ? 1 : 0;
    return schedule;
}

ScheduleLimits LimitsOf(const SCH& at)
{
    constexpr const char* kDate = "%04x-%02x-%02x";
    constexpr const char* kTime = "%02x:%02x";
    ScheduleLimits limits;
    for (std::size_t day = 0; day < kDays.size(); ++day) {
        if ((at.bweek_rep & kAllDays) != kAllDays && (at.bweek_rep >> day & 1) != 0)
            limits.days.emplace_back(kWeekdays[day]);
    }
    if (!HasUsualDates(at)) {
        limits.firstDate = at.b_date_valid != 0 ? Print(kDate, at.b_year, at.b_month, at.b_day) : "";
        limits.lastDate = at.e_date_valid != 0 ? Print(kDate, at.e_year, at.e_month, at.e_day) : "";
    }
    limits.from = at.b_time_valid != 0 ? Print(kTime, at.b_hour, at.b_minute) : "";
    limits.until = at.e_time_valid != 0 ? Print(kTime, at.e_hour, at.e_minute) : "";
    if (limits.from == "00:00" && limits.until == "23:59")
        limits.from = limits.until = "";
    return limits;
}

std::string DescribeSchedule(const SCH& schedule)
{
    std::string text;
    const auto add = [&text](const std::string& part) {
        if (!part.empty())
            text += (text.empty() ? "" : ", ") + part;
    };
    const unsigned days = schedule.bweek_rep & kAllDays;
    const ScheduleLimits limits = LimitsOf(schedule);
    add(days == kAllDays ? "" : DescribeDays(days));
    add(DescribeSpan(limits.firstDate, limits.lastDate));
    add(DescribeSpan(limits.from, limits.until));
    return text.empty() ? "always" : text;
}

} // namespace vxctl
