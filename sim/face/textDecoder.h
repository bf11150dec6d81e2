// From the bytes of a text to the characters that are set.
#pragma once

#include "sim/face/lineSetter.h"
#include "sim/face/text.h"

#include <span>
#include <string>
#include <vector>

namespace vxsim {

struct Decoded
{
    std::vector<Character> characters; // unmeasured, up to kMostCharacters
    bool isCut = false;                // the runs have more
};

// The runs' characters. Letters and accents that have one code together become one
// character; Indic vowel signs stand where they are seen; control characters other than '\n' and '\f' are dropped. The
// size of a character is its font code's multiple of the smallest, 0 for font code '0'.
Decoded Decode(std::span<const TextRun> runs, const std::string& encoding);

} // namespace vxsim
