#include "sim/content/show.h"

#include "sim/content/nmg.h"
#include "sim/content/picture.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vxsim {

namespace {

// Draws a mode's state; one that takes no time shows its end.
void DrawMode(const Mode& mode, const Canvas& from, const Canvas& to, std::uint64_t elapsedMs, Canvas& face)
{
    if (mode.draw == nullptr || elapsedMs >= mode.durationMs)
        face = to;
    else
        mode.draw(from, to, static_cast<double>(elapsedMs) / mode.durationMs, face);
}

} // namespace

std::optional<Show> Show::Load(std::span<const std::uint8_t> bytes, Timing timing, int width, int height, Font& font)
{
    std::span<const std::uint8_t> picture = bytes;
    if (const std::optional<Message> message = ParseNmg(bytes)) {
        timing.entryMode = message->entryMode.value_or(timing.entryMode);
        timing.exitMode = message->exitMode.value_or(timing.exitMode);
        if (message->staySeconds)
            timing.stayMs = std::uint64_t{*message->staySeconds} * 1000;
        if (!message->picture)
            return OfText(message->runs, timing, width, height, font);
        picture = *message->picture;
    }
    std::optional<Canvas> canvas = DecodePicture(picture, width, height);
    if (!canvas)
        return std::nullopt;
    return Show(std::move(*canvas), timing);
}

Show Show::OfText(std::span<const TextRun> runs, Timing timing, int width, int height, Font& font)
{
    return Show(SetText(runs, width, height, font), timing);
}

Show::Show(std::variant<std::vector<Page>, Canvas> shown, Timing timing)
    : content(std::move(shown)), pages(1), entry(&ModeOfCode(timing.entryMode)), exit(&ModeOfCode(timing.exitMode)),
      stayMs(std::max(timing.stayMs, kShortestStayMs))
{
    // A message without text shows a black face for its time.
    if (const auto* texts = std::get_if<std::vector<Page>>(&content))
        pages = std::max<std::uint64_t>(1, texts->size());
}

std::uint64_t Show::PageMs() const
{
    return entry->durationMs + stayMs + exit->durationMs;
}

std::uint64_t Show::DurationMs() const
{
    return pages * PageMs();
}

void Show::DrawWhole(std::uint64_t page, Font& font, Canvas& face) const
{
    face.Clear();
    if (const auto* picture = std::get_if<Canvas>(&content)) {
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x)
                face.Set(x, y, picture->At(x, y));
        }
    } else if (const auto& texts = std::get<std::vector<Page>>(content); page < texts.size()) {
        DrawPage(texts[static_cast<std::size_t>(page)], font, face);
    }
}

void Show::Draw(std::uint64_t elapsedMs, Font& font, Canvas& face) const
{
    const std::uint64_t page = std::min(elapsedMs / PageMs(), pages - 1);
    const std::uint64_t onPage = elapsedMs - page * PageMs();
    DrawWhole(page, font, face);

    const std::uint64_t leaveMs = entry->durationMs + stayMs;
    if (onPage >= entry->durationMs && onPage < leaveMs)
        return;
    const Canvas whole = face;
    const Canvas black(face.Width(), face.Height());
    if (onPage < entry->durationMs)
        DrawMode(*entry, black, whole, onPage, face);
    else
        DrawMode(*exit, whole, black, onPage - leaveMs, face);
}

} // namespace vxsim
