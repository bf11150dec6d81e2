// The font and colour codes of this sign.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>

namespace vxsim {

inline constexpr std::uint8_t kDefaultFontCode = '1';
inline constexpr std::uint8_t kDefaultColourCode = '1';

// '1' to '9' ask for lines of that many times 16 rows, every other code for 16. 0 stands for font code '0': as large as
// the text's one page allows.
int RowsOfFontCode(std::uint8_t code);

// The light of a colour code; a code that isn't in the table gives that of kDefaultColourCode.
Rgb ColourOfCode(std::uint8_t code);

} // namespace vxsim
