// The three ways to a tile.
#include "vxctl/tiles/tileAccess.h"

#include "vxctl/cli/libraryOutput.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/directtile.h>
#include <vxsign/ondra.h>
#include <vxsign/tarsis.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kTaskDone = 3073;
constexpr std::uint8_t kFirstCalibration = 4; // fileType of the first family
constexpr std::uint8_t kCalibration = VX_TILE_CALIBRATION;
constexpr std::uint8_t kLastPlainType = 10; // of the second; the others have a command of their own
constexpr std::uint32_t kReadMs = 300000;
constexpr std::size_t kModuleAt = 12; // of a status, in the usual layout

// Direct access leaves files in the folder "c:" of the current one, and others beside the file that it works on: all of
// them go with this.
class DirectWork
{
public:
    explicit DirectWork(const TileChoice& choice) : former(fs::current_path()), path(folder.Path())
    {
        std::error_code error;
        fs::create_directories(path / "c:" / ("port" + std::to_string(choice.port)), error);
        fs::current_path(path, error);
        if (error)
            throw SignFailure(VX_OPEN_FILE);
    }
    ~DirectWork()
    {
        std::error_code error;
        fs::current_path(former, error);
    }
    DirectWork(const DirectWork&) = delete;
    DirectWork& operator=(const DirectWork&) = delete;

    std::string File() const { return (path / "file").string(); }

private:
    TemporaryFolder folder;
    fs::path former;
    fs::path path;
    LibraryOutput dropped; // it tells of each piece
};

// The second family tells what was wrong in a word beside the result.
void CheckDetailed(Session& session, std::uint32_t result, std::uint32_t detail)
{
    if (result == VX_TASK_FAILED && detail != 0)
        session.report.Value("detail", "detail", detail, std::to_string(detail) + ": " + vxErrorDesc(detail));
    Check(result);
}

// How a command of the first family ended. One that is still worked on gives its bare state.
void CheckEnd(std::uint32_t result)
{
    constexpr std::uint32_t kWorkedOn = VX_TASK_PROCESSING - VX_TASK_WAITING;
    Check(result == kWorkedOn ? std::uint32_t{VX_TASK_PROCESSING} : result);
}

// The result of a task of the first family.
std::vector<std::uint8_t> AwaitTask(std::uint32_t task)
{
    std::array<std::uint8_t, 1024> buffer{};
    std::uint16_t status = 0;
    Check(vxTarsisGetResult(task, buffer.data(), static_cast<std::uint32_t>(buffer.size()), &status));
    if (status == VX_OK)
        throw SignFailure(VX_FAILED_OPERATION, "the sign tells neither how the task ended nor what it found");
    if (status != kTaskDone)
        throw SignFailure(status);
    return {buffer.begin(), buffer.end()};
}

TileStatus ReadFirstStatus(const TileChoice& choice)
{
    std::uint32_t task = 0;
    Check(vxTarsisGetTileStat(choice.tile, &task));
    TileStatus status;
    status.record = AwaitTask(task);
    status.record.resize(32);
    TileStatRecord record{};
    std::memcpy(&record, status.record.data(), sizeof record);
    status.shape = {record.width,    record.height, status.record[kModuleAt], status.record[kModuleAt + 1], 0,
                    record.tileModel};
    status.firmware = std::uint32_t{record.firmware}; // a packed field cannot be referred to
    return status;
}

TileStatus ReadPortStatus(Session& session, const TileChoice& choice)
{
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "status";
    ReadTileFile(session, choice, {VX_TILE_STATUS}, local);
    const auto file = ReadWhole(local);
    TileFileHeader header{};
    TileStaRecord record{};
    if (file.size() < sizeof header + sizeof record)
        throw SignFailure(VX_NO_MAGIC);
    std::memcpy(&header, file.data(), sizeof header);
    std::memcpy(&record, file.data() + sizeof header, sizeof record);
    if (header.magic != 0x55AA)
        throw SignFailure(VX_NO_MAGIC);
    TileStatus status;
    status.record.assign(file.begin() + sizeof header, file.begin() + sizeof header + sizeof record);
    status.shape = {record.width, record.height, record.moduleWidth, record.moduleHeight, 0, 0};
    status.locked = (record.flags & VX_TILE_LOCKED) != 0;
    return status;
}

void CopyOver(const std::string& from, const std::string& to)
{
    std::error_code error;
    if (!fs::copy_file(from, to, fs::copy_options::overwrite_existing, error) || error)
        throw SignFailure(VX_OPEN_FILE);
}

void ReadDirect(const TileChoice& choice, const TileFile& file, const std::string& local)
{
    const std::string target = fs::absolute(local).string();
    const DirectWork work(choice);
    Check(vxDirectTileReadFileEx(work.File().c_str(), file.TypeFor(TileWay::kDirect), choice.port, choice.tile,
                                 file.Extra()));
    CopyOver(work.File(), target);
}

void WriteDirect(const TileChoice& choice, const TileFile& file, const std::string& local)
{
    const std::string source = fs::absolute(local).string();
    const DirectWork work(choice);
    CopyOver(source, work.File());
    Check(vxDirectTileWriteFileEx(work.File().c_str(), file.TypeFor(TileWay::kDirect), choice.port, choice.tile,
                                  file.Extra()));
}

// Throws what a step of the command that has ended failed with.
void CheckSteps()
{
    const std::string& failed = Session::Failed();
    if (failed == vxErrorDesc(VX_COMMUNICATION))
        throw SignFailure(VX_COMMUNICATION);
    if (!failed.empty())
        throw SignFailure(VX_FAILED_OPERATION, "the file did not reach the tile: " + failed);
}

} // namespace

std::uint32_t ParseTile(const std::string& text)
{
    constexpr std::uint32_t kAllTiles = 65535;
    const auto number = text == "all" ? kAllTiles : ParseNumber(text);
    if (!number || *number > kAllTiles)
        throw UsageError("'" + text + "' is no tile: 0 to 65535, or all");
    return *number;
}

TileChoice::TileChoice(const Args& args)
    : tile(args.Number<std::uint16_t>("TILE")), port(args.Number<std::uint8_t>("--port")), hasPort(args.Has("--port")),
      direct(args.Has("--direct"))
{
}

std::uint8_t TileFile::TypeFor(TileWay way) const
{
    return static_cast<std::uint8_t>(type.value_or(way == TileWay::kFirst ? kFirstCalibration : kCalibration));
}

TileStatus ReadTileStatus(Session& session, const TileChoice& choice)
{
    return choice.Way() == TileWay::kFirst ? ReadFirstStatus(choice) : ReadPortStatus(session, choice);
}

void TestTile(const TileChoice& choice, std::uint8_t testCode)
{
    switch (choice.Way()) {
    case TileWay::kFirst: {
        std::uint32_t task = 0;
        Check(vxTarsisTileTest(choice.tile, testCode, &task));
        AwaitTask(task);
        return;
    }
    case TileWay::kPort:
        return Check(vxOndraTileTest(testCode, choice.port, choice.tile));
    case TileWay::kDirect:
        return Check(vxDirectTileTest(testCode, choice.port, choice.tile));
    }
}

void CommandTile(const TileChoice& choice, std::uint8_t command, const std::vector<std::uint8_t>& data,
                 std::uint32_t timeoutMs)
{
    static constexpr std::uint8_t kNothing = 0;
    const std::uint8_t* const bytes = data.empty() ? &kNothing : data.data();
    const auto size = static_cast<std::uint32_t>(data.size());
    switch (choice.Way()) {
    case TileWay::kFirst:
        if (!data.empty())
            throw UsageError("a command takes data with --port alone");
        return CheckEnd(vxTarsisSetTileCmd(choice.tile, command));
    case TileWay::kPort:
        return Check(vxOndraTileCMDTimeout(command, choice.port, choice.tile, bytes, size, timeoutMs));
    case TileWay::kDirect:
        return Check(vxDirectTileCMD(command, choice.port, choice.tile, bytes, size));
    }
}

void ReadTileFile(Session& session, const TileChoice& choice, const TileFile& file, const std::string& local)
{
    const std::uint8_t type = file.TypeFor(choice.Way());
    std::uint32_t detail = 0;
    switch (choice.Way()) {
    case TileWay::kFirst:
        return Check(vxTarsisReadTileFile(local.c_str(), choice.tile, type));
    case TileWay::kDirect:
        return ReadDirect(choice, file, local);
    case TileWay::kPort:
        break;
    }
    const bool plain = type <= kLastPlainType && file.extra == 0;
    const std::uint32_t result = plain ? vxOndraReadTileFileTimeout(local.c_str(), type, choice.port, choice.tile,
                                                                    file.staged ? 1 : 0, &detail, kReadMs)
                                       : vxOndraReadTileFileExt(local.c_str(), type, choice.port, choice.tile,
                                                                file.Extra(), file.staged ? 1 : 0, &detail);
    CheckDetailed(session, result, detail);
}

void WriteTileFile(Session& session, const TileChoice& choice, const TileFile& file, const std::string& local)
{
    const std::uint8_t type = file.TypeFor(choice.Way());
    std::uint32_t detail = 0;
    switch (choice.Way()) {
    case TileWay::kFirst:
        session.ConnectListening();
        CheckEnd(vxTarsisWriteTileFile(local.c_str(), choice.tile, type));
        CheckSteps(); // the library tells only how the last step ended
        return;
    case TileWay::kDirect:
        return WriteDirect(choice, file, local);
    case TileWay::kPort:
        break;
    }
    const bool plain = type <= kLastPlainType && file.extra == 0;
    const std::uint32_t result =
        plain ? vxOndraWriteTileFile(local.c_str(), type, choice.port, choice.tile, &detail)
              : vxOndraWriteTileFileExt(local.c_str(), type, choice.port, choice.tile, file.Extra(), &detail);
    CheckDetailed(session, result, detail);
}

void WriteTileCalibration(Session& session, const TileChoice& choice, const std::string& local, std::uint8_t mode,
                          const std::vector<std::uint8_t>& params)
{
    if (choice.Way() != TileWay::kPort)
        return WriteTileFile(session, choice, {}, local);
    std::uint32_t detail = 0;
    const std::uint32_t result = vxOndraWritePxlCal(local.c_str(), choice.port, choice.tile, mode, &detail,
                                                    params.empty() ? nullptr : params.data());
    CheckDetailed(session, result, detail);
}

} // namespace vxctl
