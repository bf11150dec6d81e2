// Picture files, looked at before they go to a sign.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vxctl {

// A still picture, or one of an animation with its time.
struct Frame
{
    vxsim::Canvas picture;
    std::uint32_t milliseconds = 0;
};

// Its time as a message has it; 0 is as short as the sign can.
inline std::uint32_t SecondsOf(const Frame& frame)
{
    return (frame.milliseconds + 500) / 1000;
}

using FileBytes = std::span<const std::uint8_t>;

// The frames of a BMP, PNG, JPEG or GIF file, told by its contents; what is transparent is unlit. Throws UsageError
// with what is wrong with any other file.
std::vector<Frame> DecodeFrames(FileBytes bytes);

// Those of a GIF, 128 at most. Throws UsageError for one that is damaged or too large.
std::vector<Frame> DecodeGif(FileBytes bytes);

// Why a play list cannot show a file; "" when it can.
std::string WhyNotShown(FileBytes bytes);

// The picture on a face of that size, in the middle: "contain" shows all of it, "cover" fills the face and cuts,
// "stretch" fills it and distorts, "none" leaves it as large as it is.
vxsim::Canvas Fit(const vxsim::Canvas& picture, int width, int height, const std::string& how);

// A BMP file of 24 bits, which every sign shows.
std::vector<std::uint8_t> EncodeBmp(const vxsim::Canvas& picture);

} // namespace vxctl
