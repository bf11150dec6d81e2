#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The offline ticker: major 9.
class vxOffLineTickerLED : public CBaseCMD
{
};

} // namespace vxsign
