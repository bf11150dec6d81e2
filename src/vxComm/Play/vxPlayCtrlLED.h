#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// What the sign plays: major 6.
class vxPlayCtrlLED : public CBaseCMD
{
};

} // namespace vxsign
