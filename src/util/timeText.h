// Times as the reports tell them: "2020-05-13 10:20:30".
#pragma once

#include "platform/clock.h"

#include <vxsign/local.h>

namespace vxsign {

constexpr std::uint32_t kTimeTextSize = 20;

/// Prints a time into a field of that size, with its terminator.
inline void PutTime(char (&field)[kTimeTextSize], const platform::LocalTime& time)
{
    vxPrintBuf(field, sizeof field, "%d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day, time.hour,
               time.minute, time.second);
}

/// The parts of a DOS date and time as they stand: the seconds are not doubled.
inline platform::LocalTime DosTime(std::uint16_t date, std::uint16_t time)
{
    constexpr unsigned kFirstYear = 1980;
    const auto part = [](unsigned value) { return static_cast<std::uint8_t>(value); };
    return {static_cast<std::uint16_t>((date >> 9u) + kFirstYear),
            part(date >> 5u & 0xF),
            part(date & 0x1F),
            part(time >> 11u),
            part(time >> 5u & 0x3F),
            part(time & 0x1F),
            0};
}

} // namespace vxsign
