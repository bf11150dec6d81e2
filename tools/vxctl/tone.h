// Colours for what is right and wrong, on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace vxctl {

enum class Tone
{
    kPlain,
    kFine,
    kDoubtful,
    kWrong
};

// The text in the colour of its tone, when standard output is a terminal and the environment does not ask for none with
// NO_COLOR; else as it is.
std::string Toned(std::string_view text, Tone tone);

} // namespace vxctl
