// The codes in a message, as people write them.
#pragma once

#include "vxctl/cli/argument.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// A font: one character from '0' to '~' stands for itself, anything longer is a number from 48 to 169.
std::uint32_t ParseFont(std::string_view text);

// A mode: one character from '0' to '~' stands for itself, anything longer is a number from 48 to 255.
std::uint32_t ParseMode(std::string_view text);

// A colour: a name or "#RRGGBB", both sent as three colour bytes; or one character or a number from 48 to 255, a code
// of the sign's own.
std::uint32_t ParseColour(std::string_view text);

// The names of colours.
std::vector<std::string_view> ColourNames();

// A code as it may be given: the character that it is, otherwise the number.
std::string CodeText(std::uint8_t code);

// The arguments, which throw UsageError for anything else.
inline constexpr ArgumentType kFontCode{"FONT", Checked<ParseFont>};
inline constexpr ArgumentType kModeCode{"MODE", Checked<ParseMode>};
inline constexpr ArgumentType kColourCode{"COLOUR", Checked<ParseColour>};

} // namespace vxctl
