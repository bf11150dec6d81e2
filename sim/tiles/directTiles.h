#pragma once

#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/tiles/tileWall.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vxsim {

// Major 124, in packets with a sync of their own: one tile, named by the destination and a port. It answers at once,
// and files come and go in pieces.
class DirectTiles
{
public:
    explicit DirectTiles(TileWall& tiles) : wall(tiles) {}

    Reply Execute(const Frame& request, const TileMoment& moment);

    // Forgets files that have not come in full.
    void Stop() { uploads.clear(); }

private:
    // A file on its way to a tile or to all of a port.
    struct Upload
    {
        std::uint8_t port = 0;
        std::uint16_t address = 0;
        std::uint8_t fileType = 0;
        std::size_t size = 0;
        std::vector<std::uint8_t> bytes; // that have come
        std::optional<Code> end;         // what the last piece was answered with
    };

    Reply ReadPiece(const Frame& request, const TileMoment& moment) const;
    Reply WritePiece(const Frame& request, const TileMoment& moment);
    Code BeginUpload(const Frame& request, const TileMoment& moment);
    std::vector<int> TilesOf(const Frame& request) const;

    TileWall& wall;
    std::vector<Upload> uploads; // the latest last
};

} // namespace vxsim
