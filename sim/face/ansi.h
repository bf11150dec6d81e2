// The face in a terminal.
#pragma once

#include "sim/face/canvas.h"

#include <string>

namespace vxsim {

// The face as lines of half blocks in 24-bit colours, two rows of pixels in each line. Every line ends with the
// colours reset and a line feed; an odd last row has the terminal's own background below it.
std::string AnsiFace(const Canvas& face);

} // namespace vxsim
