// The exports of major 28.
#include "vxComm/Ondra/vxOndraLED.h"

#include "platform/stop.h"

#include <vxsign/ondra.h>
#include <vxsign/read.h>
#include <vxsign/write.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

using namespace vxsign;

static_assert(sizeof(TileTaskState) == 4);
static_assert(offsetof(TileTaskState, state) == 1);
static_assert(offsetof(TileTaskState, detail) == 2);

namespace {

constexpr std::uint8_t kLastPlainType = 10;
constexpr std::size_t kSignPath = 64;

// Extensions by file type; types beyond the end begin again.
using Extension = char[5];
constexpr Extension kReadExtensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri", ".mod",
                                         ".sta", ".pix", ".ifo", ".all", ".all", ".all", ".all",
                                         ".all", ".all", ".all", ".all", ".all", ".log", ".all"};
constexpr Extension kWriteExtensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri",
                                          ".mod", ".sta", ".pix", ".ifo", ".all"};
constexpr Extension kReadExtExtensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri", ".mod",
                                            ".sta", ".pix", ".ifo", ".all", ".rev", ".rev", ".rev",
                                            ".org", ".dst", ".gan", ".gap", ".dap", ".log"};
constexpr Extension kWriteExtExtensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri", ".mod",
                                             ".sta", ".pix", ".ifo", ".all", ".rev", ".rev", ".mcc",
                                             ".org", ".dst", ".gan", ".gap", ".dap"};

template <std::size_t Count>
constexpr const char* ExtensionOf(const Extension (&table)[Count], std::uint8_t fileType)
{
    return table[fileType % Count];
}

// Where a tile's file waits on the sign's disk.
using SignPath = std::array<char, kSignPath>;
SignPath MakeSignPath(std::uint8_t port, std::uint16_t tile, const char* extension)
{
    SignPath path{};
    std::snprintf(path.data(), path.size(), "C:\\port%d\\%04x%s", port, tile, extension);
    return path;
}

Block PathBytes(const SignPath& path)
{
    return TerminatedText(path.data(), path.size());
}

struct Place
{
    std::uint8_t port;
    std::uint16_t tile;
    std::uint8_t fileType;
    std::uint8_t extra = 0;

    Fields<8> Args() const { return TaskArgs(port, tile, fileType, extra); }
};

std::uint32_t ReadTileFile(bool good, const char* localPath, const Place& place, const char* extension, bool fetch,
                           const TaskWait& wait)
{
    good = good && Required(localPath) && place.tile != VX_TILES_OF_PORT && place.port != VX_NO_PORT;
    return Call<vxOndraLED>(good, [&](vxOndraLED& sign) {
        const std::uint32_t result = fetch ? sign.RunTask({1, place.Args()}, wait) : std::uint32_t{VX_OK};
        if (result != VX_OK)
            return result;
        return vxReadSpecPathFileEx(MakeSignPath(place.port, place.tile, extension).data(), localPath);
    });
}

std::uint32_t WriteTileFile(bool good, const char* localPath, const Place& place, const char* extension,
                            std::uint32_t* detail)
{
    return Call<vxOndraLED>(good && Required(localPath) && place.port != VX_NO_PORT, [&](vxOndraLED& sign) {
        const SignPath path = MakeSignPath(place.port, place.tile, extension);
        const std::uint32_t result = vxWriteSpecFileEx(path.data(), localPath);
        return result == VX_OK ? sign.RunTask({2, place.Args(), PathBytes(path)}, {kTaskMs, {}, detail}) : result;
    });
}

// The file goes to the sign's disk; then `run` has the task that takes it to the tile.
template <class Run>
std::uint32_t WriteCalibration(const char* localPath, const Place& place, std::uint8_t mode,
                               const std::uint8_t* calParams, Run run)
{
    return Call<vxOndraLED>(Required(localPath) && place.port != VX_NO_PORT, [&](vxOndraLED& sign) {
        const SignPath path = MakeSignPath(place.port, place.tile, ".bri");
        const std::uint32_t result = vxWriteSpecFileEx(path.data(), localPath);
        if (result != VX_OK)
            return result;
        std::array<std::uint8_t, VX_CAL_PARAMS> params{};
        if (calParams != nullptr)
            std::copy_n(calParams, params.size(), params.begin());
        const auto standard = static_cast<std::uint8_t>(mode == 0 ? 1 : 0);
        const Fields<192> descriptor(Name<kSignPath>{path.data()}, standard, Zeros<3>(),
                                     Copy<VX_CAL_PARAMS>{params.data()});
        return run(sign, TileTask{2, place.Args(), descriptor});
    });
}

// Waits until a task has begun in earnest. The progress counts before the state. A task that does not stir any more, as
// one that has ended below that progress, is given up.
std::uint32_t WaitForStart(vxOndraLED& sign, std::uint32_t taskId)
{
    constexpr std::uint8_t kUnderWay = 10;
    constexpr std::uint32_t kStillMs = 600000;
    TimeLimit still(kStillMs);
    std::uint16_t former = 0;
    for (;;) {
        const std::uint32_t result = sign.QueryTask(taskId);
        if (result != VX_OK)
            return result;
        const std::uint8_t progress = sign.Reply().U8(offsetof(TileTaskState, progress));
        const std::uint8_t state = sign.Reply().U8(offsetof(TileTaskState, state));
        if (progress >= kUnderWay)
            return VX_OK;
        if (state == 3 || state == 5)
            return VX_TASK_FAILED;
        const auto now = static_cast<std::uint16_t>(progress << 8 | state);
        if (std::exchange(former, now) != now)
            still = TimeLimit(kStillMs);
        else if (still.IsPassed())
            return VX_COMMUNICATION;
        platform::Rest(kTaskMs);
    }
}

} // namespace

std::uint32_t vxOndraGetResult(std::uint32_t taskId, std::uint8_t* buffer, std::uint32_t bufferSize)
{
    return Call<vxOndraLED>(Required(buffer), [=](vxOndraLED& sign) {
        const std::uint32_t result = sign.QueryTask(taskId);
        if (result == VX_OK)
            sign.Reply().Copy(buffer, 0, std::min<std::size_t>(bufferSize, sign.Reply().Extended().size()));
        return result;
    });
}

std::uint32_t vxOndraTileTest(std::uint8_t testCode, std::uint8_t port, std::uint16_t tile)
{
    return Call<vxOndraLED>([=](vxOndraLED& sign) {
        return sign.RunTask({4, TaskArgs(port, tile, testCode)}, {kTaskMs});
    });
}

std::uint32_t vxOndraTileCMD(std::uint8_t command, std::uint8_t port, std::uint16_t tile, const std::uint8_t* data,
                             std::uint32_t dataLength)
{
    return vxOndraTileCMDTimeout(command, port, tile, data, dataLength, kTaskLimitMs);
}

std::uint32_t vxOndraTileCMDTimeout(std::uint8_t command, std::uint8_t port, std::uint16_t tile,
                                    const std::uint8_t* data, std::uint32_t dataLength, std::uint32_t timeoutMs)
{
    const TaskWait wait{kTaskMs, TimeLimit(timeoutMs)};
    return Call<vxOndraLED>([&](vxOndraLED& sign) {
        return sign.RunTask({5, TaskArgs(port, tile, command), Bytes(data, dataLength)}, wait);
    });
}

std::uint32_t vxOndraLDUCMD(std::uint8_t command, std::uint8_t value)
{
    return Send<vxOndraLED>({28, 7}, Payload(Fields<8>(value, command)));
}

std::uint32_t vxOndraSyncBriMode(std::uint8_t mode)
{
    return Send<vxOndraLED>({28, 9}, Payload(Fields<8>(mode)));
}

std::uint32_t vxOndraPicCalShow(std::uint16_t a, std::uint16_t b, std::uint16_t c, std::uint16_t d)
{
    return Call<vxOndraLED>([=](vxOndraLED& sign) { return sign.RunTask({8, Fields<12>(a, b, c, d)}, {kTaskMs}); });
}

std::uint32_t vxOndraReadTileFile(const char* localPath, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                  std::int32_t skipFetch, std::uint32_t* detail)
{
    return vxOndraReadTileFileTimeout(localPath, fileType, port, tile, skipFetch, detail, kTaskLimitMs);
}

std::uint32_t vxOndraReadTileFileTimeout(const char* localPath, std::uint8_t fileType, std::uint8_t port,
                                         std::uint16_t tile, std::int32_t skipFetch, std::uint32_t* detail,
                                         std::uint32_t timeoutMs)
{
    const TaskWait wait{kReadTaskMs, TimeLimit(timeoutMs), detail};
    return ReadTileFile(fileType <= kLastPlainType, localPath, {port, tile, fileType},
                        ExtensionOf(kReadExtensions, fileType), skipFetch == 0, wait);
}

std::uint32_t vxOndraReadTileFileExt(const char* localPath, std::uint8_t fileType, std::uint8_t port,
                                     std::uint16_t tile, std::uint8_t extra, std::uint32_t skipFetch,
                                     std::uint32_t* detail)
{
    return ReadTileFile(true, localPath, {port, tile, fileType, extra}, ExtensionOf(kReadExtExtensions, fileType),
                        skipFetch == 0, {kReadTaskMs, {}, detail});
}

std::uint32_t vxOndraWriteTileFile(const char* localPath, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                   std::uint32_t* detail)
{
    return WriteTileFile(fileType <= kLastPlainType, localPath, {port, tile, fileType},
                         ExtensionOf(kWriteExtensions, fileType), detail);
}

std::uint32_t vxOndraWriteTileFileExt(const char* localPath, std::uint8_t fileType, std::uint8_t port,
                                      std::uint16_t tile, std::uint8_t extra, std::uint32_t* detail)
{
    return WriteTileFile(true, localPath, {port, tile, fileType, extra}, ExtensionOf(kWriteExtExtensions, fileType),
                         detail);
}

std::uint32_t vxOndraWritePxlCal(const char* localPath, std::uint8_t port, std::uint16_t tile, std::uint8_t mode,
                                 std::uint32_t* detail, const std::uint8_t* calParams)
{
    return WriteCalibration(localPath, {port, tile, VX_TILE_CALIBRATION}, mode, calParams,
                            [=](vxOndraLED& sign, const TileTask& task) {
                                return sign.RunTask(task, {kTaskMs, {}, detail});
                            });
}

std::uint32_t vxOndraWritePxlCalBurn(const char* localPath, std::uint8_t port, std::uint16_t tile, std::uint8_t mode,
                                     std::uint64_t /*reserved*/, const std::uint8_t* calParams, std::uint32_t* taskId)
{
    std::uint32_t task = 0;
    if (taskId == nullptr)
        taskId = &task;
    *taskId = 0;
    return WriteCalibration(localPath, {port, tile, VX_TILE_CALIBRATION}, mode, calParams,
                            [=](vxOndraLED& sign, const TileTask& started) {
                                const std::uint32_t result = sign.StartTask(started, *taskId);
                                return result == VX_OK ? WaitForStart(sign, *taskId) : result;
                            });
}
