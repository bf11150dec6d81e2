#include "sim/face/codes.h"

namespace vxsim {

namespace {

struct ColourRow
{
    std::uint8_t code;
    Rgb colour;
};

constexpr ColourRow kColours[] = {
    {'1', {255, 0, 0}},     // red
    {'2', {0, 255, 0}},     // green
    {'3', {255, 176, 0}},   // amber
    {'4', {0, 64, 255}},    // blue
    {'5', {255, 0, 255}},   // magenta
    {'6', {0, 255, 255}},   // cyan
    {'7', {255, 255, 255}}, // white
    {'8', {255, 255, 0}},   // yellow
    {'9', {255, 96, 0}},    // orange
};

} // namespace

int RowsOfFontCode(std::uint8_t code)
{
    constexpr int kRows = 16;
    return code >= '0' && code <= '9' ? kRows * (code - '0') : kRows;
}

Rgb ColourOfCode(std::uint8_t code)
{
    for (const ColourRow& row : kColours) {
        if (row.code == code)
            return row.colour;
    }
    return ColourOfCode(kDefaultColourCode);
}

} // namespace vxsim
