// A face on standard output.
#pragma once

#include "vxctl/cli/shown.h"

#include "sim/face/canvas.h"

#include <vector>

namespace vxctl {

// The lines of the face: as vxsim draws it on a terminal that takes colours, else its lit pixels as plain blocks.
std::vector<Shown> DrawnFace(const vxsim::Canvas& face);

} // namespace vxctl
