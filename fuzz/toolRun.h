// One command of vxctl in this process, over the line of the thread.
#pragma once

#include "fuzz/support.h"

#include <string>

namespace vxsign::fuzz {

/// Runs the command with these words, blanks between them. Each word that may be the name of a file is one with the
/// given bytes. What vxctl prints must be fit for a terminal and, with json, be JSON. Nothing is done with paths
/// that lead out of the folder.
void RunCommand(const std::string& words, View file, bool json);

} // namespace vxsign::fuzz
