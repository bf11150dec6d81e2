// The pixels of a sign's face.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vxsim {

// One pixel's light: 0 is off, 255 full.
struct Rgb
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Rgb&) const = default;
};

// A rectangle of pixels, (0, 0) at the top left, all off at first. Access outside is clipped: writes vanish, reads
// give an unlit pixel.
class Canvas
{
public:
    static constexpr int kMostPixelsPerSide = 4096;

    // Sides are brought into 1..kMostPixelsPerSide.
    Canvas(int wantedWidth, int wantedHeight)
        : width(std::clamp(wantedWidth, 1, kMostPixelsPerSide)),
          height(std::clamp(wantedHeight, 1, kMostPixelsPerSide)),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
    }

    int Width() const { return width; }
    int Height() const { return height; }

    Rgb At(int x, int y) const { return Inside(x, y) ? pixels[Index(x, y)] : Rgb{}; }

    void Set(int x, int y, Rgb colour)
    {
        if (Inside(x, y))
            pixels[Index(x, y)] = colour;
    }

    // Copies all of the other canvas to that place.
    void Put(const Canvas& part, int left, int top)
    {
        for (int y = 0; y < part.height; ++y) {
            for (int x = 0; x < part.width; ++x)
                Set(left + x, top + y, part.At(x, y));
        }
    }

    void Clear() { std::fill(pixels.begin(), pixels.end(), Rgb{}); }

    bool operator==(const Canvas&) const = default;

private:
    bool Inside(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }

    std::size_t Index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }

    int width;
    int height;
    std::vector<Rgb> pixels;
};

} // namespace vxsim
