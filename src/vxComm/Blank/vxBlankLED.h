#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Plain control of the sign: major 4.
class vxBlankLED : public CBaseCMD
{
};

} // namespace vxsign
