#include "sim/stage/facePainter.h"

#include "sim/face/ansi.h"
#include "sim/face/png.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace vxsim {
namespace {

// A PNG costs far more than a frame in the terminal, and nobody looks at it as often.
constexpr std::uint64_t kPngEveryMs = 250;

} // namespace

FacePainter::FacePainter(Stage& shownStage, std::ostream* out, std::filesystem::path pngFile)
    : stage(shownStage), terminal(out), png(std::move(pngFile))
{
    if (!png.empty() && !WritePngFace(stage.Face(), png))
        throw std::runtime_error("cannot write " + png.string());
}

void FacePainter::Paint(std::uint64_t nowMs)
{
    const Canvas& face = stage.Draw(nowMs);
    if (terminal != nullptr && shown != face)
        WriteTerminal(face);
    if (!png.empty() && written != face && (!written || nowMs - writtenMs >= kPngEveryMs))
        WritePng(face, nowMs);
}

void FacePainter::WriteTerminal(const Canvas& face)
{
    // Two rows of pixels are one line: the next face is drawn over the former one.
    if (shown)
        *terminal << "\x1b[" << (face.Height() + 1) / 2 << 'A';
    *terminal << AnsiFace(face) << std::flush;
    shown = face;
}

void FacePainter::WritePng(const Canvas& face, std::uint64_t nowMs)
{
    writtenMs = nowMs;
    if (WritePngFace(face, png)) // else again with the next one that is due
        written = face;
}

} // namespace vxsim
