#include "sim/face/ansi.h"

#include <optional>

namespace vxsim {

namespace {

constexpr const char* kUpperHalfBlock = "\u2580";
constexpr const char* kReset = "\x1b[0m";

// An unlit pixel is drawn a little lighter than black, so that the face's extent can be seen.
constexpr Rgb kUnlit{24, 24, 26};

enum class Layer
{
    kForeground = 38,
    kBackground = 48
};

void AppendColour(std::string& out, Layer layer, Rgb colour)
{
    out += "\x1b[" + std::to_string(static_cast<int>(layer)) + ";2;" + std::to_string(colour.red) + ';' +
           std::to_string(colour.green) + ';' + std::to_string(colour.blue) + 'm';
}

} // namespace

std::string AnsiFace(const Canvas& face)
{
    const auto shown = [&](int x, int y) {
        const Rgb colour = face.At(x, y);
        return colour == Rgb{} ? kUnlit : colour;
    };

    std::string out;
    for (int y = 0; y < face.Height(); y += 2) {
        std::optional<Rgb> foreground;
        std::optional<Rgb> background;
        for (int x = 0; x < face.Width(); ++x) {
            if (foreground != shown(x, y)) {
                foreground = shown(x, y);
                AppendColour(out, Layer::kForeground, *foreground);
            }
            if (y + 1 < face.Height() && background != shown(x, y + 1)) {
                background = shown(x, y + 1);
                AppendColour(out, Layer::kBackground, *background);
            }
            out += kUpperHalfBlock;
        }
        out += kReset;
        out += '\n';
    }
    return out;
}

} // namespace vxsim
