// The commands of the sign as a table of its document.
#pragma once

#include "sim/command/commandFamily.h"

#include <span>
#include <string>

namespace vxsim {

std::string CommandTable(std::span<const CommandRow> rows);

} // namespace vxsim
