// Tests and calibration of tiles on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/tiles/tileWall.h"

#include <cstdint>

namespace vxsim {

// Draws over the face what tiles show of themselves at that time: the picture for a calibration, the tests.
void DrawTiles(const TileWall& wall, std::uint64_t nowMs, Font& font, Canvas& face);

// Turns what the face should show into what its tiles make of it.
void CalibrateFace(const TileWall& wall, Canvas& face);

} // namespace vxsim
