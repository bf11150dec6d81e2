// From the command line to the run function of a row.
#pragma once

#include "vxctl/cli/session.h"

#include <string>
#include <vector>

namespace vxctl {

// Does what the words behind the tool's name say, and gives the result word. Throws SignFailure and UsageError.
std::uint32_t Execute(Session& session, const std::vector<std::string>& words);

// The help of the command with this name, with its families ahead; of the tool for none. Throws UsageError.
std::string HelpOf(const std::string& name);

// The tool: its exit status.
int RunTool(const std::vector<std::string>& words);

} // namespace vxctl
