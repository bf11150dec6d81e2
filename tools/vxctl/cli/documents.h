// The parts of the documents that come from the rows.
#pragma once

#include "vxctl/cli/command.h"

#include <string>

namespace vxctl {

// "put LOCAL PATH", "df [DRIVE...]", "power on|off|status".
std::string SynopsisOf(const Command& command);

// The tables of docs/vxctl.md.
std::string MarkdownTables();

// The sections OPTIONS and COMMANDS of the manual page.
std::string ManualSections();

} // namespace vxctl
