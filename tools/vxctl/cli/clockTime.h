// Times as people write them, and as the sign's clock and folders have them.
#pragma once

#include "vxctl/cli/argument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vxctl {

struct ClockTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0; // from 1 on
    std::uint8_t day = 0;   // from 1 on
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;

    bool operator==(const ClockTime&) const = default;
};

// "2026-11-21 14:05" or "2026-11-21T14:05:30", from 1970 to 9999. Nothing when text is no such time or there is no such
// day.
std::optional<ClockTime> ParseClockTime(std::string_view text);

// The time of this PC, in its own zone.
ClockTime LocalTime();

// Date and time in the 16 bits each that the sign's folders have, in steps of two seconds. Nothing when there is no
// such time: a sign without a clock leaves both at 0.
std::optional<ClockTime> FolderTime(std::uint16_t date, std::uint16_t time);

// 0 for Sunday.
std::uint8_t Weekday(const ClockTime& time);

// "2026-11-21", then the given character, then "14:05:30" or without the seconds "14:05".
std::string FormatTime(const ClockTime& time, char between, bool seconds = true);

// "2026-11-21T14:05:30+01:00"; empty when there is no such time, as a sign may tell any numbers. It tells no zone: its
// clock is taken to run in that of this PC.
std::string IsoTime(const ClockTime& time);

// A time of the command line, or "now". Throws UsageError for anything else.
ClockTime ReadTime(const std::string& text);

inline constexpr ArgumentType kTimeOrNow{"TIME", Checked<ReadTime>};

} // namespace vxctl
