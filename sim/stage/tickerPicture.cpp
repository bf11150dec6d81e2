#include "sim/stage/tickerPicture.h"

#include "sim/face/text.h"
#include "sim/face/utf8.h"

#include <algorithm>

namespace vxsim {
namespace {

// Font code '0', as large as possible, takes the height of the face.
int ScaleOf(const TickerStyle& style, int faceHeight)
{
    const int largest = std::clamp(faceHeight / kGlyphHeight, 1, kLargestScale);
    const int scale = ScaleOfFontCode(style.font);
    return scale == 0 ? largest : std::min(scale, largest);
}

// Calls `take` with each character and its advance. What breaks lines elsewhere is a space here.
template <typename Take>
void ForEach(std::string_view text, Font& font, Take take)
{
    while (!text.empty()) {
        const char32_t character = std::max(TakeCharacter(text), U' ');
        take(character, font.GlyphOf(character).advance);
    }
}

} // namespace

unsigned TickerWidth(std::string_view text, const TickerStyle& style, int faceHeight, Font& font)
{
    unsigned width = 0;
    ForEach(text, font, [&](char32_t, int advance) { width += static_cast<unsigned>(advance); });
    return width * static_cast<unsigned>(ScaleOf(style, faceHeight));
}

void DrawTicker(const TickerCommands& ticker, std::uint64_t nowMs, Font& font, Canvas& face)
{
    const int scale = ScaleOf(ticker.Style(), face.Height());
    const int top = (face.Height() - scale * kGlyphHeight) / 2;
    const Rgb colour = ColourOfCode(ticker.Style().colour);
    face.Clear();
    for (const TickerText& text : ticker.Shown(nowMs)) {
        std::int64_t x = text.left;
        Page page;
        ForEach(text.text, font, [&](char32_t character, int advance) {
            if (x > std::int64_t{-2} * scale * kGlyphHeight && x < face.Width())
                page.push_back({character, static_cast<int>(x), top, scale, colour});
            x += std::int64_t{advance} * scale;
        });
        DrawPage(page, font, face);
    }
}

} // namespace vxsim
