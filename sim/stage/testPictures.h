// Tests on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/play/testCommands.h"

#include <cstdint>

namespace vxsim {

// Draws what a test shows `elapsedMs` after its start; without a test the face is unlit.
void DrawTest(const FaceTest& test, std::uint64_t elapsedMs, Font& font, Canvas& face);

// A green frame with the module's number in its middle.
void DrawModule(int left, int top, int width, int height, std::uint16_t number, Font& font, Canvas& face);

} // namespace vxsim
