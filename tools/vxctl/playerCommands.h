// The parts of the command `player`.
#pragma once

#include "vxctl/command.h"

namespace vxctl {

inline constexpr const char* kProgramGroup = "Zones and programs";

void AddProgramCommands(CLI::App& player, Context& context); // put, list, info, delete

} // namespace vxctl
