// calibrate and convert, of the commands for tiles.
#pragma once

#include "vxctl/cli/command.h"

namespace vxctl {

void AddTileCalibration(CLI::App& tile, Session& session);

} // namespace vxctl
