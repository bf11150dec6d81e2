// How large the letters of a text are drawn.
#pragma once

#include "sim/face/font.h"

#include <span>

namespace vxsim {

// Letters of so many pixels on lines of so many rows, which they do not leave.
struct TextSize
{
    int pixels = 0;
    int rows = 0;
    int foot = 0; // rows of the line above the letters' feet
};

// The largest letters whose characters keep within lines of so many rows.
TextSize SizeForRows(std::span<const char32_t> characters, int rows, Font& font);

// Letters of so many pixels, on lines as high as the characters need.
TextSize SizeForPixels(std::span<const char32_t> characters, int pixels, Font& font);

} // namespace vxsim
