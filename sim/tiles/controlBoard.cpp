#include "sim/tiles/controlBoard.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vxsim {
namespace {

Reply TaskStarted(std::optional<std::uint32_t> id)
{
    if (!id)
        return Reply::WithCode(static_cast<Code>(WordOf(TaskState::kQueueFull)));
    std::array<std::uint8_t, 4> payload{};
    Store32(payload, 0, *id);
    return Reply::WithPayload(payload);
}

} // namespace

Reply ControlBoard::Start(TileJob job, std::uint64_t nowMs)
{
    const TileMoment moment = MomentAt(nowMs);
    const TaskState trouble = TileWall::OnEach(job.tiles, moment.condition, [](int) { return TaskState::kDone; });
    if (trouble == TaskState::kQueueFull)
        return TaskStarted({});
    const std::uint64_t duration = trouble == TaskState::kDone ? job.durationMs : 0;
    auto work = [tiles = std::move(job.tiles), act = std::move(job.act)](const TileMoment& then) {
        TaskEnd end;
        end.state = TileWall::OnEach(tiles, then.condition, [&](int tile) {
            TaskEnd one = act(tile, then);
            end.result = std::move(one.result);
            return one.state;
        });
        return end;
    };
    return TaskStarted(tasks.Add(std::move(work), duration, job.units, nowMs));
}

Reply ControlBoard::Fail(TaskState state, std::uint64_t nowMs)
{
    return TaskStarted(tasks.Add([state](const TileMoment&) { return TaskEnd{state, {}}; }, 0, 1, nowMs));
}

TileTasks::Report ControlBoard::Ask(std::uint32_t id, std::uint64_t nowMs)
{
    tasks.KeepUp(MomentAt(nowMs));
    return tasks.Ask(id, nowMs);
}

void ControlBoard::KeepUp(std::uint64_t nowMs)
{
    tasks.KeepUp(MomentAt(nowMs));
    wall.KeepUp(nowMs);
}

void ControlBoard::Stop()
{
    tasks.Clear();
    wall.Stop();
}

std::uint64_t ControlBoard::FileMs(std::size_t size)
{
    constexpr std::uint64_t kMostMs = 3000;
    constexpr std::size_t kBytesPerMs = 32;
    return std::min<std::uint64_t>(2 * TileJob::kShortMs + size / kBytesPerMs, kMostMs);
}

} // namespace vxsim
