// Tasks of the control board for tiles of the second family.
#include "platform/clock.h"
#include "platform/stop.h"
#include "vxComm/Ondra/vxOndraLED.h"

#include <vxsign/ondra.h>

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 28;

// Values of TileTaskState::state.
constexpr std::uint8_t kWaiting = 1;
constexpr std::uint8_t kRunning = 2;
constexpr std::uint8_t kSucceeded = 4;

} // namespace

TimeLimit::TimeLimit(std::uint32_t ms) : startMs(platform::clock.monotonicMs()), limitMs(ms)
{
}

bool TimeLimit::IsPassed() const
{
    return platform::clock.monotonicMs() - startMs > limitMs;
}

std::uint32_t vxOndraLED::StartTask(const TileTask& task, std::uint32_t& taskId)
{
    return SendOn(*this, {kMajor, task.minor}, Payload(task.args), Extended(task.extended),
                  vxsign::Reply(OutIfThere(&taskId)));
}

std::uint32_t vxOndraLED::QueryTask(std::uint32_t taskId)
{
    return SendOn(*this, {kMajor, 3}, Payload(Fields<8>(taskId)));
}

std::uint32_t vxOndraLED::RunTask(const TileTask& task, const TaskWait& wait)
{
    std::uint32_t taskId = 0;
    std::uint32_t result = StartTask(task, taskId);
    while (result == VX_OK) {
        if (wait.limit && wait.limit->IsPassed())
            return VX_TIME_LIMIT;
        result = QueryTask(taskId);
        if (result != VX_OK)
            break;
        const ReplyView reply = Reply();
        const std::uint8_t taskState = reply.U8(offsetof(TileTaskState, state));
        if (taskState != kWaiting && taskState != kRunning) {
            if (wait.detail != nullptr)
                *wait.detail = reply.U16(offsetof(TileTaskState, detail));
            return taskState == kSucceeded ? VX_OK : VX_TASK_FAILED;
        }
        Progress(reply.U8(offsetof(TileTaskState, progress)));
        platform::Rest(wait.sleepMs);
    }
    return result;
}

} // namespace vxsign
