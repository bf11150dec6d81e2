// Steers what plays, and tells of it.
#ifndef VXSIGN_CPP_PLAY_HPP
#define VXSIGN_CPP_PLAY_HPP

#include <vxsign/cpp/codes.hpp>
#include <vxsign/cpp/frame.hpp>
#include <vxsign/play.h>

#include <array>

namespace vxsign::detail {

// The name that the sign gives; nothing when nothing plays.
inline std::optional<std::string> ReadPlaying(const Frame& frame)
{
    std::array<char, 256> name{};
    const std::uint32_t result = vxGetPlayingFileName(name.data(), static_cast<std::uint32_t>(name.size()));
    if (result == VX_NOTHING_PLAYS)
        return std::nullopt;
    Check(result);
    return frame.Decode(Field(name.data(), name.size()));
}

inline void PlayFirst(const Frame& frame, std::string_view path)
{
    constexpr std::size_t kLongest = 12;
    const PlayFile file = ParsePlayFile(path);
    const std::string name = frame.Encode(file.name);
    if (name.empty() || name.size() > kLongest)
        Refuse("the name of a file that plays has 1 to " + std::to_string(kLongest) + " bytes");
    Check(vxPlayPriority(file.drive, file.folder, name.c_str()));
}

inline void Play(const Frame& frame, std::string_view action)
{
    struct Step
    {
        std::string_view name;
        std::uint32_t (*take)();
    };
    constexpr Step kSteps[] = {{"next", vxPlayNext},         {"previous", vxPlayPrevious}, {"pause", vxPlayPause},
                               {"continue", vxPlayContinue}, {"replay", vxReplayList},     {"again", vxReplayCurrFile}};
    for (const Step& step : kSteps)
        if (step.name == action)
            return Check(step.take());
    PlayFirst(frame, action);
}

} // namespace vxsign::detail

#endif
