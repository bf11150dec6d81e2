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
            return Show(SetText(message->runs, width, height, font), timing);
        picture = *message->picture;
    }
    std::optional<Canvas> canvas = DecodePicture(picture, width, height);
    if (!canvas)
        return std::nullopt;
    return Show(std::move(*canvas), timing);
}

Show::Show(std::variant<std::vector<Page>, Canvas> content, Timing timing)
    : content_(std::move(content)), pages_(1), entry_(&ModeOfCode(timing.entryMode)),
      exit_(&ModeOfCode(timing.exitMode)), stayMs_(std::max(timing.stayMs, kShortestStayMs))
{
    // A message without text shows a black face for its time.
    if (const auto* pages = std::get_if<std::vector<Page>>(&content_))
        pages_ = std::max<std::uint64_t>(1, pages->size());
}

std::uint64_t Show::PageMs() const
{
    return entry_->durationMs + stayMs_ + exit_->durationMs;
}

std::uint64_t Show::DurationMs() const
{
    return pages_ * PageMs();
}

void Show::DrawWhole(std::uint64_t page, Font& font, Canvas& face) const
{
    face.Clear();
    if (const auto* picture = std::get_if<Canvas>(&content_)) {
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x)
                face.Set(x, y, picture->At(x, y));
        }
    } else if (const auto& pages = std::get<std::vector<Page>>(content_); page < pages.size()) {
        DrawPage(pages[static_cast<std::size_t>(page)], font, face);
    }
}

void Show::Draw(std::uint64_t elapsedMs, Font& font, Canvas& face) const
{
    const std::uint64_t page = std::min(elapsedMs / PageMs(), pages_ - 1);
    const std::uint64_t onPage = elapsedMs - page * PageMs();
    DrawWhole(page, font, face);

    const std::uint64_t leaveMs = entry_->durationMs + stayMs_;
    if (onPage >= entry_->durationMs && onPage < leaveMs)
        return;
    const Canvas whole = face;
    const Canvas black(face.Width(), face.Height());
    if (onPage < entry_->durationMs)
        DrawMode(*entry_, black, whole, onPage, face);
    else
        DrawMode(*exit_, whole, black, onPage - leaveMs, face);
}

} // namespace vxsim
