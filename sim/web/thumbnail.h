// A face in small.
#pragma once

#include "sim/face/canvas.h"

namespace vxsim {

inline constexpr int kThumbnailSide = 256; // pixels at most

// As large as that at most; each pixel is the mean of those that it stands for.
Canvas ThumbnailOf(const Canvas& face);

} // namespace vxsim
