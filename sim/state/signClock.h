// The clock of the sign, and its dates in packets and files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vxsim {

// Two decimal digits in a byte, tens in the high nibble, as a sign's clock has them. `value` is below 100.
constexpr std::uint8_t ToBcd(unsigned value)
{
    return static_cast<std::uint8_t>(value / 10 << 4 | value % 10);
}

// Nothing if one of the digits is none.
constexpr std::optional<unsigned> FromBcd(std::uint8_t bcd)
{
    if (bcd >> 4 > 9 || (bcd & 15) > 9)
        return std::nullopt;
    return (bcd >> 4) * 10U + (bcd & 15U);
}

struct ClockTime
{
    int year = 1970;
    unsigned month = 1;
    unsigned day = 1;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;

    bool operator==(const ClockTime&) const = default;
};

// "2020-05-13 10:20:30"
std::string TimeText(const ClockTime& time);

// As FAT and the log files have them: day, month from bit 5 on, years since 1980 from bit 9 on; seconds / 2, minutes
// from bit 5 on, hours from bit 11 on.
std::uint16_t PackedDate(const ClockTime& time);
std::uint16_t PackedTime(const ClockTime& time);

// The clock of the sign. It runs with the caller's and is ahead of it or behind by what a host has set.
class SignClock
{
public:
    // `localSecondsAtZero` is the local time in seconds since 1970 when the caller's milliseconds were 0.
    explicit SignClock(std::int64_t localSecondsAtZero) : atZero(localSecondsAtZero) {}

    ClockTime At(std::uint64_t nowMs) const;

    // 0 is Sunday.
    unsigned WeekdayAt(std::uint64_t nowMs) const;

    // False for a time that does not exist, or before 1970; the clock then goes on as it was.
    bool Set(const ClockTime& time, std::uint64_t nowMs);

    std::int64_t SecondsAtZero() const { return atZero; }

private:
    std::int64_t SecondsAt(std::uint64_t nowMs) const { return atZero + static_cast<std::int64_t>(nowMs / 1000); }

    std::int64_t atZero;
};

} // namespace vxsim
