// Times as the sign's clock and folders have them.
#ifndef VXSIGN_CPP_CLOCK_HPP
#define VXSIGN_CPP_CLOCK_HPP

#include <vxsign/cpp/bytes.hpp>
#include <vxsign/cpp/result.hpp>
#include <vxsign/local.h>
#include <vxsign/test.h>

#include <cstdio>

namespace vxsign {

// A time of the sign, which tells no zone.
struct ClockTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0; // from 1 on
    std::uint8_t day = 0;   // from 1 on
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;

    // The time of this PC, in its own zone.
    static ClockTime Now()
    {
        std::uint8_t bytes[8] = {};
        vxGetDateTime(bytes);
        return {detail::Load16(bytes), bytes[2], bytes[3], bytes[4], bytes[5], bytes[6]};
    }

    // Whether there is such a time.
    bool IsTime() const
    {
        constexpr std::uint8_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        if (year < 1970 || month < 1 || month > 12 || day < 1 || hour > 23 || minute > 59 || second > 59)
            return false;
        const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        return day <= kDays[month - 1] + (isLeap && month == 2 ? 1 : 0);
    }

    // 0 for Sunday.
    std::uint8_t Weekday() const
    {
        constexpr std::uint8_t kShift[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4}; // of the months, behind February
        const int of = month < 3 ? year - 1 : year;
        return month < 1 || month > 12
                   ? std::uint8_t{0}
                   : static_cast<std::uint8_t>((of + of / 4 - of / 100 + of / 400 + kShift[month - 1] + day) % 7);
    }

    // "2026-11-21 14:05:30"
    std::string Text() const
    {
        char text[40] = {};
        std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", unsigned{year}, unsigned{month},
                      unsigned{day}, unsigned{hour}, unsigned{minute}, unsigned{second});
        return text;
    }
};

namespace detail {

// The sign tells no seconds. Gives the result word.
inline std::uint32_t ReadClock(ClockTime& time)
{
    std::uint8_t unused[3] = {};
    return vxReadLEDTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &unused[0], &unused[1],
                         &unused[2]);
}

inline void SetClock(const ClockTime& time)
{
    if (!time.IsTime())
        Refuse("there is no time " + time.Text());
    Check(vxAjustLEDTimeEx(time.year, time.month, time.day, time.hour, time.minute, time.second, time.Weekday(), 0));
}

// Date and time of a folder, in steps of two seconds. A sign without a clock leaves both at 0.
inline std::optional<ClockTime> FolderTime(unsigned date, unsigned time)
{
    const ClockTime found{static_cast<std::uint16_t>(1980 + (date >> 9)), static_cast<std::uint8_t>(date >> 5 & 15),
                          static_cast<std::uint8_t>(date & 31),           static_cast<std::uint8_t>(time >> 11),
                          static_cast<std::uint8_t>(time >> 5 & 63),      static_cast<std::uint8_t>((time & 31) * 2)};
    return found.IsTime() ? std::optional(found) : std::nullopt;
}

} // namespace detail
} // namespace vxsign

#endif
