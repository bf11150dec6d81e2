// The command line of vxbridge, and its file of settings.
#pragma once

#include "vxbridge/service/settings.h"

#include <optional>

namespace vxbridge {

// The exit status when nothing more is to be done. Throws vxctl::UsageError.
std::optional<int> ReadOptions(int argc, char** argv, Settings& settings);

} // namespace vxbridge
