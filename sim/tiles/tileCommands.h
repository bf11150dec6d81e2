// What the three ways to the tiles have in common.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/tiles/controlBoard.h"

#include <cstdint>

namespace vxsim {

// Commands for tiles. Whatever comes, the tiles have first done what they had to until then.
class TileCommands : public CommandFamily
{
public:
    explicit TileCommands(ControlBoard& controlBoard) : board(controlBoard) {}

    Reply Execute(const Call& call) override
    {
        KeepUp(call.nowMs);
        return CommandFamily::Execute(call);
    }
    void KeepUp(std::uint64_t nowMs) override { board.KeepUp(nowMs); }
    void Restart(std::uint64_t, bool) override { board.Stop(); }

protected:
    ControlBoard& board;
};

} // namespace vxsim
