// The face as a picture of its LEDs.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace vxsim {

inline constexpr int kDefaultLedPitch = 8;

// A PNG of the sign as it hangs on the wall: a dark panel in a bezel, each pixel a round lamp that shines softly on
// its neighbours, unlit lamps just visible. Pitch is the distance of the lamps in pixels of the PNG, 4 to 32; it is
// lowered for a face that would make an enormous picture. Empty if the picture can't be made.
std::vector<std::uint8_t> PngFace(const Canvas& face, int pitch = kDefaultLedPitch);

// Writes PngFace to a file that is complete whenever it is there: into "<path>.part" first, then renamed. False if
// the file can't be written; the old one then stays.
bool WritePngFace(const Canvas& face, const std::filesystem::path& path, int pitch = kDefaultLedPitch);

} // namespace vxsim
