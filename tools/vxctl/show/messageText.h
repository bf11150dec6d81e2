// A text for the face, as it is typed or piped.
#pragma once

#include "vxctl/cli/args.h"

#include <string>

namespace vxctl {

inline constexpr Argument kMessageText =
    Text("TEXT", "the text; \\n breaks the line, - reads the text from standard input");
inline constexpr Argument kAllowEmpty = Flag("--allow-empty", "show a text of nothing, which is a dark face");

// The text with the sign's line breaks. Throws UsageError for an empty one without --allow-empty.
std::string MessageText(const Args& args);

} // namespace vxctl
