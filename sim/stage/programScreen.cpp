#include "sim/stage/programScreen.h"

#include <algorithm>
#include <span>
#include <utility>

namespace vxsim {
namespace {

constexpr auto kFirstWindow = static_cast<std::size_t>(ProgramPlace::kFirstWindow);

} // namespace

void ProgramScreen::Begin(ProgramPlace place, const FaceArea& area, const std::vector<ProgramFile>& files, bool once,
                          std::uint64_t nowMs)
{
    Sequence sequence;
    for (const ProgramFile& file : files) {
        FileEntry entry;
        entry.path = file.path;
        entry.pictureStaySeconds = file.staySeconds;
        sequence.items.push_back({std::move(entry)});
    }
    Slot slot{area, once,
              std::make_unique<Player>(area.width, area.height, resolve, std::filesystem::path(), MomentClock(), font)};
    slot.player->Play(std::move(sequence), nowMs);
    At(place) = std::move(slot);
}

void ProgramScreen::KeepUp(std::optional<Slot>& slot, std::uint64_t nowMs)
{
    if (!slot)
        return;
    slot->player->KeepUp(nowMs);
    if (slot->once && slot->player->Rounds() > 1)
        slot.reset();
}

void ProgramScreen::KeepUp(std::uint64_t nowMs)
{
    for (auto& slot : slots)
        KeepUp(slot, nowMs);
}

std::optional<std::uint64_t> ProgramScreen::NextMs() const
{
    std::optional<std::uint64_t> next;
    for (const auto& slot : slots) {
        if (const auto due = slot ? slot->player->NextMs() : std::nullopt)
            next = std::min(next.value_or(*due), *due);
    }
    return next;
}

std::optional<std::string> ProgramScreen::CurrentFile(ProgramPlace place, std::uint64_t nowMs)
{
    auto& slot = At(place);
    KeepUp(slot, nowMs);
    return slot ? std::optional(slot->player->CurrentFile()) : std::nullopt;
}

bool ProgramScreen::DrawFace(ProgramPlace place, std::uint64_t nowMs, Canvas& face)
{
    auto& slot = At(place);
    KeepUp(slot, nowMs);
    if (slot)
        slot->player->Draw(nowMs, face);
    return slot.has_value();
}

bool ProgramScreen::HasWindows() const
{
    return std::ranges::any_of(std::span(slots).subspan(kFirstWindow),
                               [](const auto& slot) { return slot.has_value(); });
}

void ProgramScreen::DrawWindows(std::uint64_t nowMs, Canvas& face)
{
    for (const auto& slot : std::span(slots).subspan(kFirstWindow)) {
        if (!slot)
            continue;
        Canvas window(slot->area.width, slot->area.height);
        slot->player->Draw(nowMs, window);
        face.Put(window, slot->area.left, slot->area.top);
    }
}

} // namespace vxsim
