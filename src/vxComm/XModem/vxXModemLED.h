#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Boot loaders, which receive without the packets of the sign.
class vxXModemLED : public CBaseCMD
{
};

} // namespace vxsign
