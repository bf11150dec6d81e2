// Setting text on the face: wrapping, pages, drawing.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/codes.h"
#include "sim/face/font.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

// A stretch of text in one font and colour: in the font's encoding, with '\n' between lines and '\f' between pages.
struct TextRun
{
    std::string text;
    std::uint8_t font = kDefaultFontCode;
    Rgb colour;
};

// A character in its place on the face: the pen's column and the row of the line's foot.
struct PlacedGlyph
{
    char32_t character = 0; // the first of those that the glyph stands for
    GlyphKey glyph;
    int x = 0;
    int y = 0;
    Rgb colour;
};

using Page = std::vector<PlacedGlyph>;

// What a text can fill at most; the rest is dropped.
inline constexpr std::size_t kMostCharacters = 16384;
inline constexpr std::size_t kMostPages = 256;

// Breaks the text into lines between words, and between letters where a word is wider than the face; puts the lines
// on as many pages as they need, each in the middle of the face by what is lit of it. A font higher than the face
// shrinks to its height, and letters that reach above or below their line shrink into it. A text without characters
// gives no page.
std::vector<Page> SetText(std::span<const TextRun> runs, int width, int height, Font& font);

// The same, with what became of the text.
struct Layout
{
    std::vector<Page> pages;
    std::vector<std::string> texts; // of the pages, with '\n' between their lines
    std::size_t pagesMeant = 0;     // by its page feeds
    bool brokenWord = false;        // one is wider than the face
    bool isCut = false;             // there is more than a text can fill, or a letter is larger than the face
};

Layout LayOut(std::span<const TextRun> runs, int width, int height, Font& font);

// A text in one line, from column 0 and with its foot on row 0, whatever its width.
struct TextLine
{
    Page glyphs;
    int width = 0;
    int top = 0;    // the first of its rows: 0 or negative
    int height = 0; // rows
};

// Sets the text in a line of so many rows. What breaks lines elsewhere is a space here.
TextLine SetLine(std::string_view text, int rows, Rgb colour, Font& font);

// Draws the page over what the face shows, so far to the right and down.
void DrawPage(const Page& page, Font& font, Canvas& face, int right = 0, int down = 0);

} // namespace vxsim
