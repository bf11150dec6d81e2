#include "sim/stage/tilePictures.h"

#include "sim/stage/testPictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vxsim {
namespace {

// Codes up to this one show the number of the tile, those from 2 to 15 the patterns of the face, all others white.
constexpr std::uint8_t kLastNumber = 1;
constexpr std::uint8_t kAllOn = 2;
constexpr std::uint8_t kLastPattern = 15;

// Pictures hold their values for the eye; lamps give light in proportion to their coefficients.
constexpr float kEye = 2.2F;

FaceTest PictureOf(int tile, const TileShape& shape, std::uint8_t code)
{
    if (code <= kLastNumber)
        return LocationTest{0,
                            0,
                            static_cast<std::uint16_t>(shape.width),
                            static_cast<std::uint16_t>(shape.height),
                            1,
                            {static_cast<std::uint16_t>(tile)}};
    return PatternTest{code <= kLastPattern ? code : kAllOn};
}

using Roots = std::vector<float>;

// By coefficient: what a value for the eye is multiplied by.
Roots MakeRoots()
{
    Roots roots(std::size_t{kUnitCoefficient} + 1);
    for (std::size_t i = 0; i < roots.size(); ++i)
        roots[i] = std::pow(static_cast<float>(i) / kUnitCoefficient, 1 / kEye);
    return roots;
}

std::uint8_t Value(float value)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 255.0F)));
}

bool IsDiagonal(const PixelCalibration& pixel)
{
    return (pixel[1] | pixel[2] | pixel[3] | pixel[5] | pixel[6] | pixel[7]) == 0;
}

Rgb Calibrated(Rgb colour, const PixelCalibration& pixel, const Roots& roots)
{
    if (IsDiagonal(pixel))
        return {Value(static_cast<float>(colour.red) * roots[pixel[0]]),
                Value(static_cast<float>(colour.green) * roots[pixel[4]]),
                Value(static_cast<float>(colour.blue) * roots[pixel[8]])};
    std::array<float, 3> light{};
    const std::array values{colour.red, colour.green, colour.blue};
    std::ranges::transform(values, light.begin(),
                           [](std::uint8_t value) { return std::pow(static_cast<float>(value) / 255, kEye); });
    const auto lamp = [&](std::size_t row) {
        const float sum = light[0] * static_cast<float>(pixel[row]) + light[1] * static_cast<float>(pixel[row + 1]) +
                          light[2] * static_cast<float>(pixel[row + 2]);
        return Value(255 * std::pow(sum / kUnitCoefficient, 1 / kEye));
    };
    return {lamp(0), lamp(3), lamp(6)};
}

} // namespace

void DrawTiles(const TileWall& wall, std::uint64_t nowMs, Font& font, Canvas& face)
{
    if (const auto& picture = wall.Picture())
        DrawTest(ColourTest{picture->red, picture->green, picture->blue}, 0, font, face);
    for (const auto& [tile, test] : wall.Tests()) {
        const TileShape shape = wall.Plan().ShapeOf(tile);
        Canvas inside(shape.width, shape.height);
        DrawTest(PictureOf(tile, shape, test.code), nowMs - std::min(nowMs, test.startedMs), font, inside);
        face.Put(inside, wall.Plan().Left(tile), wall.Plan().Top(tile));
    }
}

void CalibrateFace(const TileWall& wall, Canvas& face)
{
    if (!wall.HasCalibrations())
        return;
    static const Roots roots = MakeRoots();
    for (int tile = 1; tile <= wall.Plan().Count(); ++tile) {
        const Calibration* calibration = wall.CalibrationOf(tile);
        if (calibration == nullptr)
            continue;
        const int left = wall.Plan().Left(tile);
        const int top = wall.Plan().Top(tile);
        const int width = wall.Plan().ShapeOf(tile).width;
        for (std::size_t i = 0; i < calibration->size(); ++i) {
            const int x = left + static_cast<int>(i) % width;
            const int y = top + static_cast<int>(i) / width;
            if (const Rgb colour = face.At(x, y); colour != Rgb{})
                face.Set(x, y, Calibrated(colour, (*calibration)[i], roots));
        }
    }
}

} // namespace vxsim
