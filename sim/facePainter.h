#pragma once

#include "sim/content/player.h"
#include "sim/face/canvas.h"
#include "sim/sign/virtualSign.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>

namespace vxsim {

// Shows what a sign plays: in a terminal, in a PNG file, or both. Observes the sign, so it outlives the last Answer.
class FacePainter
{
public:
    // `terminal` may be null and `png` empty. Throws std::runtime_error if the font is missing or the PNG cannot be
    // written.
    FacePainter(VirtualSign& sign, std::ostream* terminal, std::filesystem::path png);

    // Draws the face of this moment, in milliseconds of any steady clock, and puts it out where it has changed.
    void Paint(std::uint64_t nowMs);

private:
    void StartSequence();
    void WriteTerminal();
    void WritePng(std::uint64_t nowMs);

    VirtualSign& sign;
    std::ostream* terminal;
    std::filesystem::path png;
    std::filesystem::path sequence; // that the player reads
    std::optional<Player> player;
    Canvas face;
    std::optional<Canvas> shown;   // in the terminal
    std::optional<Canvas> written; // to the PNG
    std::uint64_t writtenMs = 0;
    bool restart = true;
};

} // namespace vxsim
