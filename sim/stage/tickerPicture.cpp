// Sets the texts of a ticker and moves them.
#include "sim/stage/tickerPicture.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr std::size_t kMostLines = 16;

// Font code '0', as large as possible, takes the height of the face.
int RowsOf(const TickerStyle& style, int faceHeight)
{
    const int rows = RowsOfFontCode(style.font);
    return rows == 0 ? faceHeight : std::min(rows, faceHeight);
}

} // namespace

const TextLine& TickerPicture::LineOf(std::string_view text, const TickerStyle& style, int faceHeight)
{
    const int rows = RowsOf(style, faceHeight);
    const Key key{text, style.font, style.colour, rows};
    const auto known = lines.find(key);
    if (known != lines.end())
        return known->second;
    if (lines.size() >= kMostLines)
        lines.clear();
    return lines.emplace(key, SetLine(text, rows, ColourOfCode(style.colour), font)).first->second;
}

unsigned TickerPicture::Width(std::string_view text, const TickerStyle& style, int faceHeight)
{
    return static_cast<unsigned>(LineOf(text, style, faceHeight).width);
}

void TickerPicture::Draw(const TickerCommands& ticker, std::uint64_t nowMs, Canvas& face)
{
    face.Clear();
    for (const TickerText& text : ticker.Shown(nowMs)) {
        const TextLine& line = LineOf(text.text, ticker.Style(), face.Height());
        if (text.left < face.Width() && text.left > -std::int64_t{line.width})
            DrawPage(line.glyphs, font, face, static_cast<int>(text.left),
                     (face.Height() - line.height) / 2 - line.top);
    }
}

} // namespace vxsim
