// Draws bad pixels.
#include "vxctl/state/pixelMap.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"

#include "sim/face/png.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::uint32_t kUsualWidth = 128;
constexpr std::uint32_t kUsualHeight = 32;
constexpr std::uint32_t kTileSide = 16; // faces are made of whole tiles

// The lamps that the sign names, all of them when it names none.
vxsim::Rgb LampOf(const std::string& status)
{
    const auto level = [&](const char* name) {
        return static_cast<std::uint8_t>(status.find(name) != std::string::npos ? 255 : 0);
    };
    const vxsim::Rgb lamp{level("Red"), level("Green"), level("Blue")};
    return lamp == vxsim::Rgb{} ? vxsim::Rgb{255, 255, 255} : lamp;
}

int Holding(std::uint32_t usual, std::uint32_t last)
{
    const std::uint32_t most = kMostPictureSide - kTileSide;
    return static_cast<int>(std::max(usual, (std::min(last, most) / kTileSide + 1) * kTileSide));
}

} // namespace

std::size_t WritePixelMap(const std::vector<BadPixel>& pixels, FaceSize size, const std::string& local)
{
    if (size.width == 0) {
        std::uint32_t lastX = 0;
        std::uint32_t lastY = 0;
        for (const BadPixel& pixel : pixels) {
            lastX = std::max(lastX, pixel.x);
            lastY = std::max(lastY, pixel.y);
        }
        size = {Holding(kUsualWidth, lastX), Holding(kUsualHeight, lastY)};
    }
    vxsim::Canvas face(size.width, size.height);
    std::size_t outside = 0;
    for (const BadPixel& pixel : pixels) {
        if (pixel.x >= static_cast<std::uint32_t>(size.width) || pixel.y >= static_cast<std::uint32_t>(size.height)) {
            ++outside;
            continue;
        }
        const int x = static_cast<int>(pixel.x);
        const int y = static_cast<int>(pixel.y);
        const vxsim::Rgb lamp = LampOf(pixel.status);
        const vxsim::Rgb lit = face.At(x, y); // the other lamps of the same pixel
        face.Set(x, y, {std::max(lamp.red, lit.red), std::max(lamp.green, lit.green), std::max(lamp.blue, lit.blue)});
    }
    const LocalTarget target(local, "pixels.png");
    if (!vxsim::WritePngFace(face, target.Temporary()))
        throw SignFailure(VX_OPEN_FILE);
    target.Keep();
    return outside;
}

} // namespace vxctl
