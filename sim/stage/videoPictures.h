// Pictures of the video processors on the face.
#pragma once

#include "sim/boards/videoProcessors.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"

#include <cstdint>

namespace vxsim {

// Puts the pictures of the inputs that are shown over the face: that of the VPU's channel, then the MPU's window.
void DrawVideo(const VideoProcessors& video, std::uint64_t nowMs, Font& font, Canvas& face);

// Leaves of each colour what gets through.
void Tint(const VideoLevels& levels, Canvas& face);

} // namespace vxsim
