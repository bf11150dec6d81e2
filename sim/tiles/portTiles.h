#pragma once

#include "sim/files/drives.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/tiles/controlBoard.h"

namespace vxsim {

// Major 28: tiles by port and address. Files go by way of the sign's drive C. A host starts a task and asks for its
// state.
class PortTiles
{
public:
    PortTiles(const Drives& signDrives, ControlBoard& controlBoard) : drives(signDrives), board(controlBoard) {}

    Reply Execute(const Frame& request, const TileMoment& moment);

private:
    Reply State(const Frame& request, const TileMoment& moment);
    Reply ShowPicture(const Frame& request, const TileMoment& moment);
    Reply StartJob(const Frame& request, const TileMoment& moment);
    TileJob ReadJob(const Frame& request) const;
    TileJob WriteJob(const Frame& request) const;

    const Drives& drives;
    ControlBoard& board;
};

} // namespace vxsim
