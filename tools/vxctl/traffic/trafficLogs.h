#pragma once

#include "vxctl/cli/command.h"

namespace vxctl {

inline constexpr const char* kTrafficGroup = "Traffic controllers";

void AddTrafficLogs(CLI::App& traffic, Session& session); // flow, errors, temperatures

} // namespace vxctl
