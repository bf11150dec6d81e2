// The command families that add nothing to CBaseCMD. Each stands for its rows of the protocol, and tells them apart
// where a command is made or a breakpoint is set.
#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// Test patterns and direct access to the protocol: major 3.
class vxTestLED : public CBaseCMD
{
};

/// Plain control of the sign: major 4.
class vxBlankLED : public CBaseCMD
{
};

/// The clock and the surroundings of the sign: major 5.
class vxTimeLED : public CBaseCMD
{
};

/// What the sign plays: major 6.
class vxPlayCtrlLED : public CBaseCMD
{
};

/// The sign's drives, folders and files: major 7.
class vxFileCtrlLED : public CBaseCMD
{
};

/// The ticker and the buffers that it fills: major 8.
class vxTickerLED : public CBaseCMD
{
};

/// The offline ticker: major 9.
class vxOffLineTickerLED : public CBaseCMD
{
};

/// Login and passwords: major 10.
class vxLoginLED : public CBaseCMD
{
};

/// The traffic signal controller: major 10, and the clock of major 5.
class vxTrafficLED : public CBaseCMD
{
};

/// The tube display: major 14, the minor being the caller's.
class vxTBLED : public CBaseCMD
{
};

/// The pixel check: major 16.
class vxPixcelLED : public CBaseCMD
{
};

/// The FH settings: major 17.
class vxFHLED : public CBaseCMD
{
};

/// The VPU video processor: major 52.
class vxVPULED : public CBaseCMD
{
};

/// The MPU video processor: major 53.
class vxMPULED : public CBaseCMD
{
};

/// Zones and pages: major 54.
class vxParkLED : public CBaseCMD
{
};

/// The extra board: major 96.
class vxExtraBDLED : public CBaseCMD
{
};

/// The player core: major 122.
class vxPlayerLED : public CBaseCMD
{
};

/// Boot loaders, which receive without the packets of the sign.
class vxXModemLED : public CBaseCMD
{
};

} // namespace vxsign
