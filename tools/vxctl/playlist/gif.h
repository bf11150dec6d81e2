// Animated GIF files.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

struct GifFileType;

namespace vxctl {

// An animation of a face, each pixel a square lamp of four pixels with its gap, repeated for ever. The colours of a
// frame with more than 254 of them are brought to a cube of 6 by 7 by 6.
class Gif
{
public:
    // Throws SignFailure when the file cannot be made, here and below.
    Gif(const std::string& path, int faceWidth, int faceHeight);
    ~Gif();
    Gif(const Gif&) = delete;
    Gif& operator=(const Gif&) = delete;

    // Shows the face for so long, in steps of 10 ms.
    void Add(const vxsim::Canvas& face, std::uint32_t milliseconds);

    // Ends the file, which is whole only then.
    void Close();

private:
    std::unique_ptr<FILE, int (*)(FILE*)> out;
    GifFileType* file;
    int width;
    int height;
};

} // namespace vxctl
