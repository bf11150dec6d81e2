// The signals of a traffic signal controller on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/traffic/signalProgram.h"

namespace vxsim {

// The signal heads of an intersection side by side, each with its group's sign and all of its lamps, and at the left
// what the controller does: A, M, T or L for automatic, manual, temporary phase and lamp test, and the phase.
void DrawSignalHeads(const SignalSituation& signals, Font& font, Canvas& face);

} // namespace vxsim
