#include "sim/face/jpeg.h"

#include "sim/face/stb.h"

namespace vxsim {
namespace {

constexpr int kChannels = 3;
// Above 90 the colours keep the resolution of the pixels.
constexpr int kQuality = 95;

} // namespace

std::vector<std::uint8_t> JpegFace(const Canvas& face)
{
    std::vector<std::uint8_t> pixels;
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x) {
            const Rgb colour = face.At(x, y);
            pixels.insert(pixels.end(), {colour.red, colour.green, colour.blue});
        }
    }
    std::vector<std::uint8_t> jpeg;
    if (stbi_write_jpg_to_func(AppendBytes, &jpeg, face.Width(), face.Height(), kChannels, pixels.data(), kQuality) ==
        0)
        jpeg.clear();
    return jpeg;
}

} // namespace vxsim
