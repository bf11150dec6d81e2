// Setting text on the face: wrapping, pages, drawing.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/codes.h"
#include "sim/face/font.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

// A stretch of text in one font and colour: UTF-8 with '\n' between lines and '\f' between pages.
struct TextRun
{
    std::string text;
    std::uint8_t font = kDefaultFontCode;
    Rgb colour;
};

// A character in its place on the face.
struct PlacedGlyph
{
    char32_t character = 0;
    int x = 0;
    int y = 0;
    int scale = 1;
    Rgb colour;
};

using Page = std::vector<PlacedGlyph>;

// What a text can fill at most; the rest is dropped.
inline constexpr std::size_t kMostCharacters = 16384;
inline constexpr std::size_t kMostPages = 256;

// Breaks the text into lines between words, and between letters where a word is wider than the face; puts the lines
// on as many pages as they need, each in the middle of the face. Enlarged text shrinks until a line fits the face's
// height. A text without characters gives no page.
std::vector<Page> SetText(std::span<const TextRun> runs, int width, int height, Font& font);

// Draws the page over what the face shows.
void DrawPage(const Page& page, Font& font, Canvas& face);

} // namespace vxsim
