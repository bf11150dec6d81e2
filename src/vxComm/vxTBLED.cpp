// The export of major 14.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/test.h>

using namespace vxsign;

std::uint32_t vxTubeSet(std::uint8_t minor, const std::uint8_t* data, std::uint32_t length)
{
    return Send<vxTBLED>({14, minor}, Payload(Bytes(data, length)));
}
