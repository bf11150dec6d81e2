// What has changed of a face, for those who know how it was.
#pragma once

#include "sim/face/canvas.h"

#include <vector>

namespace vxsim {

struct Rectangle
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Rectangle&) const = default;
};

// Rectangles that hold all pixels in which the two faces of one size differ, from the top down: one for each band of
// rows with changes, as wide as these.
std::vector<Rectangle> ChangesOf(const Canvas& before, const Canvas& after);

// Red, green and blue of each pixel, row by row.
std::vector<unsigned char> PixelsOf(const Canvas& face, const Rectangle& part);

} // namespace vxsim
