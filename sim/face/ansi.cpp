#include "sim/face/ansi.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <utility>

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

constexpr std::array<const char*, 16> kQuarterBlocks{" ",      "\u2598", "\u259D", "\u2580", "\u2596", "\u258C",
                                                     "\u259E", "\u259B", "\u2597", "\u259A", "\u2590", "\u259C",
                                                     "\u2584", "\u2599", "\u259F", "\u2588"};

// A line of the terminal under work, which repeats no colour.
class Line
{
public:
    explicit Line(std::string& text) : out(text) {}

    void Put(const char* block, std::optional<Rgb> foreground, std::optional<Rgb> background)
    {
        Set(Layer::kForeground, foreground, front);
        Set(Layer::kBackground, background, back);
        out += block;
    }

    void End() { out += std::string(kReset) + '\n'; }

private:
    void Set(Layer layer, std::optional<Rgb> colour, std::optional<Rgb>& last)
    {
        if (!colour || colour == last)
            return;
        last = colour;
        out += "\x1b[" + std::to_string(static_cast<int>(layer)) + ";2;" + std::to_string(colour->red) + ';' +
               std::to_string(colour->green) + ';' + std::to_string(colour->blue) + 'm';
    }

    std::string& out;
    std::optional<Rgb> front;
    std::optional<Rgb> back;
};

Rgb Shown(const Canvas& face, int x, int y)
{
    const Rgb colour = face.At(x, y);
    return colour == Rgb{} ? kUnlit : colour;
}

std::string HalfBlocks(const Canvas& face)
{
    std::string out;
    for (int y = 0; y < face.Height(); y += 2) {
        Line line(out);
        for (int x = 0; x < face.Width(); ++x) {
            const bool below = y + 1 < face.Height();
            line.Put(kUpperHalfBlock, Shown(face, x, y), below ? std::optional(Shown(face, x, y + 1)) : std::nullopt);
        }
        line.End();
    }
    return out;
}

int Distance(Rgb a, Rgb b)
{
    return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
}

// The two of four colours that lie furthest from each other.
std::pair<Rgb, Rgb> Furthest(const std::array<Rgb, 4>& colours)
{
    std::pair<Rgb, Rgb> furthest{colours[0], colours[0]};
    for (const Rgb a : colours) {
        for (const Rgb b : colours) {
            if (Distance(a, b) > Distance(furthest.first, furthest.second))
                furthest = {a, b};
        }
    }
    return furthest;
}

std::string QuarterBlocks(const Canvas& face)
{
    std::string out;
    for (int y = 0; y < face.Height(); y += 2) {
        Line line(out);
        for (int x = 0; x < face.Width(); x += 2) {
            const std::array<Rgb, 4> colours{Shown(face, x, y), Shown(face, x + 1, y), Shown(face, x, y + 1),
                                             Shown(face, x + 1, y + 1)};
            const auto [front, back] = Furthest(colours);
            std::size_t block = 0;
            for (std::size_t i = 0; i < colours.size(); ++i)
                block |= Distance(colours[i], front) < Distance(colours[i], back) ? std::size_t{1} << i : 0;
            line.Put(kQuarterBlocks[block], front, back);
        }
        line.End();
    }
    return out;
}

} // namespace

std::string AnsiFace(const Canvas& face, int columns)
{
    const int quarters = (face.Width() + 1) / 2;
    if (columns == 0 || face.Width() <= columns)
        return HalfBlocks(face);
    if (quarters <= columns)
        return QuarterBlocks(face);
    const std::string need = "This face needs a terminal of " + std::to_string(quarters) + " columns.";
    return need.substr(0, static_cast<std::size_t>(columns)) + '\n';
}

} // namespace vxsim
