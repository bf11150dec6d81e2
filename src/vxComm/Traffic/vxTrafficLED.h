#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The traffic signal controller: major 10, and the clock of major 5.
class vxTrafficLED : public CBaseCMD
{
};

} // namespace vxsign
