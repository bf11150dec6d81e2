#pragma once

#include "vxctl/command.h"

namespace vxctl {

inline constexpr const char* kTrafficGroup = "Traffic controllers";

void AddTrafficLogs(CLI::App& traffic, Context& context); // flow, errors, temperatures

} // namespace vxctl
