// The command object of the second tile family: its tasks and its packets for a tile itself.
#pragma once

#include "vxBaseCMD/call.h"
#include "vxBaseCMD/vxBaseCMD.h"

#include <cstdint>
#include <optional>

namespace vxsign {

/// Ticks from its making on, for operations that must end in time.
class TimeLimit
{
public:
    explicit TimeLimit(std::uint32_t ms);
    bool IsPassed() const;

private:
    std::uint64_t startMs;
    std::uint32_t limitMs;
};

/// How a task is waited for.
struct TaskWait
{
    std::uint32_t sleepMs;
    std::optional<TimeLimit> limit = {};
    std::uint32_t* detail = nullptr; // gets the tile's value at the end, if there
};

constexpr std::uint32_t kTaskMs = 100;
constexpr std::uint32_t kReadTaskMs = 20;
constexpr std::uint32_t kTaskLimitMs = 300000;

/// A task of the control board: the command that starts it.
struct TileTask
{
    std::uint8_t minor;
    Block args;
    Block extended = {};
};

/// The arguments of most tasks. `third` is the file type, the command or the test code.
constexpr Fields<8> TaskArgs(std::uint8_t port, std::uint16_t tile, std::uint8_t third, std::uint8_t extra = 0)
{
    return Fields<8>(tile, port, third, extra);
}

/// Tiles of the second family: major 28 by way of the control board, and packets of their own for a tile itself.
class vxOndraLED : public CBaseCMD
{
public:
    /// Starts a task and waits for its end: 0, or VX_TASK_FAILED for any end but success.
    std::uint32_t RunTask(const TileTask& task, const TaskWait& wait);
    std::uint32_t StartTask(const TileTask& task, std::uint32_t& taskId);

    /// Asks for a task once. The state begins the reply's data.
    std::uint32_t QueryTask(std::uint32_t taskId);

    /// Exchanges a packet with a tile itself: `minor` is one of direct.
    std::uint32_t DirectRequest(std::uint8_t minor, std::uint16_t tile, std::span<const std::uint8_t> payload,
                                std::span<const std::uint8_t> extended = {});

    /// Lays a packet for a tile out in requestBuffer, with the next id. False when it does not fit.
    bool BuildDirectPacket(std::uint8_t minor, std::uint16_t tile, std::span<const std::uint8_t> payload,
                           std::span<const std::uint8_t> extended);

    std::uint32_t DirectCommand(std::uint8_t command, std::uint8_t port, std::uint16_t tile,
                                std::span<const std::uint8_t> data = {});
    std::uint32_t ReadDirectFile(const char* path, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                 std::uint8_t extra);
    std::uint32_t WriteDirectFile(const char* path, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                  std::uint8_t extra);
};

/// Minors of the packets for a tile itself.
namespace direct {
constexpr std::uint8_t kReadChunk = 1;
constexpr std::uint8_t kWriteChunk = 2;
constexpr std::uint8_t kCommand = 3;
constexpr std::uint8_t kTest = 4;
} // namespace direct

} // namespace vxsign
