#include "sim/stage/zoneScreen.h"

#include "sim/content/contentFile.h"
#include "sim/face/text.h"

#include <algorithm>
#include <array>

namespace vxsim {
namespace {

constexpr std::uint64_t kRetryMs = 1000; // for a file that cannot be shown
constexpr std::uint8_t kTrueColour = '/';

Timing TimingOf(const ZoneStyle& style)
{
    Timing timing;
    timing.entryMode = style.entryMode != 0 ? style.entryMode : timing.entryMode;
    timing.exitMode = style.exitMode != 0 ? style.exitMode : timing.exitMode;
    timing.stayMs = style.staySeconds != 0 ? std::uint64_t{style.staySeconds} * 1000 : timing.stayMs;
    return timing;
}

TextRun RunOf(const Zone& zone)
{
    const ZoneStyle& style = zone.style;
    return {zone.content, style.font != 0 ? style.font : kDefaultFontCode,
            style.colour == kTrueColour ? Rgb{style.red, style.green, style.blue} : ColourOfCode(style.colour)};
}

} // namespace

bool ZoneScreen::Draw(std::uint64_t nowMs, Canvas& face)
{
    const auto shown = zones.ShownAt(nowMs);
    if (!shown) {
        panes.clear();
        return false;
    }
    const std::vector<Zone>& shownZones = shown->page.zones;
    if (pageBeginMs != shown->beginMs)
        panes.clear();
    pageBeginMs = shown->beginMs;
    const std::size_t known = panes.size();
    panes.resize(shownZones.size());
    for (std::size_t i = 0; i < panes.size(); ++i) {
        if (i >= known || panes[i].zone != shownZones[i])
            panes[i] = {shownZones[i], Load(shownZones[i]), known == 0 ? pageBeginMs : nowMs};
    }
    face.Clear();
    for (Pane& pane : panes)
        DrawPane(pane, nowMs, face);
    return true;
}

std::optional<Show> ZoneScreen::Load(const Zone& zone)
{
    const FaceArea& area = zone.area;
    const Timing timing = TimingOf(zone.style);
    if (zone.kind == ZoneContentKind::kText) {
        const std::array runs{RunOf(zone)};
        return Show::OfText(runs, timing, area.width, area.height, font);
    }
    const auto file = zone.kind == ZoneContentKind::kFile ? resolve(zone.content) : std::nullopt;
    return file ? Show::Load(ReadWholeFile(*file, kMostContentBytes), timing, area.width, area.height, font)
                : std::nullopt;
}

void ZoneScreen::DrawPane(Pane& pane, std::uint64_t nowMs, Canvas& face)
{
    const Zone& zone = pane.zone;
    const std::uint64_t elapsedMs = nowMs - std::min(nowMs, pane.beginMs);
    const std::uint64_t roundMs = pane.show ? pane.show->DurationMs() : kRetryMs;
    if (zone.kind == ZoneContentKind::kFile && elapsedMs >= roundMs) {
        pane.beginMs = pane.show ? nowMs - elapsedMs % roundMs : nowMs;
        pane.show = Load(zone);
    }
    if (!pane.show)
        return;
    Canvas part(zone.area.width, zone.area.height);
    pane.show->Draw((nowMs - std::min(nowMs, pane.beginMs)) % pane.show->DurationMs(), font, part);
    face.Put(part, zone.area.left, zone.area.top);
}

} // namespace vxsim
