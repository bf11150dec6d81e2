#include "sim/web/thumbnail.h"

#include <algorithm>
#include <cstdint>

namespace vxsim {
namespace {

Rgb MeanOf(const Canvas& face, int left, int top, int side)
{
    const int right = std::min(left + side, face.Width());
    const int bottom = std::min(top + side, face.Height());
    unsigned red = 0;
    unsigned green = 0;
    unsigned blue = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            const Rgb pixel = face.At(x, y);
            red += pixel.red;
            green += pixel.green;
            blue += pixel.blue;
        }
    }
    const auto count = static_cast<unsigned>((right - left) * (bottom - top));
    const auto mean = [count](unsigned sum) { return static_cast<std::uint8_t>(sum / count); };
    return {mean(red), mean(green), mean(blue)};
}

} // namespace

Canvas ThumbnailOf(const Canvas& face)
{
    const int side = (std::max(face.Width(), face.Height()) + kThumbnailSide - 1) / kThumbnailSide;
    if (side == 1)
        return face;
    Canvas thumbnail((face.Width() + side - 1) / side, (face.Height() + side - 1) / side);
    for (int y = 0; y < thumbnail.Height(); ++y) {
        for (int x = 0; x < thumbnail.Width(); ++x)
            thumbnail.Set(x, y, MeanOf(face, x * side, y * side, side));
    }
    return thumbnail;
}

} // namespace vxsim
