// Brings pictures to the size of a face.
#include "vxctl/show/pictures.h"

#include "sim/face/stb.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr int kColours = 3;

std::vector<std::uint8_t> BytesOf(const vxsim::Canvas& picture)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(picture.Width()) * static_cast<std::size_t>(picture.Height()) * kColours);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const vxsim::Rgb pixel = picture.At(x, y);
            bytes.insert(bytes.end(), {pixel.red, pixel.green, pixel.blue});
        }
    }
    return bytes;
}

vxsim::Canvas CanvasOf(const std::vector<std::uint8_t>& bytes, int width, int height)
{
    vxsim::Canvas canvas(width, height);
    std::size_t at = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x, at += kColours)
            canvas.Set(x, y, {bytes[at], bytes[at + 1], bytes[at + 2]});
    return canvas;
}

vxsim::Canvas Scale(const vxsim::Canvas& picture, int width, int height)
{
    if (width == picture.Width() && height == picture.Height())
        return picture;
    const std::vector<std::uint8_t> from = BytesOf(picture);
    std::vector<std::uint8_t> to(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kColours);
    if (stbir_resize_uint8_srgb(from.data(), picture.Width(), picture.Height(), 0, to.data(), width, height, 0,
                                kColours, STBIR_ALPHA_CHANNEL_NONE, 0) == 0)
        throw std::bad_alloc();
    return CanvasOf(to, width, height);
}

// One side, when the other one becomes `to` in place of `from`.
int Side(int side, int to, int from)
{
    const auto scaled = (std::int64_t{side} * to + from / 2) / from;
    return static_cast<int>(std::clamp<std::int64_t>(scaled, 1, vxsim::Canvas::kMostPixelsPerSide));
}

vxsim::Canvas Proportional(const vxsim::Canvas& picture, int width, int height, bool covers)
{
    const int wideHeight = Side(picture.Height(), width, picture.Width());
    return (wideHeight >= height) == covers ? Scale(picture, width, wideHeight)
                                            : Scale(picture, Side(picture.Width(), height, picture.Height()), height);
}

} // namespace

vxsim::Canvas Fit(const vxsim::Canvas& picture, int width, int height, const std::string& how)
{
    const vxsim::Canvas scaled = how == "stretch" ? Scale(picture, width, height)
                                 : how == "none"  ? picture
                                                  : Proportional(picture, width, height, how == "cover");
    vxsim::Canvas face(width, height);
    face.Put(scaled, (width - scaled.Width()) / 2, (height - scaled.Height()) / 2);
    return face;
}

std::vector<std::uint8_t> EncodeBmp(const vxsim::Canvas& picture)
{
    std::vector<std::uint8_t> file;
    stbi_write_bmp_to_func(vxsim::AppendBytes, &file, picture.Width(), picture.Height(), kColours,
                           BytesOf(picture).data());
    return file;
}

} // namespace vxctl
