// All tiles, and what they do.
#pragma once

#include "sim/monitor/tileMoment.h"
#include "sim/tiles/tileFiles.h"
#include "sim/tiles/tilePlan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace vxsim {

// What a tile shows in place of its part of the face.
struct TileTest
{
    std::uint8_t code = 0;
    std::uint64_t startedMs = 0;
};

// A colour on all of the face, for a camera that measures the tiles.
struct TilePicture
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint64_t untilMs = 0;
};

// The tiles of the face and what each of them does, whichever way a command has come.
class TileWall
{
public:
    static constexpr std::uint64_t kTestMs = 5000;
    static constexpr std::size_t kStatusSize = 32;
    static constexpr std::uint8_t kModel = 0x10; // the order of the calibration for the buses
    static constexpr std::uint16_t kFirmware = 0x1102;

    TileWall(const std::filesystem::path& keptFolder, int faceWidth, int faceHeight);

    const TilePlan& Plan() const { return plan; }

    // What keeps the tile from answering; kDone if nothing does. There is no tile 0.
    static TaskState TroubleOf(int tile, const Condition& condition);
    static bool IsLocked(int tile, const Condition& condition) { return condition.lockedTiles.contains(tile); }

    std::array<std::uint8_t, kStatusSize> Status(int tile, const TileMoment& moment) const;

    // A file of the tile, or the part of it from `offset` on. Nothing if the tile has none of this type.
    std::optional<TileFiles::Piece> ReadFile(int tile, std::uint8_t fileType, std::uint32_t offset, std::size_t count,
                                             const TileMoment& moment) const;
    TaskState WriteFile(int tile, std::uint8_t fileType, std::span<const std::uint8_t> bytes, const TileMoment& moment);

    // Nothing outside the flash.
    std::optional<std::vector<std::uint8_t>> ReadFlash(int tile, std::uint32_t offset, std::size_t count) const;
    TaskState WriteFlash(int tile, std::uint32_t offset, std::span<const std::uint8_t> bytes, const TileMoment& moment);

    TaskState Test(int tile, std::uint8_t code, const TileMoment& moment);
    TaskState Command(int tile, std::uint8_t command, std::span<const std::uint8_t> data, const TileMoment& moment);
    void Show(const TilePicture& shown) { picture = shown; }

    // Ends the tests whose time is over.
    void KeepUp(std::uint64_t nowMs);

    // As a restart of the sign leaves the tiles: they keep their files.
    void Stop();

    // By tile.
    const std::map<int, TileTest>& Tests() const { return tests; }
    const std::optional<TilePicture>& Picture() const { return picture; }

    // Calls `act` for each of the tiles that answers. The first failure counts; without any tile it is kNoTile.
    template <typename Act>
    static TaskState OnEach(std::span<const int> tiles, const Condition& condition, Act act)
    {
        TaskState first = tiles.empty() ? TaskState::kNoTile : TaskState::kDone;
        for (const int tile : tiles) {
            const TaskState trouble = TroubleOf(tile, condition);
            const TaskState state = trouble == TaskState::kDone ? act(tile) : trouble;
            first = first == TaskState::kDone ? state : first;
        }
        return first;
    }

    // What changes the light of the tile; null if nothing does.
    const Calibration* CalibrationOf(int tile) const;
    bool HasCalibrations() const { return files.HasCalibrations(); }

private:
    std::vector<std::uint8_t> StatusFile(int tile, const TileMoment& moment) const;
    TaskState NoteCoefficients(int tile, std::span<const std::uint8_t> data);

    TilePlan plan;
    TileFiles files;
    std::map<int, TileTest> tests;
    std::optional<TilePicture> picture;
    std::set<int> bare; // tiles that shine without their calibration
};

} // namespace vxsim
