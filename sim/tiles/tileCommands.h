#pragma once

#include "sim/files/drives.h"
#include "sim/monitor/tileMoment.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/tiles/busTiles.h"
#include "sim/tiles/controlBoard.h"
#include "sim/tiles/directTiles.h"
#include "sim/tiles/portTiles.h"
#include "sim/tiles/tileWall.h"

#include <cstdint>
#include <filesystem>

namespace vxsim {

// The tiles that the face is built of, in the three ways that hosts reach them.
class TileCommands
{
public:
    enum Major : std::uint8_t
    {
        kBuses = 12,
        kPorts = 28,
        kCalibrationOptions = 50,
        kDirect = 124
    };

    TileCommands(const Drives& drives, const std::filesystem::path& keptFolder, int faceWidth, int faceHeight)
        : wall(keptFolder, faceWidth, faceHeight), board(wall), buses(drives, board), ports(drives, board), direct(wall)
    {
    }
    TileCommands(const TileCommands&) = delete;
    TileCommands& operator=(const TileCommands&) = delete;

    Reply Execute(const Frame& request, const TileMoment& moment);

    void KeepUp(const TileMoment& moment);

    // A restart of the sign: tasks and tests end.
    void Stop();

    const TileWall& Wall() const { return wall; }

private:
    TileWall wall;
    ControlBoard board;
    BusTiles buses;
    PortTiles ports;
    DirectTiles direct;
};

} // namespace vxsim
