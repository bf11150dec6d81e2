// Bad lamps and hot tiles on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/monitor/monitor.h"

namespace vxsim {

// Draws what is wrong with the lamps over the face: a hot tile has a quarter of its light, bad lamps are dark or, while
// the sign has power, stuck at full light.
void DrawFaults(const Monitor& monitor, bool isOn, Canvas& face);

} // namespace vxsim
