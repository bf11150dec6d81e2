// The exports of major 17.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/control.h>

using namespace vxsign;

std::uint32_t vxSetFH(std::uint8_t first, std::uint8_t second)
{
    return Send<vxFHLED>({17, 1}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxGetFH(std::uint8_t* first, std::uint8_t* second)
{
    return Send<vxFHLED>({17, 2}, Reply(Out<0>(first), Out<1>(second)));
}
