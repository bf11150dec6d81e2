#pragma once

#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/state/signClock.h"
#include "sim/traffic/signalProgram.h"
#include "sim/traffic/trafficBlocks.h"
#include "sim/traffic/trafficFiles.h"

#include <cstdint>
#include <optional>

namespace vxsim {

// Major 10 of a sign that is a traffic signal controller: an intersection whose signals change by the sign's clock.
class TrafficCommands
{
public:
    TrafficCommands(const Drives& drives, const SignClock& signClock)
        : clock(signClock), program(signClock), files(drives)
    {
    }

    // Whether a request of major 10 is one for the controller, and none of those that have to do with logins.
    static bool Takes(const Frame& request);

    Reply Execute(const Frame& request, std::uint64_t nowMs);

    // What the controller does of itself: writes its logs. `isHot`: something of the sign is too hot.
    void KeepUp(const TrafficClimate& measured, bool isHot, std::uint64_t nowMs);

    // The signals begin anew.
    void Restart(std::uint64_t nowMs);

    SignalSituation SignalsAt(std::uint64_t nowMs) const { return program.At(nowMs); }

private:
    TrafficMoment MomentAt(std::uint64_t nowMs) const;
    Reply TestLamps(const Frame& request, std::uint64_t nowMs);
    Reply RunPhase(const Frame& request, std::uint64_t nowMs);

    const SignClock& clock;
    SignalProgram program;
    TrafficFiles files;
    TrafficClimate climate;
    bool wasHot = false;
    std::optional<std::uint64_t> startedMs;
    std::optional<ClockTime> recordedHour; // the one whose temperatures are in the files
};

} // namespace vxsim
