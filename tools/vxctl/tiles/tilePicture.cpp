// Draws a tile.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/tiles/tilePixels.h"

#include "sim/face/png.h"

#include <algorithm>
#include <cmath>

namespace vxctl {

namespace {

// Pictures hold their values for the eye.
std::uint8_t ValueOf(double light)
{
    return static_cast<std::uint8_t>(std::lround(255.0 * std::pow(std::clamp(light, 0.0, 1.0), 1 / 2.2)));
}

} // namespace

void WriteTilePicture(const TilePixels& pixels, std::uint32_t full, const std::string& local)
{
    vxsim::Canvas face(static_cast<int>(pixels.width), static_cast<int>(pixels.height));
    for (std::size_t pixel = 0; pixel < pixels.Count(); ++pixel) {
        const auto* const matrix = &pixels.coefficients[pixel * kTileCoefficients];
        const auto light = [&](std::size_t row) {
            const std::uint32_t sum = std::uint32_t{matrix[3 * row]} + matrix[3 * row + 1] + matrix[3 * row + 2];
            return ValueOf(static_cast<double>(sum) / full);
        };
        face.Set(static_cast<int>(pixel % pixels.width), static_cast<int>(pixel / pixels.width),
                 {light(0), light(1), light(2)});
    }
    const LocalTarget target(local, "tile.png");
    if (!vxsim::WritePngFace(face, target.Temporary()))
        throw SignFailure(VX_OPEN_FILE);
    target.Keep();
}

} // namespace vxctl
