// Why a face is dark, or shows something else than its play list.
#pragma once

#include "vxctl/state/findings.h"

namespace vxctl {

// Throws SignFailure when the line fails.
void ExamineFace(Findings& findings);

} // namespace vxctl
