#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The clock and the surroundings of the sign: major 5.
class vxTimeLED : public CBaseCMD
{
};

} // namespace vxsign
