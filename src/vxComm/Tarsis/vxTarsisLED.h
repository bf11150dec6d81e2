// The command object of the first tile family.
#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

#include <optional>
#include <span>

namespace vxsign {

/// Tiles of the first family: majors 12 and 50. Each Start... begins a task of the control board; a reply that names no
/// task leaves taskId as it was.
class vxTarsisLED : public CBaseCMD
{
public:
    std::uint32_t StartStatus(std::uint16_t tile, std::uint32_t* taskId);
    std::uint32_t StartTest(std::uint16_t tile, std::uint8_t testCode, std::uint32_t* taskId);

    /// Waits for a task's result data: `status` becomes VX_TASK_SUCCESS when `out` has got it. Returns the result of
    /// the last question.
    std::uint32_t PollTaskResult(std::uint32_t taskId, std::span<std::uint8_t> out, std::uint16_t& status);

    /// Waits for a task that tells how far it is. Returns how it ended if that was no success, otherwise the result of
    /// the last question; the state of one that has not ended in all its rounds.
    std::uint32_t PollTaskProgress(std::uint32_t taskId);

    /// Sends a tile a command and waits.
    std::uint32_t RunCommand(std::uint16_t tile, std::uint8_t command);

    std::uint32_t WriteTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType);
    std::uint32_t ReadTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType);

private:
    std::uint32_t StartInstall(std::uint16_t tile, const char* signPath, std::uint32_t flashOffset,
                               std::uint32_t* taskId);
    std::uint32_t StartReadBlock(std::uint16_t tile, std::uint32_t flashOffset, std::uint32_t* taskId);
    /// What an operation ends with when `out` did not get a task's result, a tile's status, a block of its flash.
    std::optional<std::uint32_t> FailedResult(std::uint32_t taskId, std::span<std::uint8_t> out);
    std::optional<std::uint32_t> FailedStatus(std::uint16_t tile, std::span<std::uint8_t> out);
    std::optional<std::uint32_t> FailedBlock(std::uint16_t tile, std::uint32_t flashOffset,
                                             std::span<std::uint8_t> out);
    std::uint8_t SelectTile(std::uint16_t tile);
    std::uint8_t SelectAllTiles();
};

} // namespace vxsign
