// From the bytes of a text to the characters that are set.
#pragma once

#include "sim/face/lineSetter.h"
#include "sim/face/text.h"

#include <span>
#include <vector>

namespace vxsim {

// The runs' characters, unmeasured, up to kMostCharacters. Letters and accents that have one code together become one
// character; Indic vowel signs stand where they are seen; control characters other than '\n' and '\f' are dropped. The
// size of a character is its font code's multiple of the smallest, 0 for font code '0'.
std::vector<Character> Decode(std::span<const TextRun> runs);

} // namespace vxsim
