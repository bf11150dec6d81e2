// What stands between the commands and the tiles.
#pragma once

#include "sim/monitor/monitor.h"
#include "sim/protocol/reply.h"
#include "sim/tiles/tileTasks.h"
#include "sim/tiles/tileWall.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace vxsim {

// A task for some tiles.
struct TileJob
{
    static constexpr std::uint64_t kShortMs = 100;

    std::vector<int> tiles;                             // one, or all that are meant
    std::function<TaskEnd(int, const TileMoment&)> act; // the result of the last tile is the task's
    std::uint64_t durationMs = kShortMs;
    std::uint32_t units = 100; // of work
};

// What stands between a host and the tiles: takes jobs for them one after the other.
class ControlBoard
{
public:
    ControlBoard(TileWall& tiles, const Monitor& watch) : wall(tiles), monitor(watch) {}

    // Answers with the id of the task. What is clear from the start fails at once.
    Reply Start(TileJob job, std::uint64_t nowMs);
    Reply Fail(TaskState state, std::uint64_t nowMs);

    TileTasks::Report Ask(std::uint32_t id, std::uint64_t nowMs);

    // Lets the tiles do what they have to until then.
    void KeepUp(std::uint64_t nowMs);

    // A restart of the sign: tasks and tests end.
    void Stop();

    TileWall& Wall() { return wall; }
    TileMoment MomentAt(std::uint64_t nowMs) const { return monitor.TilesAt(nowMs); }

    // How long a file of this size is on its way between the sign's disk and a tile.
    static std::uint64_t FileMs(std::size_t size);

private:
    TileWall& wall;
    const Monitor& monitor;
    TileTasks tasks;
};

} // namespace vxsim
