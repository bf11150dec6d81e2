// What the controller tells of itself: blocks that only the controller and the user of vxctl interpret.
#pragma once

#include "sim/protocol/reply.h"
#include "sim/state/signClock.h"
#include "sim/traffic/signalProgram.h"
#include "sim/traffic/trafficFiles.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// What the blocks are made of.
struct TrafficMoment
{
    SignalSituation signals;
    ClockTime time;
    TrafficClimate climate;
    std::uint32_t runSeconds = 0;
};

// Mode, phase, interval, seconds left, how many phases and groups, the lamps of each group.
std::vector<std::uint8_t> StatusBlock(const TrafficMoment& moment);

// A record of eight bytes for each group: its lamps, and what its detector has counted.
std::vector<std::uint8_t> MonitorBlock(const TrafficMoment& moment);

// 102 bytes: clock, then as the status.
std::vector<std::uint8_t> RealBlock(const TrafficMoment& moment);

// Vehicles by group and hour. The query has a date in BCD in front, or zeros for today. Nothing for a date that does
// not exist.
std::optional<Reply> FlowOf(std::span<const std::uint8_t> query, const ClockTime& now);

} // namespace vxsim
