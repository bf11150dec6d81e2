// Many signs in one program.
#pragma once

#include "sim/main/options.h"

namespace vxsim {

// Serves them until the descriptor `end` can be read. Throws std::runtime_error if the system lets too few files be
// open.
void ServeMany(const Options& options, int end);

} // namespace vxsim
