// The parts of the command `player`.
#pragma once

#include "vxctl/cli/command.h"

namespace vxctl {

inline constexpr const char* kProgramGroup = "Zones and programs";

void AddProgramCommands(CLI::App& player, Session& session); // put, list, info, delete

} // namespace vxctl
