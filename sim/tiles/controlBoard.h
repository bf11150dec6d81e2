#pragma once

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
    explicit ControlBoard(TileWall& tiles) : wall(tiles) {}

    // Answers with the id of the task. What is clear from the start fails at once.
    Reply Start(TileJob job, const TileMoment& moment);
    Reply Fail(TaskState state, const TileMoment& moment);

    TileTasks::Report Ask(std::uint32_t id, const TileMoment& moment);
    void KeepUp(const TileMoment& moment) { tasks.KeepUp(moment); }
    void Stop() { tasks.Clear(); }

    TileWall& Wall() { return wall; }

    // How long a file of this size is on its way between the sign's disk and a tile.
    static std::uint64_t FileMs(std::size_t size);

private:
    TileWall& wall;
    TileTasks tasks;
};

} // namespace vxsim
