// The face as a JPEG file, a pixel for each lamp.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>
#include <vector>

namespace vxsim {

// Empty if the picture can't be made.
std::vector<std::uint8_t> JpegFace(const Canvas& face);

} // namespace vxsim
