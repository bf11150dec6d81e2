#include "sim/stage/caption.h"

#include "sim/face/text.h"
#include "sim/face/utf8.h"

#include <array>
#include <string_view>

namespace vxsim {
namespace {

constexpr Rgb kAmber{255, 160, 0};

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
    for (std::string_view rest = caption.text; !rest.empty() && x < face.Width();) {
        const char32_t character = TakeCharacter(rest);
        line.push_back({character, x, top, 1, kAmber});
        x += font.GlyphOf(character).advance;
    }
    DrawPage(line, font, face);
}

} // namespace vxsim
