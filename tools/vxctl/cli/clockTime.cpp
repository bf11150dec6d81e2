// Reads and writes times.
#include "vxctl/cli/clockTime.h"

#include "vxctl/cli/failure.h"
#include "vxctl/platform/localFiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace vxctl {

namespace {

constexpr int kFirstYear = 1970;
constexpr int kLastYear = 9999;
constexpr int kFolderYear = 1980; // from which folders count

std::chrono::year_month_day DayOf(const ClockTime& time)
{
    return {std::chrono::year(time.year), std::chrono::month(time.month), std::chrono::day(time.day)};
}

bool IsTime(const ClockTime& time)
{
    return DayOf(time).ok() && time.hour < 24 && time.minute < 60 && time.second < 60;
}

// Whether text has digits where the form has '0', and elsewhere the same characters.
bool HasForm(std::string_view text, std::string_view form)
{
    return std::ranges::equal(text, form, [](char character, char wanted) {
        return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
    });
}

template <class Number>
Number DigitsAt(std::string_view text, std::size_t at, std::size_t count)
{
    unsigned number = 0;
    for (const char digit : text.substr(at, count))
        number = number * 10 + static_cast<unsigned>(digit - '0');
    return static_cast<Number>(number);
}

} // namespace

std::optional<ClockTime> ParseClockTime(std::string_view text)
{
    std::string plain(text);
    if (plain.size() > 10 && plain[10] == 'T')
        plain[10] = ' ';
    if (HasForm(plain, "0000-00-00 00:00"))
        plain += ":00";
    if (!HasForm(plain, "0000-00-00 00:00:00"))
        return std::nullopt;
    const ClockTime time{DigitsAt<std::uint16_t>(plain, 0, 4), DigitsAt<std::uint8_t>(plain, 5, 2),
                         DigitsAt<std::uint8_t>(plain, 8, 2),  DigitsAt<std::uint8_t>(plain, 11, 2),
                         DigitsAt<std::uint8_t>(plain, 14, 2), DigitsAt<std::uint8_t>(plain, 17, 2)};
    if (time.year < kFirstYear || !IsTime(time))
        return std::nullopt;
    return time;
}

ClockTime LocalTime()
{
    const std::tm local = platform::LocalTime(std::time(nullptr));
    // A leap second, 60, is none that a sign takes.
    return {static_cast<std::uint16_t>(local.tm_year + 1900), static_cast<std::uint8_t>(local.tm_mon + 1),
            static_cast<std::uint8_t>(local.tm_mday),         static_cast<std::uint8_t>(local.tm_hour),
            static_cast<std::uint8_t>(local.tm_min),          static_cast<std::uint8_t>(std::min(local.tm_sec, 59))};
}

std::optional<ClockTime> FolderTime(std::uint16_t date, std::uint16_t time)
{
    const ClockTime found{static_cast<std::uint16_t>(kFolderYear + (date >> 9)),
                          static_cast<std::uint8_t>(date >> 5 & 15),
                          static_cast<std::uint8_t>(date & 31),
                          static_cast<std::uint8_t>(time >> 11),
                          static_cast<std::uint8_t>(time >> 5 & 63),
                          static_cast<std::uint8_t>((time & 31) * 2)};
    if (!IsTime(found))
        return std::nullopt;
    return found;
}

std::uint8_t Weekday(const ClockTime& time)
{
    return static_cast<std::uint8_t>(std::chrono::weekday(std::chrono::sys_days(DayOf(time))).c_encoding());
}

std::string FormatTime(const ClockTime& time, char between, bool seconds)
{
    std::array<char, 32> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "%04u-%02u-%02u%c%02u:%02u", unsigned{time.year}, unsigned{time.month},
                      unsigned{time.day}, between, unsigned{time.hour}, unsigned{time.minute});
    if (seconds)
        std::snprintf(text.data() + length, text.size() - static_cast<std::size_t>(length), ":%02u",
                      unsigned{time.second});
    return text.data();
}

std::string IsoTime(const ClockTime& time)
{
    if (time.year < kFirstYear || time.year > kLastYear || !IsTime(time))
        return {};
    std::tm local = {};
    local.tm_year = time.year - 1900;
    local.tm_mon = time.month - 1;
    local.tm_mday = time.day;
    local.tm_hour = time.hour;
    local.tm_min = time.minute;
    local.tm_sec = time.second;
    local.tm_isdst = -1;
    const long ahead = platform::SecondsAhead(local) / 60; // minutes
    std::array<char, 48> zone{};
    std::snprintf(zone.data(), zone.size(), "%c%02ld:%02ld", ahead < 0 ? '-' : '+', std::labs(ahead) / 60,
                  std::labs(ahead) % 60);
    return FormatTime(time, 'T') + zone.data();
}

ClockTime ReadTime(const std::string& text)
{
    const auto time = text == "now" ? LocalTime() : ParseClockTime(text);
    if (!time)
        throw UsageError("'" + text + "' is no time: now, or such as \"2026-11-21 14:05:30\", from 1970 on");
    return *time;
}

} // namespace vxctl
