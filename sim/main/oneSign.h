// One sign, and whoever looks at it.
#pragma once

#include "sim/main/options.h"
#include "sim/main/program.h"

namespace vxsim {

// Serves the sign until the descriptor `end` can be read.
void ServeOne(const Options& options, const PageMakers* pages, int end);

} // namespace vxsim
