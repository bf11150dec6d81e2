// The bad pixels of a sign as a picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vxctl {

struct BadPixel
{
    std::uint32_t x = 0;
    std::uint32_t y = 0;
    bool isSignal = false; // the pixel is well, but its signal does not arrive
    std::string status;    // names the lamp: "Red Pixel Bad"
    std::string time;
};

inline constexpr int kMostPictureSide = 1024;

struct FaceSize
{
    int width = 0; // 0 for one that holds all bad pixels
    int height = 0;
};

// Draws the face as lamps, where the bad ones are lit. Returns how many are outside. Throws SignFailure.
std::size_t WritePixelMap(const std::vector<BadPixel>& pixels, FaceSize size, const std::string& local);

} // namespace vxctl
