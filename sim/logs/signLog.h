// What becomes a row of the logs.
#pragma once

#include "sim/command/signEvents.h"
#include "sim/logs/database.h"
#include "sim/state/climate.h"
#include "sim/state/signClock.h"

#include <cstdint>
#include <string>

namespace vxsim {

enum class EventType : std::uint8_t
{
    kDoor = 1,
    kPixel = 2,
    kSignal = 3,
    kTile = 4
};

// Writes down what the sign does and what befalls it, in the tables of its database.
class SignLog
{
public:
    explicit SignLog(SignDatabase& tables) : database(tables) {}

    // SysLog: a command that changes how the sign works, and the sign's start.
    void Command(const Exchange& exchange, const std::string& author, const ClockTime& time);
    void Started(const ClockTime& time);

    // EventLog: whether it came or went.
    void Event(EventType type, bool came, const std::string& note, const ClockTime& time);

    // TempLog: what was measured from `begin` to `end`.
    void Temperatures(const ClimateSpan& span, const ClockTime& begin, const ClockTime& end);

    // PlayLog: one more play of the file, of so many seconds, which began at that time.
    void Play(const std::string& list, const std::string& file, std::uint64_t seconds, const ClockTime& begin);

private:
    SignDatabase& database;
};

} // namespace vxsim
