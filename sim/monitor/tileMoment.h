// The sign around the tiles.
#pragma once

#include "sim/state/climate.h"
#include "sim/state/condition.h"

#include <cstdint>

namespace vxsim {

// What the tiles have to know of the rest of the sign at the time of a call.
struct TileMoment
{
    std::uint64_t nowMs = 0;
    const Condition& condition;
    Climate climate;
    std::uint32_t runSeconds = 0;
};

} // namespace vxsim
