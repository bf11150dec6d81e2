#include "sim/tiles/tileWall.h"

#include "sim/protocol/bytes.h"
#include "sim/protocol/checksum.h"

#include <algorithm>

namespace vxsim {
namespace {

// Commands of a tile; it takes any other without doing anything.
enum : std::uint8_t
{
    kEndInstallation = 2,
    kForgetCalibration = 10,
    kBare = 15,
    kCalibrated = 16,
    kNoteCoefficients = 17
};
enum : std::uint8_t
{
    kInstallationTest = 18, // for the tile's program, nothing to be seen
    kEndTest = 9
};

constexpr std::uint16_t kVoltage = 5000; // mV

// Bits of a tile's state.
enum : std::uint8_t
{
    kHot = 1,
    kBadLamps = 2,
    kCalibratedTile = 4,
    kLockedTile = 8,
    kTesting = 16
};

constexpr std::size_t kStaRecordSize = 96;
constexpr std::size_t kStaFlagsAt = 16;
constexpr std::uint8_t kStaLocked = 0x10;
constexpr std::size_t kStaSizesAt = 52;

constexpr std::size_t kCoefficientRecordSize = 40;
constexpr std::size_t kCoefficientParamsAt = 8;

std::uint16_t BadLampsOf(int tile, const TilePlan& plan, const Condition& condition)
{
    const TileShape shape = plan.ShapeOf(tile);
    const int left = plan.Left(tile);
    const int top = plan.Top(tile);
    std::uint16_t count = 0; // 768 at most
    for (auto bad = condition.badLamps.lower_bound({top, 0, Lamp::kRed});
         bad != condition.badLamps.end() && bad->first.y < top + shape.height; ++bad) {
        if (bad->first.x >= left && bad->first.x < left + shape.width)
            ++count;
    }
    return count;
}

} // namespace

TileWall::TileWall(const std::filesystem::path& keptFolder, int faceWidth, int faceHeight)
    : plan(faceWidth, faceHeight), files(keptFolder / "tiles", plan)
{
}

TaskState TileWall::TroubleOf(int tile, const Condition& condition)
{
    if (tile == 0)
        return TaskState::kNoTile;
    const auto trouble = condition.tileErrors.find(tile);
    return trouble != condition.tileErrors.end() ? trouble->second : TaskState::kDone;
}

std::array<std::uint8_t, TileWall::kStatusSize> TileWall::Status(int tile, const TileMoment& moment) const
{
    const TileShape shape = plan.ShapeOf(tile);
    const bool hot = moment.condition.hotTiles.contains(tile);
    const std::uint16_t badLamps = BadLampsOf(tile, plan, moment.condition);
    std::array<std::uint8_t, kStatusSize> record{};
    record[0] = static_cast<std::uint8_t>(shape.width);
    record[1] = static_cast<std::uint8_t>(shape.height);
    record[2] = 1; // hardware
    Store16(record, 3, kFirmware);
    record[5] = kModel;
    record[6] = static_cast<std::uint8_t>(hot ? moment.climate.hotTile : moment.climate.tile);
    record[7] = static_cast<std::uint8_t>((hot ? kHot : 0) | (badLamps != 0 ? kBadLamps : 0) |
                                          (files.CalibrationOf(tile) != nullptr ? kCalibratedTile : 0) |
                                          (IsLocked(tile, moment.condition) ? kLockedTile : 0) |
                                          (tests.contains(tile) ? kTesting : 0));
    Store16(record, 8, kVoltage);
    Store16(record, 10, badLamps);
    record[12] = static_cast<std::uint8_t>(shape.ModuleWidth());
    record[13] = static_cast<std::uint8_t>(shape.ModuleHeight());
    Store16(record, 14, static_cast<std::uint16_t>(tile));
    Store32(record, 16, moment.runSeconds);
    return record;
}

// The same for the ports, with the sizes where they have them.
std::vector<std::uint8_t> TileWall::StatusFile(int tile, const TileMoment& moment) const
{
    const TileShape shape = plan.ShapeOf(tile);
    const auto status = Status(tile, moment);
    std::array<std::uint8_t, kStaRecordSize> record{};
    std::copy_n(status.begin() + 2, 14, record.begin()); // hardware, firmware and on, up to the number
    Store32(record, 20, moment.runSeconds);
    record[kStaFlagsAt] = IsLocked(tile, moment.condition) ? kStaLocked : 0;
    Store16(record, kStaSizesAt, static_cast<std::uint16_t>(shape.width));
    Store16(record, kStaSizesAt + 2, static_cast<std::uint16_t>(shape.height));
    Store16(record, kStaSizesAt + 4, static_cast<std::uint16_t>(shape.ModuleWidth()));
    Store16(record, kStaSizesAt + 6, static_cast<std::uint16_t>(shape.ModuleHeight()));
    record[kStaSizesAt + 8] = static_cast<std::uint8_t>(shape.across);
    record[kStaSizesAt + 9] = static_cast<std::uint8_t>(shape.down);
    auto file = MakeTileFile(kStatusFile, record.size());
    std::ranges::copy(record, file.begin() + kTileFileHeader);
    return file;
}

std::optional<TileFiles::Piece> TileWall::ReadFile(int tile, std::uint8_t fileType, std::uint32_t offset,
                                                   std::size_t count, const TileMoment& moment) const
{
    if (fileType != kStatusFile)
        return files.Read(tile, fileType, offset, count);
    auto file = StatusFile(tile, moment);
    TileFiles::Piece piece{static_cast<std::uint32_t>(file.size()), {}};
    const auto rest = std::span(file).subspan(std::min<std::size_t>(offset, file.size()));
    const auto part = rest.first(std::min(count, rest.size()));
    piece.bytes.assign(part.begin(), part.end());
    return piece;
}

TaskState TileWall::WriteFile(int tile, std::uint8_t fileType, std::span<const std::uint8_t> bytes,
                              const TileMoment& moment)
{
    if (fileType == kStatusFile || (fileType == kCalibrationFile && IsLocked(tile, moment.condition)))
        return TaskState::kFailed;
    return files.Write(tile, fileType, bytes);
}

std::optional<std::vector<std::uint8_t>> TileWall::ReadFlash(int tile, std::uint32_t offset, std::size_t count) const
{
    if (offset > TileFiles::kFlashSize || count > TileFiles::kFlashSize - offset)
        return std::nullopt;
    return files.ReadFlash(tile, offset, count);
}

TaskState TileWall::WriteFlash(int tile, std::uint32_t offset, std::span<const std::uint8_t> bytes,
                               const TileMoment& moment)
{
    if (TileFiles::IsCalibrationAt(offset) && IsLocked(tile, moment.condition))
        return TaskState::kFailed;
    return files.WriteFlash(tile, offset, bytes);
}

TaskState TileWall::Test(int tile, std::uint8_t code, const TileMoment& moment)
{
    if (code == kEndTest)
        tests.erase(tile);
    else if (code != kInstallationTest)
        tests[tile] = {code, moment.nowMs};
    return TaskState::kDone;
}

TaskState TileWall::Command(int tile, std::uint8_t command, std::span<const std::uint8_t> data,
                            const TileMoment& moment)
{
    switch (command) {
    case kEndInstallation:
        tests.erase(tile);
        return TaskState::kDone;
    case kForgetCalibration:
        if (IsLocked(tile, moment.condition))
            return TaskState::kFailed;
        files.ForgetCalibration(tile);
        return TaskState::kDone;
    case kBare:
        bare.insert(tile);
        return TaskState::kDone;
    case kCalibrated:
        bare.erase(tile);
        return TaskState::kDone;
    case kNoteCoefficients:
        return NoteCoefficients(tile, data);
    default:
        return TaskState::kDone;
    }
}

// Which coefficients the tile shines with, and by whose parameters.
TaskState TileWall::NoteCoefficients(int tile, std::span<const std::uint8_t> data)
{
    std::array<std::uint8_t, kCoefficientRecordSize> record{};
    if (const Calibration* calibration = CalibrationOf(tile)) {
        const auto file = files.Read(tile, kCalibrationFile, 0, TileFiles::kMostFile);
        Store16(record, 0, Crc16(file->bytes));
        Store32(record, 4, static_cast<std::uint32_t>(calibration->size()));
    }
    std::copy_n(data.begin(), std::min(data.size(), record.size() - kCoefficientParamsAt),
                record.begin() + kCoefficientParamsAt);
    auto file = MakeTileFile(kCoefficientFile, record.size());
    std::ranges::copy(record, file.begin() + kTileFileHeader);
    return files.Write(tile, kCoefficientFile, file);
}

void TileWall::KeepUp(std::uint64_t nowMs)
{
    std::erase_if(tests, [nowMs](const auto& test) { return nowMs >= test.second.startedMs + kTestMs; });
    if (picture && nowMs >= picture->untilMs)
        picture.reset();
}

void TileWall::Stop()
{
    tests.clear();
    picture.reset();
    bare.clear();
}

const Calibration* TileWall::CalibrationOf(int tile) const
{
    return bare.contains(tile) ? nullptr : files.CalibrationOf(tile);
}

} // namespace vxsim
