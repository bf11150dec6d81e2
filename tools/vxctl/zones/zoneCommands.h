// The parts of the command `zone`. The inner layout of the records is that of vxsim.
#pragma once

#include "vxctl/cli/command.h"

#include <cstdint>

namespace vxctl {

inline constexpr const char* kZoneGroup = "Zones and programs";
inline constexpr std::uint32_t kMostPages = 12;
inline constexpr std::uint32_t kMostZones = 20;
inline constexpr std::uint32_t kLongestPageStay = 65535;

struct ZonePlace
{
    std::uint32_t page = 0;
    std::uint32_t zone = 0; // 0 for the whole page

    std::uint8_t Page() const { return static_cast<std::uint8_t>(page); }
    std::uint8_t Zone() const { return static_cast<std::uint8_t>(zone); }
};

// The positional PAGE.
void AddPage(CLI::App& command, ZonePlace& place);

void AddDivisionCommands(CLI::App& zone, Session& session); // divide, list

} // namespace vxctl
