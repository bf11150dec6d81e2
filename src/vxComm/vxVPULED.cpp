// The exports of major 52.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/video.h>

using namespace vxsign;

namespace {

constexpr std::uint32_t kInfoSize = 24;

} // namespace

std::uint32_t vxVPUSelChannel(std::uint8_t first)
{
    return Send<vxVPULED>({52, 1}, Payload(Fields<4>(first)));
}

std::uint32_t vxVPUSetMode(std::uint8_t first, std::uint8_t second)
{
    return Send<vxVPULED>({52, 2}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxVPUSetVideoRatio(std::uint8_t first)
{
    return Send<vxVPULED>({52, 3}, Payload(Fields<4>(first)));
}

std::uint32_t vxVPUSetDVIWin(std::uint16_t value1, std::uint16_t value2)
{
    return Send<vxVPULED>({52, 4}, Payload(Fields<4>(value1, value2)));
}

std::uint32_t vxVPUSetVideoWin(std::uint16_t value1, std::uint16_t value2)
{
    return Send<vxVPULED>({52, 5}, Payload(Fields<4>(value1, value2)));
}

std::uint32_t vxVPUSetVideoArg(std::uint16_t value1, std::uint16_t value2)
{
    return Send<vxVPULED>({52, 6}, Payload(Fields<4>(value1, value2)));
}

std::uint32_t vxVPUGetSignalStatus(std::uint16_t* status1, std::uint16_t* status2, std::uint16_t* status3,
                                   std::uint16_t* status4)
{
    return Send<vxVPULED>({52, 8}, Payload(Fields<4>()),
                          Reply(Out<0>(status1), Out<2>(status2), Out<4>(status3), Out<6>(status4)));
}

std::uint32_t vxVPUType(std::uint8_t first)
{
    return Send<vxVPULED>({52, 9}, Payload(Fields<4>(first)));
}

std::uint32_t vxVPUSlaverStartLine(std::uint16_t value1)
{
    return Send<vxVPULED>({52, 10}, Payload(Fields<4>(value1)));
}

std::uint32_t vxVPUSetColorTemp(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth)
{
    return Send<vxVPULED>({52, 11}, Payload(Fields<4>(first, second, third, fourth)));
}

std::uint32_t vxVPUSetBright(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth)
{
    return Send<vxVPULED>({52, 12}, Payload(Fields<4>(first, second, third, fourth)));
}

std::uint32_t vxVPUGetBright(std::uint8_t* out1, std::uint8_t* out2, std::uint8_t* out3, std::uint8_t* out4)
{
    return Send<vxVPULED>({52, 13}, Payload(Fields<4>()),
                          Reply(Out<0>(out1), Out<1>(out2), Out<2>(out3), Out<3>(out4)));
}

std::uint32_t vxVPUSetGamma(std::uint8_t first)
{
    return Send<vxVPULED>({52, 14}, Payload(Fields<4>(first)));
}

std::uint32_t vxVPUSetLDUNums(std::uint8_t first)
{
    return Send<vxVPULED>({52, 15}, Payload(Fields<4>(first)));
}

std::uint32_t vxVPUSetLDUPos(std::uint16_t value1, std::uint16_t value2, std::uint16_t value3)
{
    // Three fields of 16 bits, of which only the low bytes are used.
    const auto low = [](std::uint16_t value) { return static_cast<std::uint16_t>(value & 0xFF); };
    return Send<vxVPULED>({52, 16}, Payload(Fields<8>(low(value1), low(value2), low(value3))));
}

// The same minor asks and sets: the VPU takes a mode of 0 for the question.
std::uint32_t vxVPUGetInfo(std::uint8_t* info)
{
    return Send<vxVPULED>({52, 17}, Payload(Fields<4>()), Reply(OutBytes<0>(info, kInfoSize)));
}

std::uint32_t vxVPUSetPixcelMode(std::uint8_t first)
{
    return Send<vxVPULED>({52, 17}, Payload(Fields<4>(first)));
}
