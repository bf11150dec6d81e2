#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The pixel check: major 16.
class vxPixcelLED : public CBaseCMD
{
};

} // namespace vxsign
