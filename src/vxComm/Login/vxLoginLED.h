#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Login and passwords: major 10.
class vxLoginLED : public CBaseCMD
{
};

} // namespace vxsign
