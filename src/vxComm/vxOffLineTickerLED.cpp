// The exports of major 9.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/ticker.h>

using namespace vxsign;

std::uint32_t vxOffLineTickerStart(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth)
{
    return Send<vxOffLineTickerLED>({9, 1}, Payload(Fields<4>(first, second, third, fourth)));
}

std::uint32_t vxOffLineTickerStop()
{
    return Send<vxOffLineTickerLED>({9, 2});
}
