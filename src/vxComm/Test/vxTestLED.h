#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Test patterns and direct access to the protocol: major 3.
class vxTestLED : public CBaseCMD
{
};

} // namespace vxsign
