#pragma once

#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/state/signClock.h"

#include <cstdint>
#include <optional>

namespace vxsim {

// What a host has measured for the sign.
struct Weather
{
    std::uint8_t humidity = 0;
    int temperature16 = 0; // sixteenths of a degree
};

struct SpeedLimit
{
    std::uint16_t first = 0;
    std::uint16_t second = 0;
};

// Major 5: the sign's clock, and what hosts tell it for its messages.
class TimeCommands
{
public:
    // A traffic signal controller tells its seconds too, and has a command of its own to set the clock.
    TimeCommands(std::int64_t localSecondsAtZero, bool isController)
        : controller(isController), clock(localSecondsAtZero)
    {
    }

    Reply Execute(const Frame& request, std::uint64_t nowMs);

    const SignClock& Clock() const { return clock; }
    const std::optional<Weather>& LastWeather() const { return weather; }
    const std::optional<SpeedLimit>& LastSpeedLimit() const { return speedLimit; }

private:
    Reply Read(std::uint64_t nowMs) const;
    Reply Adjust(const Frame& request, std::uint64_t nowMs);

    bool controller;
    SignClock clock;
    std::uint8_t mark = 0; // a byte beside the time that goes back as it came
    std::optional<Weather> weather;
    std::optional<SpeedLimit> speedLimit;
};

} // namespace vxsim
