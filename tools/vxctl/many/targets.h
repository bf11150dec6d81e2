// The signs that a command line names.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/cli/options.h"

#include <string>
#include <vector>

namespace vxctl {

// Those that the words name, or those of the file of --retry-failed where that names any: in the order of the book,
// then by their URLs; each once. The book tells how to reach a sign, unless the command line does. Throws UsageError.
std::vector<Target> TargetsOf(const Args& args, const std::vector<std::string>& words);

// The names in such a file, one on a line; none where there is no file.
std::vector<std::string> ReadNames(const std::string& file);

// Writes them; no names, no file. Throws SignFailure.
void WriteNames(const std::string& file, const std::vector<std::string>& names);

} // namespace vxctl
