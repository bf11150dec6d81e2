#include "sim/web/faceChanges.h"

#include <algorithm>
#include <cstddef>

namespace vxsim {
namespace {

constexpr int kLeastGap = 4; // rows without a change that part two bands

// The pixels of a row from the first to the last that differ; of no width if none do.
Rectangle ChangeInRow(const Canvas& before, const Canvas& after, int y)
{
    const auto same = [&](int x) { return before.At(x, y) == after.At(x, y); };
    int first = 0;
    int end = after.Width();
    while (first < end && same(first))
        ++first;
    while (end > first && same(end - 1))
        --end;
    return {first, y, end - first, 1};
}

void Join(Rectangle& band, const Rectangle& row)
{
    const int right = std::max(band.x + band.width, row.x + row.width);
    band.x = std::min(band.x, row.x);
    band.width = right - band.x;
    band.height = row.y + 1 - band.y;
}

} // namespace

std::vector<Rectangle> ChangesOf(const Canvas& before, const Canvas& after)
{
    std::vector<Rectangle> bands;
    for (int y = 0; y < after.Height(); ++y) {
        const Rectangle row = ChangeInRow(before, after, y);
        if (row.width == 0)
            continue;
        if (bands.empty() || y - (bands.back().y + bands.back().height) >= kLeastGap)
            bands.push_back(row);
        else
            Join(bands.back(), row);
    }
    return bands;
}

std::vector<unsigned char> PixelsOf(const Canvas& face, const Rectangle& part)
{
    std::vector<unsigned char> pixels;
    pixels.reserve(std::size_t{3} * static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height));
    for (int y = part.y; y < part.y + part.height; ++y) {
        for (int x = part.x; x < part.x + part.width; ++x) {
            const Rgb pixel = face.At(x, y);
            pixels.insert(pixels.end(), {pixel.red, pixel.green, pixel.blue});
        }
    }
    return pixels;
}

} // namespace vxsim
