// The fonts of the smallest lines, drawn dot by dot: 5x7, and 7x9 with bold strokes and long tails.
#pragma once

#include "sim/face/glyph.h"

#include <string_view>
#include <unordered_map>

namespace vxsim {

class DotFont
{
public:
    // Reads a drawing: bands of a line of characters, each at the left of its cell, `rows` lines of dots below and an
    // empty line. Cells have a column more than the font. Accented Latin letters are put together from theirs.
    DotFont(std::string_view drawing, int columns, int rows);

    static const DotFont& Of5x7();
    static const DotFont& Of7x9();

    // Null for a character that the font lacks.
    const Glyph* Find(char32_t character) const;

private:
    std::unordered_map<char32_t, Glyph> glyphs;
};

} // namespace vxsim
