#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The player core: major 122.
class vxPlayerLED : public CBaseCMD
{
};

} // namespace vxsign
