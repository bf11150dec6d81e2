// Back to the play list, whatever is over it.
#ifndef VXSIGN_CPP_RESTORE_HPP
#define VXSIGN_CPP_RESTORE_HPP

#include <vxsign/cpp/status.hpp>
#include <vxsign/player.h>
#include <vxsign/ticker.h>
#include <vxsign/video.h>
#include <vxsign/zones.h>

namespace vxsign::detail {

// Something over the play list, as the sign names it, and what ends it.
struct Cover
{
    const char* name;
    std::uint32_t (*end)();
};

inline std::uint32_t StopPrograms()
{
    return vxCoreStopPlay(reinterpret_cast<const std::uint8_t*>(""));
}

// What a sign does not tell of is told to end all the same; one that refuses that has nothing of the kind. Gives the
// names of what was there, or may have been.
inline std::vector<std::string> Restore()
{
    static constexpr Cover kCovers[] = {
        {"off", [] { return vxPowerOnOff(1); }},
        {"blank", vxEndBlackScreen},
        {"emergency", vxCoreStopEmergencyProgram},
        {"test", vxStopTest},
        {"ticker", vxTickerStop},
        {"windows", StopPrograms},
        {"video-window", [] { return vxMPUSetWin(0, 0, 0, 0, 0, 0, nullptr); }},
        {"video-input", [] { return vxVPUSelChannel(0); }},
        {"program", StopPrograms},
        {"zones", [] { return vxSetEnableMulitZone(0); }},
    };
    const FaceState face = ReadFace();
    std::vector<std::string> ended;
    for (const Cover& cover : kCovers) {
        if (face.shows && std::find(face.shows->begin(), face.shows->end(), cover.name) == face.shows->end())
            continue;
        const std::uint32_t result = cover.end();
        if (face.shows)
            Check(result);
        if (IsDone(result))
            ended.emplace_back(cover.name);
    }
    return ended;
}

} // namespace vxsign::detail

#endif
