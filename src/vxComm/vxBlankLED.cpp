// The exports of major 4.
#include "platform/stop.h"
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/control.h>

using namespace vxsign;

namespace {

constexpr std::uint32_t kBlockSize = 8; // of beacons, equipment and generator

// The reset to data flash.
constexpr std::uint16_t kPolls = 100;
constexpr std::uint32_t kStartMs = 300;
constexpr std::uint32_t kPollMs = 30;

} // namespace

std::uint32_t vxResetSystem()
{
    return Send<vxBlankLED>({4, 0});
}

std::uint32_t vxBlackScreen()
{
    return Send<vxBlankLED>({4, 1});
}

std::uint32_t vxEndBlackScreen()
{
    return Send<vxBlankLED>({4, 2});
}

std::uint32_t vxPowerOnOff(std::int8_t on)
{
    return on != 0 ? Send<vxBlankLED>({4, 4}) : Send<vxBlankLED>({4, 3}, Payload(Fields<4>(std::uint8_t{1})));
}

std::uint32_t vxGetPowerState(std::uint8_t* first, std::uint8_t* second)
{
    return Send<vxBlankLED>({4, 5}, Reply(Out<0>(first), Out<1>(second)));
}

std::uint32_t vxChangeBaudRate(std::uint8_t rateCode)
{
    return Send<vxBlankLED>({4, 6}, Payload(Fields<32>(rateCode)));
}

std::uint32_t vxBrightAdjust(std::uint8_t level)
{
    return Send<vxBlankLED>({4, 7}, Payload(Fields<4>(level)));
}

std::uint32_t vxBrightAdjustEx(std::uint8_t first, std::uint8_t second)
{
    return Send<vxBlankLED>({4, 7}, Payload(Fields<4>(first, second)));
}

std::uint32_t vxSetEthCheck(std::uint8_t value)
{
    return Send<vxBlankLED>({4, 8}, Payload(Fields<4>(value, value)));
}

std::uint32_t vxReadEthCheck(std::uint8_t* first, std::uint8_t* second)
{
    return Send<vxBlankLED>({4, 9}, Reply(Out<0>(first), Out<1>(second)));
}

std::uint32_t vxSetBeacon(const std::uint64_t* value)
{
    return Send<vxBlankLED>({4, 10}, Payload(Bytes(value, kBlockSize)));
}

std::uint32_t vxGetBeacon(std::uint8_t* out)
{
    return Send<vxBlankLED>({4, 11}, Reply(ShortCopy(out, kBlockSize)));
}

std::uint32_t vxCommitStatusRW(std::uint8_t first, std::uint8_t second, std::uint8_t* out)
{
    return Send<vxBlankLED>({4, 13}, Payload(Fields<8>(second, first)), Reply(Optional(Out<0>(out))));
}

std::uint32_t vxSwitchOnlineOffline(std::uint8_t mode)
{
    return Send<vxBlankLED>({4, 19}, Payload(Fields<4>(mode)));
}

std::uint32_t vxResetSystemCool()
{
    return Send<vxBlankLED>({4, 20});
}

std::uint32_t vxBrightAdjustSides(const void* sides)
{
    return Send<vxBlankLED>({4, 21}, Payload(Bytes(sides, kBlockSize)));
}

std::uint32_t vxResetSystemToDataFlash()
{
    return Call<vxBlankLED>([](vxBlankLED& sign) {
        std::uint32_t result = sign.Request(4, 25);
        platform::Rest(kStartMs);
        if (result != VX_OK)
            return result;
        sign.config->progressTotal = kPolls;
        for (std::uint16_t poll = 0; poll < kPolls; ++poll) {
            result = sign.Request(12, 13);
            platform::Rest(kPollMs);
            sign.config->progressPos = poll;
            sign.Progress(poll);
            if (result == VX_OK) {
                sign.Progress(100);
                break;
            }
        }
        return result;
    });
}

std::uint32_t vxSetSignBeacon(const std::uint64_t* value)
{
    return Send<vxBlankLED>({4, 26}, Payload(Bytes(value, kBlockSize)), Extended(Fields<1>(std::uint8_t{100})));
}

std::uint32_t vxGetSignBeacon(std::uint8_t* out)
{
    return Send<vxBlankLED>({4, 27}, Reply(ShortCopy(out, kBlockSize)));
}

std::uint32_t vxSetExternalEquipment(const std::uint64_t* value)
{
    return Send<vxBlankLED>({4, 28}, Payload(Bytes(value, kBlockSize)));
}

std::uint32_t vxGetExternalEquipment(std::uint8_t* out)
{
    return Send<vxBlankLED>({4, 29}, Reply(ShortCopy(out, kBlockSize)));
}

std::uint32_t vxGeneratorSet(std::uint8_t first, std::uint8_t second, void* out)
{
    return Send<vxBlankLED>({4, 32}, Payload(Fields<4>(first, second)), Reply(Optional(ShortCopy(out, kBlockSize))));
}

std::uint32_t vxSetLCS(std::uint8_t value)
{
    return Send<vxBlankLED>({4, 36}, Payload(Fields<4>(value)));
}

std::uint32_t vxGetLCS(std::uint8_t* out)
{
    return Send<vxBlankLED>({4, 37}, Reply(Out<0>(out)));
}

std::uint32_t vxPlayVoice(std::uint8_t first, std::uint8_t second, const void* data, std::uint8_t dataLength)
{
    return Send<vxBlankLED>({4, 38}, Payload(Fields<4>(first, second)), Extended(Bytes(data, dataLength)));
}
