// The message that the sign shows, and its conversion to a picture by the caller.
#pragma once

#include "thread/threadRecords.h"

#include <string_view>

namespace vxsign {

/// The message that stands for none, where the sign answers VX_NOTHING_PLAYS.
constexpr std::string_view kBlankMessage = "__BLANK.VXB";

/// The longest path that the sign is asked for.
constexpr std::size_t kPlayingPathSize = 256;

/// A message's name without its folder, whichever separator that has: the name must not lead out of the folder that it
/// is put behind. So ".." is none.
inline std::string_view MessageName(std::string_view path)
{
    const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    return name == ".." ? std::string_view() : name;
}

/// Calls onMessageToGif, which must be set, with the settings that the callers' converters were written for.
inline void ConvertMessage(vxApiConfig& config, const char* message, const char* gif)
{
    constexpr std::uint32_t kFirstSetting = 20;
    constexpr std::uint32_t kSecondSetting = 1000;
    config.onMessageToGif(&config, message, gif, kFirstSetting, kSecondSetting);
}

} // namespace vxsign
