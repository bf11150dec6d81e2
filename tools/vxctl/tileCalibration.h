// calibrate and convert, of the commands for tiles.
#pragma once

#include "vxctl/command.h"

namespace vxctl {

void AddTileCalibration(CLI::App& tile, Context& context);

} // namespace vxctl
