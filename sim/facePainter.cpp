#include "sim/facePainter.h"

#include "sim/face/ansi.h"
#include "sim/face/png.h"

#include <span>
#include <stdexcept>
#include <string>
#include <utility>

namespace vxsim {
namespace {

// A PNG costs far more than a frame in the terminal, and nobody looks at it as often.
constexpr std::uint64_t kPngEveryMs = 250;

} // namespace

FacePainter::FacePainter(VirtualSign& shownSign, std::ostream* out, std::filesystem::path pngFile)
    : sign(shownSign), terminal(out), png(std::move(pngFile)), face(sign.Settings().width, sign.Settings().height)
{
    StartSequence();
    if (!png.empty() && !WritePngFace(face, png))
        throw std::runtime_error("cannot write " + png.string());
    SignEvents events;
    events.sequenceWritten = [this] { restart = true; };
    events.displayStyleSet = [this](std::span<const std::uint8_t, kDisplayStyleSize> style) {
        player->SetDefaults(style);
    };
    sign.Observe(std::move(events));
}

// The file may have come under a name of another case than the one that the player knows.
void FacePainter::StartSequence()
{
    if (player && sequence == sign.SequenceFile())
        return;
    sequence = sign.SequenceFile();
    const auto resolve = [this](std::string_view path) { return sign.Resolve(path); };
    player.emplace(sign.Settings().width, sign.Settings().height, resolve, sequence);
    player->SetDefaults(sign.DisplayStyle());
}

void FacePainter::Paint(std::uint64_t nowMs)
{
    if (std::exchange(restart, false)) {
        StartSequence();
        player->Restart(nowMs);
    }
    player->Draw(nowMs, face);
    if (sign.IsBlack()) // the sign plays on in the dark
        face.Clear();
    if (terminal != nullptr && shown != face)
        WriteTerminal();
    if (!png.empty() && written != face && (!written || nowMs - writtenMs >= kPngEveryMs))
        WritePng(nowMs);
}

void FacePainter::WriteTerminal()
{
    // Two rows of pixels are one line: the next face is drawn over the former one.
    if (shown)
        *terminal << "\x1b[" << (face.Height() + 1) / 2 << 'A';
    *terminal << AnsiFace(face) << std::flush;
    shown = face;
}

void FacePainter::WritePng(std::uint64_t nowMs)
{
    writtenMs = nowMs;
    if (WritePngFace(face, png)) // else again with the next one that is due
        written = face;
}

} // namespace vxsim
