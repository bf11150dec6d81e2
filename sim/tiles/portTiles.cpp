#include "sim/tiles/portTiles.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/tiles/signDisk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>

namespace vxsim {
namespace {

// Arguments of a task.
constexpr std::size_t kArgsSize = 8;
constexpr std::size_t kPortAt = 2;
constexpr std::size_t kThirdAt = 3; // type of a file, command or code of a test

constexpr std::uint16_t kEveryTile = 65535;
constexpr std::size_t kPathSize = 64; // what may stand behind it is a descriptor of the calibration

constexpr std::uint64_t kPictureSeconds = 5; // where the host gives none
constexpr std::uint64_t kMostPictureSeconds = 60;

std::uint8_t TypeIn(const Call& call)
{
    return TileFileTypeOf(call.payload[kThirdAt]);
}

std::string PathOf(const Call& call)
{
    std::array<char, kPathSize> path{};
    const std::string_view extension = kTileFileExtensions[TypeIn(call)];
    std::snprintf(path.data(), path.size(), "C:\\port%d\\%04x%.*s", call.payload[kPortAt], Load16(call.payload, 0),
                  static_cast<int>(extension.size()), extension.data());
    return path.data();
}

// As hosts know it here: 1 and 2 go on, 4 is the one good end.
std::uint8_t StateByte(TaskState state)
{
    switch (state) {
    case TaskState::kWaiting:
        return 1;
    case TaskState::kRunning:
        return 2;
    case TaskState::kNoTask:
        return 3;
    case TaskState::kDone:
        return 4;
    default:
        return 5;
    }
}

} // namespace

std::span<const CommandRow> PortTiles::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {28, 1, "read file of a tile", kArgsSize, 0, kUnlogged, Run<&PortTiles::ReadFile>,
         "a task: the tile's file goes to `C:\\port1\\0003.bri`"},
        {28, 2, "write file of a tile", kArgsSize, 0, kLogged, Run<&PortTiles::WriteFile>,
         "a task: a file comes from the path in the request, of a descriptor its first 64 bytes"},
        {28, 3, "state of a tile task", kArgsSize, 0, kUnlogged, Run<&PortTiles::TellState>,
         "percent at 0, state at 1, of a failure its word at 2"},
        {28, 4, "test a tile", kArgsSize, 0, kUnlogged, Run<&PortTiles::Test>, "as 12, 9; the code is in byte 3"},
        {28, 5, "command to a tile", kArgsSize, 0, kLogged, Run<&PortTiles::Command>,
         "as 12, 11; the command is in byte 3"},
        {28, 7, "command to the tile board", kArgsSize, 0, kUnlogged, Run<&PortTiles::Done>,
         "is done whatever the bytes"},
        {28, 8, "calibration picture", kArgsSize, 0, kUnlogged, Run<&PortTiles::ShowPicture>,
         "a task: red, green, blue (0 to 255, 16 bits each) on the whole face, and for how many seconds: 0 is 5, 60 at "
         "most"},
        {28, 9, "brightness of tiles", kArgsSize, 0, kUnlogged, Run<&PortTiles::Done>, "is done whatever the bytes"},
    };
    return kRows;
}

// A task for the tile that is addressed, or for all of its port.
Reply PortTiles::Start(const Call& call, TileJob job)
{
    const TilePlan& plan = board.Wall().Plan();
    const std::uint8_t port = call.payload[kPortAt];
    const std::uint16_t address = Load16(call.payload, 0);
    job.tiles = address == kEveryTile ? plan.AllOnPort(port) : std::vector{plan.OnPort(port, address)};
    return board.Start(std::move(job), call.nowMs);
}

Reply PortTiles::ReadFile(const Call& call)
{
    if (Load16(call.payload, 0) == kEveryTile) // as one file
        return board.Fail(TaskState::kBroadcastError, call.nowMs);
    TileJob job;
    job.act = [&wall = board.Wall(), &disk = drives, path = PathOf(call), type = TypeIn(call)](int tile,
                                                                                               const TileMoment& then) {
        const auto file = wall.ReadFile(tile, type, 0, TileFiles::kMostFile, then);
        return TaskEnd{file && WriteStaged(disk, path, file->bytes) ? TaskState::kDone : TaskState::kFailed, {}};
    };
    return Start(call, std::move(job));
}

Reply PortTiles::WriteFile(const Call& call)
{
    std::string path(TextAt(call.extended.first(std::min(call.extended.size(), kPathSize)), 0));
    const std::size_t size = StagedSize(drives, path);
    TileJob job;
    job.durationMs = ControlBoard::FileMs(size);
    job.act = [&wall = board.Wall(), &disk = drives, path = std::move(path),
               type = TypeIn(call)](int tile, const TileMoment& then) {
        const auto file = ReadStaged(disk, path);
        return TaskEnd{file.empty() ? TaskState::kFailed : wall.WriteFile(tile, type, file, then), {}};
    };
    return Start(call, std::move(job));
}

Reply PortTiles::Test(const Call& call)
{
    TileJob job;
    job.act = [&wall = board.Wall(), code = call.payload[kThirdAt]](int tile, const TileMoment& then) {
        return TaskEnd{wall.Test(tile, code, then), {}};
    };
    return Start(call, std::move(job));
}

Reply PortTiles::Command(const Call& call)
{
    TileJob job;
    job.act = [&wall = board.Wall(), command = call.payload[kThirdAt],
               data = std::vector(call.extended.begin(), call.extended.end())](int tile, const TileMoment& then) {
        return TaskEnd{wall.Command(tile, command, data, then), {}};
    };
    return Start(call, std::move(job));
}

// Red, green and blue for the whole face, and for how many seconds.
Reply PortTiles::ShowPicture(const Call& call)
{
    std::array<std::uint8_t, 3> light{};
    for (std::size_t i = 0; i < light.size(); ++i)
        light[i] = static_cast<std::uint8_t>(std::min<std::uint16_t>(Load16(call.payload, 2 * i), 255));
    const std::uint64_t wanted = Load16(call.payload, 6);
    const std::uint64_t seconds = wanted != 0 ? std::min(wanted, kMostPictureSeconds) : kPictureSeconds;
    TileJob job;
    job.tiles = board.Wall().Plan().All();
    job.act = [&wall = board.Wall(), light, seconds](int, const TileMoment& then) {
        wall.Show({light[0], light[1], light[2], then.nowMs + seconds * 1000});
        return TaskEnd{};
    };
    return board.Start(std::move(job), call.nowMs);
}

// Progress in percent, state, and for a failure the word that tells of it.
Reply PortTiles::TellState(const Call& call)
{
    const auto report = board.Ask(Load32(call.payload, 0), call.nowMs);
    std::array<std::uint8_t, 4> record{};
    record[0] = static_cast<std::uint8_t>(std::uint64_t{report.done} * 100 / std::max(report.total, 1U));
    record[1] = StateByte(report.state);
    if (record[1] == StateByte(TaskState::kFailed) || report.state == TaskState::kNoTask)
        Store16(record, 2, WordOf(report.state));
    return Reply::WithExtended(record);
}

} // namespace vxsim
