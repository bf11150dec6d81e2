// Many signs in one program.
#pragma once

#include "sim/main/options.h"
#include "sim/main/program.h"

namespace vxsim {

// Serves them until the descriptor `end` can be read; `pages` may be null without a page. Throws std::runtime_error if
// the system lets too few files be open.
void ServeMany(const Options& options, const PageMakers* pages, int end);

} // namespace vxsim
