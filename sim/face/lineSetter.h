// Breaks measured characters into lines and pages.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/textSizes.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vxsim {

struct Character
{
    char32_t code = 0;
    std::size_t size = 0; // among the text's sizes
    Rgb colour;
    int advance = 0;
    int gap = 0; // columns of the advance that stay dark behind the character
};

struct Line
{
    std::vector<Character> characters;
    int foot = 0;
    int rows = 0;
};

struct Setting
{
    std::vector<std::vector<Line>> pages;
    bool brokenWord = false;
    bool isCut = false; // there are more pages than a text has
};

// Sets characters whose '\n' ends a line and '\f' a page, on at most kMostPages pages of a face of that size. The last
// page may be higher than the face, if one line is.
Setting SetLines(std::span<const Character> characters, std::span<const TextSize> sizes, int width, int height);

} // namespace vxsim
