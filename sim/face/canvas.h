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
    Canvas(int width, int height)
        : width_(std::clamp(width, 1, kMostPixelsPerSide)), height_(std::clamp(height, 1, kMostPixelsPerSide)),
          pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_))
    {
    }

    int Width() const { return width_; }
    int Height() const { return height_; }

    Rgb At(int x, int y) const { return Inside(x, y) ? pixels_[Index(x, y)] : Rgb{}; }

    void Set(int x, int y, Rgb colour)
    {
        if (Inside(x, y))
            pixels_[Index(x, y)] = colour;
    }

    void Clear() { std::fill(pixels_.begin(), pixels_.end(), Rgb{}); }

    bool operator==(const Canvas&) const = default;

private:
    bool Inside(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    std::size_t Index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<Rgb> pixels_;
};

} // namespace vxsim
