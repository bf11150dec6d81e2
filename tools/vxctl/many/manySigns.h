// A command for many signs: a line for each as it ends, and what became of all.
#pragma once

#include "vxctl/cli/outcome.h"

#include <vector>

namespace vxctl {

// Gives the exit status. Throws UsageError when nothing was sent.
int RunMany(const Order& order, const std::vector<Target>& signs);

} // namespace vxctl
