#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The MPU video processor: major 53.
class vxMPULED : public CBaseCMD
{
};

} // namespace vxsign
