#include "vxComm/Blank/vxBlankLED.h"

#include "vxBaseCMD/call.h"

#include <vxsign/control.h>

using namespace vxsign;

std::uint32_t vxBlackScreen()
{
    return Send<vxBlankLED>({4, 1});
}

std::uint32_t vxEndBlackScreen()
{
    return Send<vxBlankLED>({4, 2});
}
