#include "sim/tiles/busTiles.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/tiles/signDisk.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr std::uint8_t kEveryAddress = 0xFF;
constexpr std::size_t kFlashAddressAt = 6; // of the tile, behind the offset in its flash and a size
constexpr std::uint16_t kMostBlock = 1024;
constexpr std::uint16_t kLeastBlock = 3; // shorter results are words

bool IsEveryTile(const Call& call, std::uint8_t address)
{
    return address == kEveryAddress && call.source == 0;
}

} // namespace

std::span<const CommandRow> BusTiles::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {12, 1, "read flash of a tile", 8, 0, kUnlogged, Run<&BusTiles::ReadFlash>,
         "begins a task: up to 1024 bytes of the flash from an offset"},
        {12, 2, "result of a tile task", 4, 0, kUnlogged, Run<&BusTiles::TellResult>, "the result of a task"},
        {12, 4, "progress of a tile task", 4, 0, kUnlogged, Run<&BusTiles::TellProgress>,
         "its progress, for 12, 15 in bytes, else in percent: all at 1, done at 5 (32 bits each), the state at 11"},
        {12, 7, "status of a tile", 4, 0, kUnlogged, Run<&BusTiles::TellStatus>, "a task: the status"},
        {12, 9, "test a tile", 4, 0, kUnlogged, Run<&BusTiles::Test>,
         "a task: shows a test on the tile for 5 seconds. Byte 1 is its code"},
        {12, 11, "command to a tile", 4, 0, kLogged, Run<&BusTiles::Command>, "a task: the command of byte 1"},
        {12, 15, "install a file in a tile", 8, 0, kLogged, Run<&BusTiles::Install>,
         "a task: takes a file from the path on the sign into the flash"},
        {50, kAnyMinor, "calibration option", 0, 0, kUnlogged, Run<&BusTiles::Done>,
         "is done whatever the bytes; each minor is an option of the tiles' own"},
    };
    return kRows;
}

// A task for the tile with this address; all of them at once only take tests.
Reply BusTiles::Start(const Call& call, std::uint8_t address, TileJob job)
{
    if (IsEveryTile(call, address))
        return board.Fail(TaskState::kBroadcastError, call.nowMs);
    job.tiles = {board.Wall().Plan().OnBus(call.source, address)};
    return board.Start(std::move(job), call.nowMs);
}

// A block is read while the host asks.
Reply BusTiles::ReadFlash(const Call& call)
{
    TileJob job;
    job.durationMs = 0;
    job.act = [&wall = board.Wall(), offset = Load32(call.payload, 0),
               size = Load16(call.payload, 4)](int tile, const TileMoment&) {
        auto block = size < kLeastBlock || size > kMostBlock ? std::nullopt : wall.ReadFlash(tile, offset, size);
        return block ? TaskEnd{TaskState::kDone, std::move(*block)} : TaskEnd{TaskState::kFailed, {}};
    };
    return Start(call, call.payload[kFlashAddressAt], std::move(job));
}

Reply BusTiles::Install(const Call& call)
{
    std::string path(TextAt(call.extended, 0));
    const std::size_t size = StagedSize(drives, path);
    TileJob job;
    job.durationMs = ControlBoard::FileMs(size);
    job.units = static_cast<std::uint32_t>(size);
    job.act = [&wall = board.Wall(), &disk = drives, path = std::move(path),
               offset = Load32(call.payload, 0)](int tile, const TileMoment& then) {
        const auto file = ReadStaged(disk, path);
        return TaskEnd{file.empty() ? TaskState::kFailed : wall.WriteFlash(tile, offset, file, then), {}};
    };
    return Start(call, call.payload[kFlashAddressAt], std::move(job));
}

Reply BusTiles::TellStatus(const Call& call)
{
    TileJob job;
    job.act = [&wall = board.Wall()](int tile, const TileMoment& then) {
        const auto status = wall.Status(tile, then);
        return TaskEnd{TaskState::kDone, {status.begin(), status.end()}};
    };
    return Start(call, call.payload[0], std::move(job));
}

Reply BusTiles::Test(const Call& call)
{
    const TilePlan& plan = board.Wall().Plan();
    TileJob job;
    job.tiles = IsEveryTile(call, call.payload[0]) ? plan.All() : std::vector{plan.OnBus(call.source, call.payload[0])};
    job.act = [&wall = board.Wall(), code = call.payload[1]](int tile, const TileMoment& then) {
        return TaskEnd{wall.Test(tile, code, then), {}};
    };
    return board.Start(std::move(job), call.nowMs);
}

Reply BusTiles::Command(const Call& call)
{
    TileJob job;
    job.act = [&wall = board.Wall(), command = call.payload[1]](int tile, const TileMoment& then) {
        return TaskEnd{wall.Command(tile, command, {}, then), {}};
    };
    return Start(call, call.payload[0], std::move(job));
}

Reply BusTiles::TellResult(const Call& call)
{
    const auto report = board.Ask(Load32(call.payload, 0), call.nowMs);
    if (!report.result.empty())
        return Reply::WithExtended(report.result);
    std::array<std::uint8_t, 2> word{};
    Store16(word, 0, WordOf(report.state));
    return Reply::WithExtended(word);
}

Reply BusTiles::TellProgress(const Call& call)
{
    const auto report = board.Ask(Load32(call.payload, 0), call.nowMs);
    std::array<std::uint8_t, 12> record{};
    Store32(record, 1, report.total);
    Store32(record, 5, report.done);
    record[11] = static_cast<std::uint8_t>(report.state);
    return Reply::WithPayload(record);
}

} // namespace vxsim
