// Files between the PC and a tile of the first family.
#include "platform/stop.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "vxComm/Tarsis/vxTarsisLED.h"
#include "vxComm/shared/tileBlock.h"

#include <vxsign/tarsis.h>
#include <vxsign/write.h>

#include <algorithm>
#include <array>

namespace vxsign {
namespace {

constexpr std::uint32_t kStatusMs = 500; // until the control board has the tile's status
constexpr std::size_t kResultSize = 1024;
using TaskResult = std::array<std::uint8_t, kResultSize>;

// After every installation the tile is tested with this code and told this command.
constexpr std::uint8_t kInstalledTest = 18;
constexpr std::uint8_t kInstalledCommand = 2;

// Where a file waits on the sign's disk and where it goes in the tile's flash.
struct TileFile
{
    const char* signPath;
    std::uint32_t flashOffset;
};
constexpr TileFile kTileFiles[] = {
    {"C:\\R_DATA\\R.DAT", 0},        {"C:\\DRIVER\\DRV.DAT", 6864},       {"C:\\CTL_FPGA\\FPGA.DAT", 24816},
    {"C:\\BACKUP\\CPU.BIN", 123288}, {"C:\\R_DATA\\BRBLOCK.DAT", 103488},
};
constexpr std::uint8_t kCalibration = 4;

// Some firmware has the calibration elsewhere.
constexpr std::uint16_t kFirstOtherFirmware = 4228;
constexpr std::uint16_t kLastOtherFirmware = 4351;
constexpr std::uint32_t kOtherCalibrationOffset = 86064;

std::uint32_t CalibrationOffset(const TaskResult& tile)
{
    const std::uint16_t firmware = Load16(&tile[offsetof(TileStatRecord, firmware)]);
    const bool other = firmware >= kFirstOtherFirmware && firmware <= kLastOtherFirmware;
    return other ? kOtherCalibrationOffset : kTileFiles[kCalibration].flashOffset;
}

std::uint32_t CalibrationLength(const TaskResult& tile)
{
    constexpr std::uint8_t kModelWithModules = 0xE;
    constexpr std::uint32_t kModuleHeaders = 640;
    const std::uint32_t pixels =
        std::uint32_t{tile[offsetof(TileStatRecord, width)]} * tile[offsetof(TileStatRecord, height)];
    const bool modules = tile[offsetof(TileStatRecord, tileModel)] >> 4 == kModelWithModules;
    return static_cast<std::uint32_t>(pixels * kPixelRecord + kTileFileHeader) + (modules ? kModuleHeaders : 0);
}

} // namespace

std::optional<std::uint32_t> vxTarsisLED::FailedResult(std::uint32_t taskId, std::span<std::uint8_t> out)
{
    std::uint16_t status = 0;
    const std::uint32_t result = PollTaskResult(taskId, out, status);
    if (result != VX_OK)
        return result;
    if (status != VX_TASK_SUCCESS)
        return status;
    return {};
}

std::optional<std::uint32_t> vxTarsisLED::FailedStatus(std::uint16_t tile, std::span<std::uint8_t> out)
{
    std::uint32_t task = 0;
    StartStatus(tile, &task); // one that does not start shows when it is waited for
    platform::Rest(kStatusMs);
    return FailedResult(task, out);
}

std::optional<std::uint32_t> vxTarsisLED::FailedBlock(std::uint16_t tile, std::uint32_t flashOffset,
                                                      std::span<std::uint8_t> out)
{
    if (tile > VX_LAST_TILE)
        return VX_ARGUMENTS;
    std::uint32_t task = 0;
    const std::uint32_t result = StartReadBlock(tile, flashOffset, &task);
    return result == VX_OK ? FailedResult(task, out) : result;
}

std::uint32_t vxTarsisLED::WriteTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType)
{
    TaskResult status{};
    if (const auto failure = FailedStatus(tile, status))
        return *failure;
    if (fileType >= std::size(kTileFiles))
        return VX_ARGUMENTS;
    TileFile file = kTileFiles[fileType];
    if (fileType == kCalibration)
        file.flashOffset = CalibrationOffset(status);

    // The tile is set going again whether or not the file has reached it.
    std::uint32_t task = 0;
    if (vxWriteSpecFileEx(file.signPath, localPath) == VX_OK &&
        StartInstall(tile, file.signPath, file.flashOffset, &task) == VX_OK)
        PollTaskProgress(task);
    StartTest(tile, kInstalledTest, &task);
    return RunCommand(tile, kInstalledCommand);
}

std::uint32_t vxTarsisLED::ReadTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType)
{
    TaskResult status{};
    if (const auto failure = FailedStatus(tile, status))
        return *failure;
    if (fileType != kCalibration)
        return VX_ARGUMENTS;
    const std::uint32_t offset = CalibrationOffset(status);
    const std::uint32_t length = CalibrationLength(status);
    File file = OpenFile(localPath, "wb");
    if (!file)
        return VX_OPEN_FILE;
    for (std::uint32_t done = 0; done < length; done += kTileChunk) {
        TaskResult block{};
        if (const auto failure = FailedBlock(tile, offset + done, block))
            return *failure;
        if (!WriteAll(file, block.data(), std::min<std::size_t>(length - done, kTileChunk)))
            return VX_CALL;
    }
    return CloseFile(file) ? VX_OK : VX_CALL;
}

} // namespace vxsign
