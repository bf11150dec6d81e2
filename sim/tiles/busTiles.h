#pragma once

#include "sim/files/drives.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/tiles/controlBoard.h"

namespace vxsim {

// Major 12: tiles by their address on a bus, which the source address of the packet selects. A host starts a task and
// asks for its end, either for its result or for how far it is.
class BusTiles
{
public:
    BusTiles(const Drives& signDrives, ControlBoard& controlBoard) : drives(signDrives), board(controlBoard) {}

    Reply Execute(const Frame& request, const TileMoment& moment);

private:
    Reply Result(const Frame& request, const TileMoment& moment);
    Reply Progress(const Frame& request, const TileMoment& moment);
    TileJob JobOf(const Frame& request) const;
    TileJob InstallJob(const Frame& request) const;

    const Drives& drives;
    ControlBoard& board;
};

} // namespace vxsim
