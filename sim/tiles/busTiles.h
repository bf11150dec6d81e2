// Commands for tiles by their address on a bus.
#pragma once

#include "sim/files/drives.h"
#include "sim/tiles/tileCommands.h"

#include <span>

namespace vxsim {

// Major 12: the source address of the packet selects the bus. A host starts a task and asks for its end, either for its
// result or for how far it is.
class BusTiles : public TileCommands
{
public:
    BusTiles(const Drives& signDrives, ControlBoard& controlBoard) : TileCommands(controlBoard), drives(signDrives) {}

    std::span<const CommandRow> Commands() const override;

private:
    Reply ReadFlash(const Call& call);
    Reply Install(const Call& call);
    Reply TellStatus(const Call& call);
    Reply Test(const Call& call);
    Reply Command(const Call& call);
    Reply TellResult(const Call& call);
    Reply TellProgress(const Call& call);

    Reply Start(const Call& call, std::uint8_t address, TileJob job);

    const Drives& drives;
};

} // namespace vxsim
