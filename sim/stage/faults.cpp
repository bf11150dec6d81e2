#include "sim/stage/faults.h"

namespace vxsim {
namespace {

// What stands for a quarter of the light.
constexpr int kQuarter = 136;

std::uint8_t Cooled(std::uint8_t light)
{
    return static_cast<std::uint8_t>((light * kQuarter + 127) / 255);
}

} // namespace

void DrawFaults(const Monitor& monitor, bool isOn, Canvas& face)
{
    const Tiles& tiles = monitor.FaceTiles();
    for (const int tile : monitor.Now().hotTiles) {
        const int left = tiles.ColumnOf(tile) * Tiles::kSide;
        const int top = tiles.RowOf(tile) * Tiles::kSide;
        for (int y = top; y < top + Tiles::kSide; ++y) {
            for (int x = left; x < left + Tiles::kSide; ++x) {
                const Rgb colour = face.At(x, y);
                face.Set(x, y, {Cooled(colour.red), Cooled(colour.green), Cooled(colour.blue)});
            }
        }
    }
    for (const auto& [place, fault] : monitor.Now().badLamps) {
        Rgb colour = face.At(place.x, place.y);
        std::uint8_t& light = place.lamp == Lamp::kRed     ? colour.red
                              : place.lamp == Lamp::kGreen ? colour.green
                                                           : colour.blue;
        light = fault == LampFault::kStuck && isOn ? 255 : 0;
        face.Set(place.x, place.y, colour);
    }
}

} // namespace vxsim
