// The queue of the control board.
#pragma once

#include "sim/monitor/tileMoment.h"
#include "sim/state/taskState.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

struct TaskEnd
{
    TaskState state = TaskState::kDone;
    std::vector<std::uint8_t> result;
};

// What the control board has to do with its tiles: one task after the other.
class TileTasks
{
public:
    static constexpr std::size_t kMostOpen = 16;
    static constexpr std::size_t kMostEnded = 64;

    using Work = std::function<TaskEnd(const TileMoment&)>;

    struct Report
    {
        TaskState state = TaskState::kNoTask;
        std::uint32_t total = 0; // units of work
        std::uint32_t done = 0;
        std::span<const std::uint8_t> result; // valid until the next call
    };

    // The task's id; none if the queue is full. The work is done at its end.
    std::optional<std::uint32_t> Add(Work work, std::uint64_t durationMs, std::uint32_t units, std::uint64_t nowMs);

    // Does the work of the tasks that have ended.
    void KeepUp(const TileMoment& moment);

    Report Ask(std::uint32_t id, std::uint64_t nowMs) const;

    // Forgets all tasks, without their work.
    void Clear();

private:
    struct Open
    {
        std::uint32_t id;
        Work work;
        std::uint64_t beginMs;
        std::uint64_t endMs;
        std::uint32_t units;
    };
    struct Ended
    {
        std::uint32_t id;
        std::uint32_t units;
        TaskEnd end;
    };

    std::deque<Open> open;
    std::deque<Ended> ended; // the latest last
    std::uint32_t lastId = 0;
};

} // namespace vxsim
