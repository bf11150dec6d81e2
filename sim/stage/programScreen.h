// Programs of the player core on the face.
#pragma once

#include "sim/content/player.h"
#include "sim/face/canvas.h"
#include "sim/zones/programDisplay.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {

// Plays the programs of the player core, each with a player of its own.
class ProgramScreen : public ProgramDisplay
{
public:
    ProgramScreen(PathResolver resolver, std::shared_ptr<Font> signFont)
        : resolve(std::move(resolver)), font(std::move(signFont))
    {
    }

    void Begin(ProgramPlace place, const FaceArea& area, const std::vector<ProgramFile>& files, bool once,
               std::uint64_t nowMs) override;
    void End(ProgramPlace place) override { At(place).reset(); }
    std::optional<std::string> CurrentFile(ProgramPlace place, std::uint64_t nowMs) override;

    // Passes the turns that are over, and ends what plays once.
    void KeepUp(std::uint64_t nowMs);

    // When one of them has to be kept up next; nothing where none plays.
    std::optional<std::uint64_t> NextMs() const;

    // Draws what plays over the whole face. False, and nothing drawn, if nothing does.
    bool DrawFace(ProgramPlace place, std::uint64_t nowMs, Canvas& face);

    bool HasWindows() const;
    void DrawWindows(std::uint64_t nowMs, Canvas& face);

private:
    struct Slot
    {
        FaceArea area;
        bool once = false;
        std::unique_ptr<Player> player;
    };

    void KeepUp(std::optional<Slot>& slot, std::uint64_t nowMs);
    std::optional<Slot>& At(ProgramPlace place) { return slots[static_cast<std::size_t>(place)]; }

    PathResolver resolve;
    std::shared_ptr<Font> font;
    std::array<std::optional<Slot>, kProgramPlaces> slots;
};

} // namespace vxsim
