// The parts of the playlist command.
#pragma once

#include "vxctl/cli/session.h"

#include <CLI/CLI.hpp>

namespace vxctl {

void AddPlayListTree(CLI::App& app, Session& session);     // ls
void AddPlayListTransfer(CLI::App& app, Session& session); // save, import, send, fetch
void AddPlayListPreview(CLI::App& app, Session& session);  // preview

} // namespace vxctl
