#include "sim/stage/caption.h"

#include "sim/face/text.h"
#include "sim/face/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace vxsim {
namespace {

constexpr Rgb kAmber{255, 160, 0};
constexpr std::size_t kLongestLine = 256;

} // namespace

void DrawCaption(const Caption& caption, Font& font, Canvas& face)
{
    if (caption.text.empty())
        return;
    if (caption.wholeFace) {
        const std::array runs{TextRun{caption.text, kDefaultFontCode, kAmber}};
        const std::vector<Page> pages = SetText(runs, face.Width(), face.Height(), font);
        face.Clear();
        if (!pages.empty())
            DrawPage(pages.front(), font, face);
        return;
    }
    const int top = face.Height() - kGlyphHeight;
    for (int y = top; y < face.Height(); ++y)
        for (int x = 0; x < face.Width(); ++x)
            face.Set(x, y, {});
    int x = 0;
    Page line;
    for (std::string_view rest = caption.text; !rest.empty() && line.size() < kLongestLine;) {
        const char32_t character = TakeCharacter(rest);
        line.push_back({character, x, top, 1, kAmber});
        x += font.GlyphOf(character).advance;
    }
    const int beyond = std::max(x - face.Width(), 0); // the end of a long line is what has changed
    for (PlacedGlyph& glyph : line)
        glyph.x -= beyond;
    DrawPage(line, font, face);
}

} // namespace vxsim
