// Where each tile hangs.
#pragma once

#include "sim/state/tiles.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vxsim {

// A tile and the modules it is made of, in pixels.
struct TileShape
{
    int width = 0;
    int height = 0;
    int across = 1; // modules
    int down = 1;

    int ModuleWidth() const { return width / across; }
    int ModuleHeight() const { return height / down; }
    std::size_t Pixels() const { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }
    std::size_t Modules() const { return static_cast<std::size_t>(across) * static_cast<std::size_t>(down); }
};

// Where the tiles of a face hang. Everywhere they are known by their number on the face, from 1 on.
//
// On the buses they hang in that order: 1 to 254 on bus 0, and on bus 1 those from 255 on, whose addresses begin at 1
// again; what is behind address 240 of bus 1 is on no bus. Each row of tiles hangs on a port of its own, as the pixel
// check counts them: ports and the addresses on a port begin at 1.
class TilePlan
{
public:
    TilePlan(int faceWidth, int faceHeight) : grid(faceWidth, faceHeight), width(faceWidth), height(faceHeight) {}

    int Count() const { return grid.Count(); }
    int Left(int tile) const { return grid.ColumnOf(tile) * Tiles::kSide; }
    int Top(int tile) const { return grid.RowOf(tile) * Tiles::kSide; }

    // Four modules; one where a side is odd.
    TileShape ShapeOf(int tile) const;

    // The number of the tile there; 0 if there is none.
    int OnBus(unsigned bus, std::uint8_t address) const;
    int OnPort(std::uint8_t port, std::uint16_t address) const;

    std::vector<int> All() const;
    std::vector<int> AllOnPort(std::uint8_t port) const; // none without such a port

private:
    Tiles grid;
    int width;
    int height;
};

} // namespace vxsim
