#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Zones and pages: major 54.
class vxParkLED : public CBaseCMD
{
};

} // namespace vxsign
