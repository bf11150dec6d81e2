#include "sim/tiles/tileTasks.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace vxsim {

std::optional<std::uint32_t> TileTasks::Add(Work work, std::uint64_t durationMs, std::uint32_t units,
                                            std::uint64_t nowMs)
{
    if (open.size() == kMostOpen)
        return std::nullopt;
    const std::uint64_t begin = open.empty() ? nowMs : std::max(nowMs, open.back().endMs);
    open.push_back({++lastId, std::move(work), begin, begin + durationMs, units});
    return lastId;
}

void TileTasks::KeepUp(const TileMoment& moment)
{
    while (!open.empty() && open.front().endMs <= moment.nowMs) {
        const Open task = std::move(open.front());
        open.pop_front();
        TaskEnd end{TaskState::kFailed, {}};
        try {
            end = task.work(moment);
        } catch (const std::exception&) { // no memory, or a file system that fails where it should not
        }
        ended.push_back({task.id, task.units, std::move(end)});
        if (ended.size() > kMostEnded)
            ended.pop_front();
    }
}

TileTasks::Report TileTasks::Ask(std::uint32_t id, std::uint64_t nowMs) const
{
    if (const auto task = std::ranges::find(ended, id, &Ended::id); task != ended.end()) {
        const bool done = task->end.state == TaskState::kDone;
        return {task->end.state, task->units, done ? task->units : 0, task->end.result};
    }
    const auto task = std::ranges::find(open, id, &Open::id);
    if (task == open.end())
        return {};
    if (nowMs < task->beginMs)
        return {TaskState::kWaiting, task->units, 0, {}};
    const std::uint64_t duration = std::max<std::uint64_t>(task->endMs - task->beginMs, 1);
    const std::uint64_t passed = std::min(nowMs - task->beginMs, duration);
    return {TaskState::kRunning, task->units, static_cast<std::uint32_t>(task->units * passed / duration), {}};
}

void TileTasks::Clear()
{
    open.clear();
    ended.clear();
}

} // namespace vxsim
