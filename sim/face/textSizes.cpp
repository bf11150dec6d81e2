// Measures characters by what is lit of them.
#include "sim/face/textSizes.h"

#include <algorithm>

namespace vxsim {

TextSize SizeForPixels(std::span<const char32_t> characters, int pixels, Font& font)
{
    int above = 0;
    int below = 0;
    for (const char32_t character : characters) {
        const Glyph& glyph = font.GlyphOf(font.KeyOf({character, pixels}));
        above = std::max(above, -glyph.top);
        below = std::max(below, glyph.top + glyph.Height());
    }
    return {pixels, above + below, above};
}

TextSize SizeForRows(std::span<const char32_t> characters, int rows, Font& font)
{
    TextSize size = SizeForPixels(characters, rows, font);
    while (size.rows > rows && size.pixels > Font::kSmallest)
        size = SizeForPixels(characters, size.pixels - 1, font);
    // A line keeps its height and its foot, whatever stands on it.
    const int foot = std::max(size.foot, std::min(FootOf(rows), rows - (size.rows - size.foot)));
    return {size.pixels, std::max(rows, size.rows), foot};
}

} // namespace vxsim
