#include "sim/tiles/tilePlan.h"

#include <algorithm>
#include <numeric>

namespace vxsim {
namespace {

constexpr int kLastOfBus[] = {254, 240}; // addresses

} // namespace

TileShape TilePlan::ShapeOf(int tile) const
{
    TileShape shape{std::min(Tiles::kSide, width - Left(tile)), std::min(Tiles::kSide, height - Top(tile))};
    if (shape.width % 2 == 0 && shape.height % 2 == 0)
        shape.across = shape.down = 2;
    return shape;
}

int TilePlan::OnBus(unsigned bus, std::uint8_t address) const
{
    if (bus > 1 || address == 0 || address > kLastOfBus[bus])
        return 0;
    const int tile = address + (bus == 1 ? kLastOfBus[0] : 0);
    return tile <= Count() ? tile : 0;
}

int TilePlan::OnPort(std::uint8_t port, std::uint16_t address) const
{
    if (port == 0 || port > Count() / grid.Columns() || address == 0 || address > grid.Columns())
        return 0;
    return (port - 1) * grid.Columns() + address;
}

std::vector<int> TilePlan::All() const
{
    std::vector<int> tiles(static_cast<std::size_t>(Count()));
    std::iota(tiles.begin(), tiles.end(), 1);
    return tiles;
}

std::vector<int> TilePlan::AllOnPort(std::uint8_t port) const
{
    const int first = OnPort(port, 1);
    std::vector<int> tiles(first != 0 ? static_cast<std::size_t>(grid.Columns()) : 0);
    std::iota(tiles.begin(), tiles.end(), first);
    return tiles;
}

} // namespace vxsim
