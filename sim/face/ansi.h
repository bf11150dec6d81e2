// The face in a terminal.
#pragma once

#include "sim/face/canvas.h"

#include <string>

namespace vxsim {

// The face as lines of half blocks in 24-bit colours, two rows of pixels in each line; as quarter blocks, two columns
// in each character and the nearest two of their colours, where so many columns do not hold the half blocks; else one
// line that says how wide the terminal must be. 0 columns hold any face. Every line ends with the colours reset and a
// line feed; an odd last row has the terminal's own background below it.
std::string AnsiFace(const Canvas& face, int columns = 0);

} // namespace vxsim
