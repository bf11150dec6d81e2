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

enum : std::uint8_t
{
    kRead = 1,
    kWrite = 2,
    kState = 3,
    kTest = 4,
    kCommand = 5,
    kBoardCommand = 7,
    kPicture = 8,
    kBrightnessMode = 9
};

// Arguments of a task.
constexpr std::size_t kArgsSize = 8;
constexpr std::size_t kPortAt = 2;
constexpr std::size_t kThirdAt = 3; // type of a file, command or code of a test

constexpr std::uint16_t kEveryTile = 65535;
constexpr std::size_t kPathSize = 64; // what may stand behind it is a descriptor of the calibration

constexpr std::uint64_t kPictureSeconds = 5; // where the host gives none
constexpr std::uint64_t kMostPictureSeconds = 60;

std::uint8_t TypeIn(const Frame& request)
{
    return TileFileTypeOf(request.payload[kThirdAt]);
}

std::string PathOf(const Frame& request)
{
    std::array<char, kPathSize> path{};
    const std::string_view extension = kTileFileExtensions[TypeIn(request)];
    std::snprintf(path.data(), path.size(), "C:\\port%d\\%04x%.*s", request.payload[kPortAt],
                  Load16(request.payload, 0), static_cast<int>(extension.size()), extension.data());
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

Reply PortTiles::Execute(const Frame& request, const TileMoment& moment)
{
    if (request.payload.size() < kArgsSize)
        return Reply::WithCode(Code::kBadLength);
    switch (request.minor) {
    case kRead:
    case kWrite:
    case kTest:
    case kCommand:
        return StartJob(request, moment);
    case kState:
        return State(request, moment);
    case kPicture:
        return ShowPicture(request, moment);
    case kBoardCommand: // nothing to be seen
    case kBrightnessMode:
        return Reply::Done();
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

Reply PortTiles::StartJob(const Frame& request, const TileMoment& moment)
{
    const std::uint16_t address = Load16(request.payload, 0);
    const std::uint8_t port = request.payload[kPortAt];
    const bool all = address == kEveryTile;
    if (all && request.minor == kRead) // as one file
        return board.Fail(TaskState::kBroadcastError, moment);
    TileWall& wall = board.Wall();
    TileJob job;
    switch (request.minor) {
    case kRead:
        job = ReadJob(request);
        break;
    case kWrite:
        job = WriteJob(request);
        break;
    case kTest:
        job.act = [&wall, code = request.payload[kThirdAt]](int tile, const TileMoment& then) {
            return TaskEnd{wall.Test(tile, code, then), {}};
        };
        break;
    default:
        job.act = [&wall, command = request.payload[kThirdAt],
                   data = std::vector(request.extended.begin(), request.extended.end())](int tile,
                                                                                         const TileMoment& then) {
            return TaskEnd{wall.Command(tile, command, data, then), {}};
        };
    }
    const TilePlan& plan = wall.Plan();
    job.tiles = all ? plan.AllOnPort(port) : std::vector<int>{plan.OnPort(port, address)};
    return board.Start(std::move(job), moment);
}

TileJob PortTiles::ReadJob(const Frame& request) const
{
    TileJob job;
    job.act = [&wall = board.Wall(), &disk = drives, path = PathOf(request),
               type = TypeIn(request)](int tile, const TileMoment& then) {
        const auto file = wall.ReadFile(tile, type, 0, TileFiles::kMostFile, then);
        return TaskEnd{file && WriteStaged(disk, path, file->bytes) ? TaskState::kDone : TaskState::kFailed, {}};
    };
    return job;
}

TileJob PortTiles::WriteJob(const Frame& request) const
{
    std::string path(TextAt(request.extended.first(std::min(request.extended.size(), kPathSize)), 0));
    const std::size_t size = StagedSize(drives, path);
    TileJob job;
    job.durationMs = ControlBoard::FileMs(size);
    job.act = [&wall = board.Wall(), &disk = drives, path = std::move(path),
               type = TypeIn(request)](int tile, const TileMoment& then) {
        const auto file = ReadStaged(disk, path);
        return TaskEnd{file.empty() ? TaskState::kFailed : wall.WriteFile(tile, type, file, then), {}};
    };
    return job;
}

// Red, green and blue for the whole face, and for how many seconds.
Reply PortTiles::ShowPicture(const Frame& request, const TileMoment& moment)
{
    std::array<std::uint8_t, 3> light{};
    for (std::size_t i = 0; i < light.size(); ++i)
        light[i] = static_cast<std::uint8_t>(std::min<std::uint16_t>(Load16(request.payload, 2 * i), 255));
    const std::uint64_t wanted = Load16(request.payload, 6);
    const std::uint64_t seconds = wanted != 0 ? std::min(wanted, kMostPictureSeconds) : kPictureSeconds;
    TileJob job;
    job.tiles = board.Wall().Plan().All();
    job.act = [&wall = board.Wall(), light, seconds](int, const TileMoment& then) {
        wall.Show({light[0], light[1], light[2], then.nowMs + seconds * 1000});
        return TaskEnd{};
    };
    return board.Start(std::move(job), moment);
}

// Progress in percent, state, and for a failure the word that tells of it.
Reply PortTiles::State(const Frame& request, const TileMoment& moment)
{
    const auto report = board.Ask(Load32(request.payload, 0), moment);
    std::array<std::uint8_t, 4> record{};
    record[0] = static_cast<std::uint8_t>(std::uint64_t{report.done} * 100 / std::max(report.total, 1U));
    record[1] = StateByte(report.state);
    if (record[1] == StateByte(TaskState::kFailed) || report.state == TaskState::kNoTask)
        Store16(record, 2, WordOf(report.state));
    return Reply::WithExtended(record);
}

} // namespace vxsim
