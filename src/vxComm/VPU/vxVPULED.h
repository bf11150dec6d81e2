#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The VPU video processor: major 52.
class vxVPULED : public CBaseCMD
{
};

} // namespace vxsign
