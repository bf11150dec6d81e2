// Commands for tiles by port and address.
#pragma once

#include "sim/files/drives.h"
#include "sim/tiles/tileCommands.h"

#include <span>

namespace vxsim {

// Major 28. Files go by way of the sign's drive C. A host starts a task and asks for its state.
class PortTiles : public TileCommands
{
public:
    PortTiles(const Drives& signDrives, ControlBoard& controlBoard) : TileCommands(controlBoard), drives(signDrives) {}

    std::span<const CommandRow> Commands() const override;

private:
    Reply ReadFile(const Call& call);
    Reply WriteFile(const Call& call);
    Reply Test(const Call& call);
    Reply Command(const Call& call);
    Reply ShowPicture(const Call& call);
    Reply TellState(const Call& call);

    Reply Start(const Call& call, TileJob job);

    const Drives& drives;
};

} // namespace vxsim
