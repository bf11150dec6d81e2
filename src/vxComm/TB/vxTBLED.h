#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The tube display: major 14, the minor being the caller's.
class vxTBLED : public CBaseCMD
{
};

} // namespace vxsign
