// What the sign says of its face in its system information.
#include "sim/virtualSign.h"

#include <algorithm>
#include <string_view>
#include <variant>

namespace vxsim {

std::vector<std::string_view> VirtualSign::Layers(std::uint64_t nowMs)
{
    const auto plays = [this, nowMs](ProgramPlace place) { return programs.Plays(place, nowMs); };
    const auto hasWindow = [&] {
        bool any = false;
        for (std::size_t i = 0; i < kProgramWindows; ++i)
            any = any || plays(WindowPlace(i));
        return any && programs.Windows() != WindowMode::kHidden;
    };
    const struct
    {
        std::string_view name;
        bool isSeen;
    } kLayers[] = {
        {"off", !light.IsOn()},
        {"blank", light.IsBlack()},
        {"restart", light.IsRestarting(nowMs)},
        {"emergency", plays(ProgramPlace::kEmergency)},
        {"test", !std::holds_alternative<std::monostate>(tests.Running())},
        {"ticker", ticker.IsRunning(nowMs)},
        {"signals", settings.controller},
        {"windows", hasWindow()},
        {"video-window", video.Window(nowMs).has_value()},
        {"video-input", video.Channel() != 0},
        {"program", plays(ProgramPlace::kFace)},
        {"zones", zones.ShownAt(nowMs).has_value()},
    };
    std::vector<std::string_view> seen;
    for (const auto& [name, isSeen] : kLayers) {
        if (isSeen)
            seen.push_back(name);
    }
    seen.push_back("list");
    return seen;
}

std::string VirtualSign::FaceText(std::uint64_t nowMs)
{
    std::string text = "face " + std::to_string(settings.width) + "x" + std::to_string(settings.height) +
                       "\r\ncolours 16777216\r\nlight " + std::to_string(light.LevelAt(nowMs)) +
                       (light.IsFixed() ? " fixed" : " by the hour") + "\r\nshows";
    for (const std::string_view name : Layers(nowMs))
        text.append(" ").append(name);
    return text + "\r\n";
}

} // namespace vxsim
