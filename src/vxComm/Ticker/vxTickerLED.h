#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The ticker and the buffers that it fills: major 8.
class vxTickerLED : public CBaseCMD
{
};

} // namespace vxsign
