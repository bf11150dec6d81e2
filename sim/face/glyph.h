// A character as lamps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vxsim {

// Columns count from the pen, rows from the foot of the line, the row below the letters that have no tail; what stands
// on the foot has negative rows.
struct Glyph
{
    int advance = 0; // columns to the next character, 0 for marks that stand over the one before
    int left = 0;
    int top = 0;
    int width = 0;
    std::vector<bool> lamps; // row by row

    int Height() const { return width > 0 ? static_cast<int>(lamps.size()) / width : 0; }
    bool IsLit(int x, int y) const
    {
        return lamps[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
};

// The rows above the foot in a line of so many rows.
constexpr int FootOf(int rows)
{
    return (3 * rows + 2) / 4;
}

} // namespace vxsim
