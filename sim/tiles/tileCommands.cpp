#include "sim/tiles/tileCommands.h"

namespace vxsim {

Reply TileCommands::Execute(const Frame& request, const TileMoment& moment)
{
    KeepUp(moment);
    if (request.tile)
        return request.major == kDirect ? direct.Execute(request, moment) : Reply::WithCode(Code::kUnknownMajor);
    switch (request.major) {
    case kBuses:
        return buses.Execute(request, moment);
    case kPorts:
        return ports.Execute(request, moment);
    case kCalibrationOptions: // each minor is an option of the tiles' own
        return Reply::Done();
    default:
        return Reply::WithCode(Code::kUnknownMajor);
    }
}

void TileCommands::KeepUp(const TileMoment& moment)
{
    board.KeepUp(moment);
    wall.KeepUp(moment.nowMs);
}

void TileCommands::Stop()
{
    board.Stop();
    direct.Stop();
    wall.Stop();
}

} // namespace vxsim
