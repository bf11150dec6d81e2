// What several commands ask a sign about its condition.
#pragma once

#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/session.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vxctl {

// A line of the sign's report of what is wrong now.
struct Warning
{
    std::string where; // "main board", "tile 3,0", "pixels" or "signals"
    std::string what;
    std::string value;
    std::string time;
};

// The sign's report, empty when the sign has none. Gives the result word.
std::uint32_t ReadWarnings(std::vector<Warning>& warnings);

// Free and total space of a drive in units, then the size of the unit in the bytes behind them; 0 is the usual one.
struct DriveSpace
{
    char drive = 0;
    std::uint32_t total = 0;
    std::uint32_t free = 0;
    std::array<std::uint8_t, 12> further{};

    std::uint64_t Unit() const;
    std::uint64_t TotalBytes() const { return total * Unit(); }
    std::uint64_t FreeBytes() const { return free * Unit(); }

    // Less than a twentieth is free.
    bool IsScarce() const { return free < total / 20; }
};

inline constexpr const char* kDrives = "CDEFG"; // that a sign may have

// Gives the result word.
std::uint32_t ReadSpace(char drive, DriveSpace& space);

// The spaces of all drives that the sign has. Throws SignFailure when the line fails.
std::vector<DriveSpace> ReadSpaces();

// What is free on each.
void ShowDrives(Report& report, const std::vector<DriveSpace>& spaces);

// The sign's clock, which tells no seconds. Gives the result word.
std::uint32_t ReadClock(ClockTime& time);

// How far the first time is ahead of the second. A time that does not exist is far behind.
std::int64_t MinutesAhead(const ClockTime& first, const ClockTime& second);

// The minutes by which a clock that is right may differ from that of this PC.
inline constexpr std::int64_t kClockTolerance = 2;

// What `watch` shows of a sign, and vxbridge polls: state, measurements, what plays, warnings. The thread has the sign.
std::uint32_t ShowBriefly(Session& session, const Args& args);

} // namespace vxctl
