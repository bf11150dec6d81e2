// Brings the face to whoever looks.
#pragma once

#include "sim/face/canvas.h"
#include "sim/stage/stage.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <future>
#include <optional>
#include <ostream>

namespace vxsim {

// Shows the face of a sign: in a terminal, in a PNG file, or both.
class FacePainter
{
public:
    // `terminal` may be null and `png` empty; columns are those of the terminal, 0 where the face goes into a file or a
    // pipe. Throws std::runtime_error if the PNG cannot be written.
    FacePainter(Stage& stage, std::ostream* terminal, std::function<int()> columns, std::filesystem::path png);
    ~FacePainter();

    FacePainter(const FacePainter&) = delete;
    FacePainter& operator=(const FacePainter&) = delete;

    // Draws the face of this moment, in milliseconds of the clock that requests are timed by, and puts it out where it
    // has changed.
    void Paint(std::uint64_t nowMs);

private:
    void WriteTerminal(const Canvas& face, int width);
    void KeepPngUp(const Canvas& face, std::uint64_t nowMs);

    Stage& stage;
    std::ostream* terminal;
    std::function<int()> columns;
    std::filesystem::path png;
    std::optional<Canvas> shown; // in the terminal
    int shownColumns = 0;
    std::ptrdiff_t shownLines = 0;
    bool cursorHidden = false;
    std::optional<Canvas> written; // to the PNG
    std::uint64_t writtenMs = 0;
    std::optional<Canvas> drawn; // into the PNG that a thread of its own writes
    std::future<bool> writing;   // whether it was done
};

} // namespace vxsim
