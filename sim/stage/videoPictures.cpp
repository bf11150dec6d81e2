#include "sim/stage/videoPictures.h"

#include "sim/stage/testPictures.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr PatternTest kColourBars{12};
constexpr int kLabelWidth = 32;
constexpr int kLabelHeight = 18;

// Colour bars with the number of the channel in their middle; without a signal the picture is dark.
void DrawInput(int left, int top, int width, int height, std::uint8_t channel, Font& font, Canvas& face)
{
    const int wide = std::min(width, face.Width() - left);
    const int high = std::min(height, face.Height() - top);
    if (wide < 1 || high < 1)
        return;
    Canvas picture(wide, high);
    if (VideoProcessors::HasSignal(channel)) {
        DrawTest(kColourBars, 0, font, picture);
        const int labelWidth = std::min(kLabelWidth, wide);
        const int labelHeight = std::min(kLabelHeight, high);
        DrawModule((wide - labelWidth) / 2, (high - labelHeight) / 2, labelWidth, labelHeight, channel, font, picture);
    }
    face.Put(picture, left, top);
}

} // namespace

void DrawVideo(const VideoProcessors& video, std::uint64_t nowMs, Font& font, Canvas& face)
{
    if (video.Channel() != 0)
        DrawInput(0, 0, face.Width(), face.Height(), video.Channel(), font, face);
    if (const auto window = video.Window(nowMs))
        DrawInput(window->left, window->top, window->width, window->height, window->channel, font, face);
}

void Tint(const VideoLevels& levels, Canvas& face)
{
    if (levels.red == 255 && levels.green == 255 && levels.blue == 255)
        return;
    const auto through = [](std::uint8_t light, std::uint8_t level) {
        return static_cast<std::uint8_t>((light * level + 127) / 255);
    };
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x) {
            const Rgb colour = face.At(x, y);
            face.Set(x, y,
                     {through(colour.red, levels.red), through(colour.green, levels.green),
                      through(colour.blue, levels.blue)});
        }
    }
}

} // namespace vxsim
