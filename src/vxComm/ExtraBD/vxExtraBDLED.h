#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The extra board: major 96.
class vxExtraBDLED : public CBaseCMD
{
};

} // namespace vxsign
