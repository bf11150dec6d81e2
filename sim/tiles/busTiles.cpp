#include "sim/tiles/busTiles.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/tiles/signDisk.h"

#include <array>
#include <string>
#include <utility>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kReadBlock = 1,
    kResult = 2,
    kProgress = 4,
    kStatus = 7,
    kTest = 9,
    kCommand = 11,
    kInstall = 15
};

constexpr std::uint8_t kEveryAddress = 0xFF;
constexpr std::size_t kFlashAddressAt = 6; // of the tile, behind the offset in its flash and a size
constexpr std::uint16_t kMostBlock = 1024;
constexpr std::uint16_t kLeastBlock = 3; // shorter results are words

// 0 for a minor that is none.
std::size_t PayloadSize(std::uint8_t minor)
{
    switch (minor) {
    case kReadBlock:
    case kInstall:
        return 8;
    case kResult:
    case kProgress:
    case kStatus:
    case kTest:
    case kCommand:
        return 4;
    default:
        return 0;
    }
}

std::uint8_t AddressIn(const Frame& request)
{
    const bool flash = request.minor == kReadBlock || request.minor == kInstall;
    return request.payload[flash ? kFlashAddressAt : 0];
}

} // namespace

Reply BusTiles::Execute(const Frame& request, const TileMoment& moment)
{
    const std::size_t size = PayloadSize(request.minor);
    if (size == 0)
        return Reply::WithCode(Code::kUnknownMinor);
    if (request.payload.size() < size)
        return Reply::WithCode(Code::kBadLength);
    if (request.minor == kResult)
        return Result(request, moment);
    if (request.minor == kProgress)
        return Progress(request, moment);

    const std::uint8_t address = AddressIn(request);
    const bool all = address == kEveryAddress && request.source == 0;
    if (all && request.minor != kTest)
        return board.Fail(TaskState::kBroadcastError, moment);
    const TilePlan& plan = board.Wall().Plan();
    TileJob job = JobOf(request);
    job.tiles = all ? plan.All() : std::vector<int>{plan.OnBus(request.source, address)};
    return board.Start(std::move(job), moment);
}

// What is asked of the tiles; the packet is gone when they do it.
TileJob BusTiles::JobOf(const Frame& request) const
{
    TileWall& wall = board.Wall();
    const std::uint8_t code = request.payload[1]; // of a test or a command
    TileJob job;
    switch (request.minor) {
    case kReadBlock: // is read while the host asks
        job.durationMs = 0;
        job.act = [&wall, offset = Load32(request.payload, 0), size = Load16(request.payload, 4)](int tile,
                                                                                                  const TileMoment&) {
            auto block = size < kLeastBlock || size > kMostBlock ? std::nullopt : wall.ReadFlash(tile, offset, size);
            return block ? TaskEnd{TaskState::kDone, std::move(*block)} : TaskEnd{TaskState::kFailed, {}};
        };
        return job;
    case kStatus:
        job.act = [&wall](int tile, const TileMoment& then) {
            const auto status = wall.Status(tile, then);
            return TaskEnd{TaskState::kDone, {status.begin(), status.end()}};
        };
        return job;
    case kTest:
        job.act = [&wall, code](int tile, const TileMoment& then) { return TaskEnd{wall.Test(tile, code, then), {}}; };
        return job;
    case kCommand:
        job.act = [&wall, code](int tile, const TileMoment& then) {
            return TaskEnd{wall.Command(tile, code, {}, then), {}};
        };
        return job;
    default:
        return InstallJob(request);
    }
}

TileJob BusTiles::InstallJob(const Frame& request) const
{
    std::string path(TextAt(request.extended, 0));
    const std::size_t size = StagedSize(drives, path);
    TileJob job;
    job.durationMs = ControlBoard::FileMs(size);
    job.units = static_cast<std::uint32_t>(size);
    job.act = [&wall = board.Wall(), &disk = drives, path = std::move(path),
               offset = Load32(request.payload, 0)](int tile, const TileMoment& then) {
        const auto file = ReadStaged(disk, path);
        return TaskEnd{file.empty() ? TaskState::kFailed : wall.WriteFlash(tile, offset, file, then), {}};
    };
    return job;
}

Reply BusTiles::Result(const Frame& request, const TileMoment& moment)
{
    const auto report = board.Ask(Load32(request.payload, 0), moment);
    if (!report.result.empty())
        return Reply::WithExtended(report.result);
    std::array<std::uint8_t, 2> word{};
    Store16(word, 0, WordOf(report.state));
    return Reply::WithExtended(word);
}

Reply BusTiles::Progress(const Frame& request, const TileMoment& moment)
{
    const auto report = board.Ask(Load32(request.payload, 0), moment);
    std::array<std::uint8_t, 12> record{};
    Store32(record, 1, report.total);
    Store32(record, 5, report.done);
    record[11] = static_cast<std::uint8_t>(report.state);
    return Reply::WithPayload(record);
}

} // namespace vxsim
