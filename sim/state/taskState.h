// The states of a task for tiles.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vxsim {

// What has become of a task of the control board.
enum class TaskState : std::uint8_t
{
    kWaiting = 0,
    kDone = 1,
    kQueueError = 2,
    kRunning = 3,
    kBusError = 4,
    kTooManyRetries = 5,
    kFailed = 6,
    kNoTask = 7,
    kBroadcastError = 8,
    kTileError = 9,
    kNoTile = 17,
    kWireError = 18,
    kPixelError = 19,
    kQueueFull = 255 // never begins
};

// The word by which hosts know the state.
constexpr std::uint16_t WordOf(TaskState state)
{
    return state == TaskState::kQueueFull ? std::uint16_t{65535}
                                          : static_cast<std::uint16_t>(3072 + static_cast<int>(state));
}

struct TaskErrorName
{
    std::string_view name;
    TaskState state;
};

// What a tile can be told to answer in place of what is asked of it.
inline constexpr TaskErrorName kTaskErrors[] = {
    {"queue", TaskState::kQueueError},  {"bus", TaskState::kBusError},   {"retry", TaskState::kTooManyRetries},
    {"normal", TaskState::kFailed},     {"task", TaskState::kNoTask},    {"broadcast", TaskState::kBroadcastError},
    {"control", TaskState::kTileError}, {"address", TaskState::kNoTile}, {"twi", TaskState::kWireError},
    {"pixel", TaskState::kPixelError},  {"full", TaskState::kQueueFull},
};

} // namespace vxsim
