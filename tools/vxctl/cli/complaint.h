// What is wrong about a command line.
#pragma once

#include "vxctl/cli/commandLine.h"

#include <string>
#include <string_view>

namespace vxctl {

// What the parser refused, in words of the tool: unknown words in their order, with what may have been meant.
std::string Complaint(const CommandLine& line, const CLI::ParseError& error);

// "unknown command WORD", with what may have been meant; of a family such as "zone ", or of none.
std::string UnknownCommand(std::string_view family, std::string_view word);

// Where more stands about the command with this name; about all for none.
std::string WhereToRead(const std::string& name);

} // namespace vxctl
