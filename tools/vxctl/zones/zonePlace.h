// The pages and zones that commands name. The records are laid out as signs in the field have them.
#pragma once

#include "vxctl/cli/args.h"

#include <cstdint>

namespace vxctl {

inline constexpr std::uint32_t kMostPages = 12;
inline constexpr std::uint32_t kMostZones = 20;
inline constexpr std::uint32_t kLongestPageStay = 65535;

inline constexpr Argument kPage = Number("PAGE", 1, kMostPages, "the page");
inline constexpr Argument kZone = Number("ZONE", 0, kMostZones, "the zone, 0 for all zones of the page");

inline std::uint8_t PageOf(const Args& args)
{
    return args.Number<std::uint8_t>("PAGE");
}

inline std::uint8_t ZoneOf(const Args& args)
{
    return args.Number<std::uint8_t>("ZONE");
}

} // namespace vxctl
