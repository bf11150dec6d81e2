// What the blocks of a traffic signal controller say, in the usual layout; those of another controller show as bytes.
#pragma once

#include "vxctl/cli/report.h"

#include <cstdint>
#include <span>

namespace vxctl {

using TrafficBytes = std::span<const std::uint8_t>;

// Each puts the bytes into the report as well.
void ShowTrafficStatus(Report& report, TrafficBytes block);
void ShowTrafficRealStatus(Report& report, TrafficBytes block);
void ShowTrafficMonitor(Report& report, TrafficBytes block);
void ShowTrafficFlow(Report& report, TrafficBytes flow);

} // namespace vxctl
