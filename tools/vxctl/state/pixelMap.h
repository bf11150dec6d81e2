// The bad pixels of a sign as a picture.
#pragma once

#include "vxctl/cli/faceSize.h"

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

// Draws the face as lamps, where the bad ones are lit; without a size it holds them all. Returns how many are outside.
// Throws SignFailure.
std::size_t WritePixelMap(const std::vector<BadPixel>& pixels, FaceSize size, const std::string& local);

} // namespace vxctl
