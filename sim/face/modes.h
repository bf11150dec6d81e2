// The entry and exit modes of this sign: how a picture comes onto the face and leaves it.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>

namespace vxsim {

inline constexpr std::uint8_t kDefaultMode = '0';

// One row of the table of modes. The same row serves both ways: coming, from is black and to the picture; leaving,
// the other way round.
struct Mode
{
    std::uint8_t code;
    unsigned durationMs;
    const char* name;

    // Draws the state at progress, 0 to 1. All three canvases have one size. Null for a mode that takes no time.
    void (*draw)(const Canvas& from, const Canvas& to, double progress, Canvas& face);
};

// A code that isn't in the table gives kDefaultMode.
const Mode& ModeOfCode(std::uint8_t code);

} // namespace vxsim
