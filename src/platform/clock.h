// Time and sleep: the one seam that tests replace.
#pragma once

#include <cstdint>

namespace vxsign::platform {

struct LocalTime
{
    std::uint16_t year; // 2026
    std::uint8_t month; // 1..12
    std::uint8_t day;   // 1..31
    std::uint8_t hour;
    std::uint8_t minute;
    std::uint8_t second;
    std::uint8_t dayOfWeek; // 0 is Sunday
};

struct Clock
{
    std::uint64_t (*monotonicMs)();
    void (*sleepMs)(std::uint32_t ms);
    LocalTime (*localTime)();
};

/// The clock in force. Tests put another in its place, before any thread uses it.
extern Clock clock;

/// The clock of the operating system.
extern const Clock kSystemClock;

} // namespace vxsign::platform
