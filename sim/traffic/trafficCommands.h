// Commands for a sign that is a traffic signal controller.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/monitor/monitor.h"
#include "sim/state/timeCommands.h"
#include "sim/traffic/signalProgram.h"
#include "sim/traffic/trafficBlocks.h"
#include "sim/traffic/trafficFiles.h"

#include <cstdint>
#include <optional>

namespace vxsim {

// The orders to a sign that is a traffic signal controller: an intersection whose signals change by the sign's clock.
// Any other sign refuses them.
class TrafficCommands : public CommandFamily
{
public:
    TrafficCommands(const Drives& drives, TimeCommands& time, const Monitor& monitor, bool isController);

    std::span<const CommandRow> Commands() const override;
    Reply Execute(const Call& call) override;

    // Writes the logs.
    void KeepUp(std::uint64_t nowMs) override;

    // The signals begin anew.
    void Restart(std::uint64_t nowMs, bool isCold) override;

    SignalSituation SignalsAt(std::uint64_t nowMs) const { return program.At(nowMs); }

private:
    TrafficMoment MomentAt(std::uint64_t nowMs) const;
    Reply SetClock(const Call& call);
    Reply SetMode(const Call& call);
    Reply TellMonitor(const Call& call);
    Reply TellStatus(const Call& call);
    Reply TellRealStatus(const Call& call);
    Reply TellFlow(const Call& call);
    Reply TestLamps(const Call& call, bool byKind);
    Reply RunPhase(const Call& call);

    TimeCommands& time;
    const Monitor& monitor;
    bool controller;
    const SignClock& clock;
    SignalProgram program;
    TrafficFiles files;
    TrafficClimate climate;
    bool wasHot = false;
    std::optional<std::uint64_t> startedMs;
    std::optional<ClockTime> recordedHour; // the one whose temperatures are in the files
};

} // namespace vxsim
