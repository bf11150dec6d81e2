// Commands for the clock, and what hosts tell the sign for its messages.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/state/climate.h"
#include "sim/state/signClock.h"

#include <cstdint>
#include <optional>

namespace vxsim {

struct SpeedLimit
{
    std::uint16_t first = 0;
    std::uint16_t second = 0;
};

// Major 5: the sign's clock, and what hosts tell it for its messages.
class TimeCommands : public CommandFamily
{
public:
    // A traffic signal controller tells its seconds too.
    TimeCommands(std::int64_t localSecondsAtZero, bool isController)
        : controller(isController), beganAtZero(localSecondsAtZero), clock(localSecondsAtZero)
    {
    }

    std::span<const CommandRow> Commands() const override;

    // Sets the clock as the call tells.
    Reply Adjust(const Call& call);

    const SignClock& Clock() const { return clock; }

    // Seconds that the clock is ahead of the one it began with.
    std::int64_t Ahead() const { return clock.SecondsAtZero() - beganAtZero; }
    void SetAhead(std::int64_t seconds) { clock = SignClock(beganAtZero + seconds); }
    const std::optional<Weather>& LastWeather() const { return weather; }
    const std::optional<SpeedLimit>& LastSpeedLimit() const { return speedLimit; }

private:
    Reply Read(const Call& call) const;
    Reply KeepWeather(const Call& call);
    Reply KeepSpeedLimit(const Call& call);

    bool controller;
    std::int64_t beganAtZero;
    SignClock clock;
    std::uint8_t mark = 0; // a byte beside the time that goes back as it came
    std::optional<Weather> weather;
    std::optional<SpeedLimit> speedLimit;
};

} // namespace vxsim
