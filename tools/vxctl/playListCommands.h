// The parts of the playlist command.
#pragma once

#include "vxctl/context.h"

#include <CLI/CLI.hpp>

namespace vxctl {

void AddPlayListTree(CLI::App& app, Context& context);     // ls
void AddPlayListTransfer(CLI::App& app, Context& context); // save, import, send, fetch
void AddPlayListPreview(CLI::App& app, Context& context);  // preview

} // namespace vxctl
