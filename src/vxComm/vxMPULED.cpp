// The exports of major 53.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/video.h>

using namespace vxsign;

namespace {

constexpr std::size_t kEdidSize = 15;

} // namespace

std::uint32_t vxMPUSelChannel(std::uint8_t first, std::uint8_t second)
{
    return Send<vxMPULED>({53, 1}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxMPUSetVideoArg(std::uint8_t first, std::uint8_t second)
{
    return Send<vxMPULED>({53, 6}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxMPUSetHDMI_DP_Out(std::uint8_t first, std::uint8_t second)
{
    return Send<vxMPULED>({53, 23}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxMPUSetEDID(std::uint8_t first, const std::uint8_t* edid)
{
    return Send<vxMPULED>({53, 27}, Payload(Fields<16>(first, Copy<kEdidSize>{edid})));
}

std::uint32_t vxMPUSetINBPhase(std::uint8_t first, std::uint8_t second)
{
    return Send<vxMPULED>({53, 28}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxMPUSelChannelEx(std::uint8_t first, std::uint8_t second)
{
    return Send<vxMPULED>({53, 30}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxMPUSetWin(std::uint16_t first, std::uint16_t value1, std::uint16_t value2, std::uint16_t value3,
                          std::uint16_t value4, std::uint8_t last, std::uint32_t* taskId)
{
    const auto low = static_cast<std::uint8_t>(first);
    return Send<vxMPULED>({53, 31}, Payload(Fields<12>(low, value1, value2, value3, value4, last)),
                          Reply(Optional(Out<0>(taskId))));
}

std::uint32_t vxMPUProgressByTaskID(std::uint32_t taskId, std::uint8_t* progress)
{
    return Send<vxMPULED>({53, 0xFE}, Payload(Fields<4>(taskId)), Reply(Out<0>(progress)));
}
