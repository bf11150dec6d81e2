// What a shell may offer next.
#pragma once

#include <string>
#include <vector>

namespace vxctl {

// Lines for the completion scripts, for the words behind the tool's name, of which the last one is being typed: a word
// with its meaning behind a blank, or ":file" for the files of this PC.
std::string Complete(const std::vector<std::string>& words);

} // namespace vxctl
