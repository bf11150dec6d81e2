#include "sim/stage/facePainter.h"

#include "sim/face/ansi.h"
#include "sim/face/png.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <utility>

namespace vxsim {
namespace {

// A PNG costs far more than a frame in the terminal, and nobody looks at it as often.
constexpr std::uint64_t kPngEveryMs = 250;

constexpr const char* kHideCursor = "\x1b[?25l";
constexpr const char* kShowCursor = "\x1b[?25h";
constexpr const char* kClearBelow = "\x1b[J";

} // namespace

FacePainter::FacePainter(Stage& shownStage, std::ostream* out, std::function<int()> outColumns,
                         std::filesystem::path pngFile)
    : stage(shownStage), terminal(out), columns(std::move(outColumns)), png(std::move(pngFile))
{
    if (!png.empty() && !WritePngFace(stage.Face(), png))
        throw std::runtime_error("cannot write " + png.string());
}

FacePainter::~FacePainter()
{
    if (cursorHidden)
        *terminal << kShowCursor << std::flush;
}

void FacePainter::Paint(std::uint64_t nowMs)
{
    const Canvas& face = stage.Draw(nowMs);
    if (const int width = terminal != nullptr ? columns() : 0;
        terminal != nullptr && (shown != face || shownColumns != width))
        WriteTerminal(face, width);
    if (!png.empty())
        KeepPngUp(face, nowMs);
}

void FacePainter::WriteTerminal(const Canvas& face, int width)
{
    if (width > 0 && !std::exchange(cursorHidden, true))
        *terminal << kHideCursor;
    if (shown) // drawn over
        *terminal << "\x1b[" << shownLines << 'A' << (width != shownColumns ? kClearBelow : "");
    const std::string lines = AnsiFace(face, width);
    *terminal << lines << std::flush;
    shown = face;
    shownColumns = width;
    shownLines = std::ranges::count(lines, '\n');
}

// A large face that is lit takes seconds to draw with its lamps: a thread does that, as hosts are not to wait for it.
void FacePainter::KeepPngUp(const Canvas& face, std::uint64_t nowMs)
{
    if (writing.valid()) {
        if (writing.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            return;
        if (writing.get()) // else again with the next one that is due
            written = drawn;
    }
    if (written == face || (written && nowMs - writtenMs < kPngEveryMs))
        return;
    writtenMs = nowMs;
    drawn = face;
    writing = std::async(std::launch::async, [face, path = png] { return WritePngFace(face, path); });
}

} // namespace vxsim
