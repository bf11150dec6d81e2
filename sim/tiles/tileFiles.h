// The flash of the tiles.
#pragma once

#include "sim/state/taskState.h"
#include "sim/tiles/calibration.h"
#include "sim/tiles/tileFileTypes.h"
#include "sim/tiles/tilePlan.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace vxsim {

// What the tiles keep in their flash: files by type, in a folder of the sign, and with them the calibration. A tile
// that was never written has the calibration that changes nothing, and no other file.
class TileFiles
{
public:
    static constexpr std::size_t kMostFile = 1U << 20;
    static constexpr std::uint64_t kMostKept = 256U << 20; // of all tiles together
    static constexpr std::uint32_t kFlashSize = 0x40000;

    struct Piece
    {
        std::uint32_t fileSize = 0;
        std::vector<std::uint8_t> bytes;
    };

    // Takes what the folder holds.
    TileFiles(std::filesystem::path folder, const TilePlan& plan);

    // Up to `count` bytes from `offset` on; nothing if the tile has no such file.
    std::optional<Piece> Read(int tile, std::uint8_t fileType, std::uint32_t offset, std::size_t count) const;

    // kPixelError for a calibration that is none of this tile, kFailed for what is too long or cannot be kept.
    TaskState Write(int tile, std::uint8_t fileType, std::span<const std::uint8_t> bytes);

    // The same files in the flash, as the buses reach them: each has a place of its own, and all else is erased.
    static bool IsCalibrationAt(std::uint32_t flashOffset);
    std::vector<std::uint8_t> ReadFlash(int tile, std::uint32_t offset, std::size_t count) const;
    TaskState WriteFlash(int tile, std::uint32_t offset, std::span<const std::uint8_t> bytes);

    // Null for a tile that was not calibrated.
    const Calibration* CalibrationOf(int tile) const;
    bool HasCalibrations() const { return !calibrations.empty(); }
    void ForgetCalibration(int tile);

private:
    using Key = std::pair<int, std::uint8_t>; // tile and type

    void Take(const std::filesystem::path& file);
    std::filesystem::path PathOf(const Key& key) const;
    bool Keep(const Key& key, std::span<const std::uint8_t> bytes);
    void Drop(const Key& key);
    TaskState TakeCalibration(const Key& key, std::optional<Calibration> calibration,
                              std::span<const std::uint8_t> bytes);
    std::vector<std::uint8_t> MadeCalibration(const Key& key) const;

    std::filesystem::path folder;
    TilePlan plan;
    std::map<Key, std::uint32_t> sizes; // of what is kept
    std::uint64_t total = 0;
    std::map<int, Calibration> calibrations;
};

} // namespace vxsim
