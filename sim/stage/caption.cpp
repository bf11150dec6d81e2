#include "sim/stage/caption.h"

#include "sim/face/text.h"

#include <algorithm>
#include <array>

namespace vxsim {
namespace {

constexpr Rgb kAmber{255, 160, 0};
constexpr int kRows = 16;

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
    const TextLine line = SetLine(caption.text, std::min(kRows, face.Height()), kAmber, font);
    const int top = face.Height() - line.height;
    for (int y = top; y < face.Height(); ++y)
        for (int x = 0; x < face.Width(); ++x)
            face.Set(x, y, {});
    const int beyond = std::max(line.width - face.Width(), 0); // the end of a long line is what has changed
    DrawPage(line.glyphs, font, face, -beyond, top - line.top);
}

} // namespace vxsim
