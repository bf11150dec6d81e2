// Zones on the face.
#pragma once

#include "sim/content/player.h"
#include "sim/content/show.h"
#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/zones/zoneCommands.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vxsim {

// Draws the page of zones whose turn it is. Each zone begins with its page and repeats its content as long as that
// lasts; a file is read anew each time.
class ZoneScreen
{
public:
    // Both outlive the screen.
    ZoneScreen(const ZoneCommands& signZones, Font& signFont, PathResolver resolver)
        : zones(signZones), font(signFont), resolve(std::move(resolver))
    {
    }

    // False, and nothing drawn, if no zones are to be seen at that time.
    bool Draw(std::uint64_t nowMs, Canvas& face);

private:
    struct Pane
    {
        Zone zone;
        std::optional<Show> show;
        std::uint64_t beginMs = 0; // of the show, or when it was last looked for
    };

    std::optional<Show> Load(const Zone& zone);
    void DrawPane(Pane& pane, std::uint64_t nowMs, Canvas& face);

    const ZoneCommands& zones;
    Font& font;
    PathResolver resolve;
    std::vector<Pane> panes; // of the page that was drawn last
    std::uint64_t pageBeginMs = 0;
};

} // namespace vxsim
