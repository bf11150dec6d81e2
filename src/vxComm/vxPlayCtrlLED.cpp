// The exports of major 6.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/play.h>

using namespace vxsign;

namespace {

std::uint32_t GetFileName(std::uint8_t minor, char* out, std::uint32_t outLength)
{
    return Call<vxPlayCtrlLED>(Required(out), [=](vxPlayCtrlLED& sign) {
        const std::uint32_t result = SendOn(sign, {6, minor}, Payload(Fields<4>(std::uint8_t{1})));
        if (result == VX_OK) {
            std::memset(out, 0, outLength);
            sign.Reply().Copy(out, 0, std::min(outLength, sign.Reply().PayloadLength()));
        }
        return result;
    });
}

} // namespace

std::uint32_t vxReplayList()
{
    return Send<vxPlayCtrlLED>({6, 1});
}

std::uint32_t vxReplayCurrFile()
{
    return Send<vxPlayCtrlLED>({6, 2});
}

std::uint32_t vxPlayPause()
{
    return Send<vxPlayCtrlLED>({6, 3});
}

std::uint32_t vxPlayContinue()
{
    return Send<vxPlayCtrlLED>({6, 4});
}

std::uint32_t vxPlayNext()
{
    return Send<vxPlayCtrlLED>({6, 5});
}

std::uint32_t vxPlayPriority(std::uint8_t first, std::uint8_t second, const char* name)
{
    return Send<vxPlayCtrlLED>({6, 6}, Payload(Fields<16>(first, second, Name<12>{name})));
}

std::uint32_t vxGetPlayingFileName(char* out, std::uint32_t outLength)
{
    return GetFileName(7, out, outLength);
}

std::uint32_t vxGetNextPlayFileName(char* out, std::uint32_t outLength)
{
    return GetFileName(8, out, outLength);
}

std::uint32_t vxPlayPrevious()
{
    return Send<vxPlayCtrlLED>({6, 9});
}

std::uint32_t vxPlayForword()
{
    return Send<vxPlayCtrlLED>({6, 10});
}

std::uint32_t vxPlayBack()
{
    return Send<vxPlayCtrlLED>({6, 11});
}

std::uint32_t vxPlayNextFrame()
{
    return Send<vxPlayCtrlLED>({6, 12});
}

std::uint32_t vxSoundCtrl(std::uint8_t first, std::uint8_t second, std::uint8_t third)
{
    return Send<vxPlayCtrlLED>({6, 15}, Payload(Fields<8>(first, second, third)));
}

std::uint32_t vxBeginTiming(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth)
{
    return Send<vxPlayCtrlLED>({6, 17}, Payload(Fields<4>(first, second, third, fourth)));
}

std::uint32_t vxStopTiming()
{
    return Send<vxPlayCtrlLED>({6, 18});
}

std::uint32_t vxPauseTiming()
{
    return Send<vxPlayCtrlLED>({6, 19});
}

std::uint32_t vxContinueTiming()
{
    return Send<vxPlayCtrlLED>({6, 20});
}

std::uint32_t vxClearTJRadarLog()
{
    return Send<vxPlayCtrlLED>({6, 22});
}

std::uint32_t vxPlaySpePlaylist(std::uint8_t index)
{
    return Send<vxPlayCtrlLED>({6, 24}, Payload(Fields<4>(index)));
}

std::uint32_t vxPlaySoundFile(std::uint64_t value, const char* name)
{
    // The name is announced at its full length, although no more than this of it goes out.
    constexpr std::size_t kNameSize = 248;
    const Fields<sizeof value + kNameSize> request(value, Name<kNameSize>{name});
    return Send<vxPlayCtrlLED>({6, 26}, Payload(OfLength(request, sizeof value + TextLength(name))));
}

std::uint32_t vxPlaySoundFile4j(const std::uint64_t* value, const char* name)
{
    return value != nullptr ? vxPlaySoundFile(*value, name) : vxPlaySoundFile(0, nullptr);
}

std::uint32_t vxAdjustVolume(std::uint8_t volume)
{
    return Send<vxPlayCtrlLED>({6, 27}, Payload(Fields<4>(volume)));
}

std::uint32_t vxReadCurVolume(std::uint8_t* out)
{
    return Send<vxPlayCtrlLED>({6, 28}, Reply(Out<0>(out)));
}

std::uint32_t vxReadSpePlayListIndex(std::uint8_t* out)
{
    return Send<vxPlayCtrlLED>({6, 29}, Reply(Out<0>(out)));
}
