#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The FH settings: major 17.
class vxFHLED : public CBaseCMD
{
};

} // namespace vxsign
