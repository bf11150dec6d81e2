// Packets in words.
#pragma once

#include "sim/web/trafficRing.h"

#include <nlohmann/json_fwd.hpp>

namespace vxsim {

// A line about a request and its reply.
nlohmann::json SummaryOf(const CarriedPacket& packet);

// Header fields and bytes of both.
nlohmann::json DetailsOf(const CarriedPacket& packet);

} // namespace vxsim
