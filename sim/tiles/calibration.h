// Calibrations of tiles, and the files that they come in.
#pragma once

#include "sim/tiles/tilePlan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// What a lamp of a pixel makes of the light that it should give: a matrix of 3 by 3, row after row. Each row makes one
// colour out of red, green and blue. A coefficient of kUnitCoefficient takes the light as it is, 0 none of it.
using PixelCalibration = std::array<std::uint16_t, 9>;
inline constexpr std::uint16_t kUnitCoefficient = 65535;
inline constexpr PixelCalibration kUncalibrated{kUnitCoefficient, 0, 0, 0, kUnitCoefficient, 0, 0, 0, kUnitCoefficient};

// Of a tile, row after row.
using Calibration = std::vector<PixelCalibration>;

inline constexpr std::size_t kTileFileHeader = 32;

// The calibration as it comes over the buses: the pixels of the modules interleaved, bottom row first. Nothing if the
// file is damaged or not one of this tile.
std::optional<Calibration> ReadBusCalibration(std::span<const std::uint8_t> file, const TileShape& shape);
std::vector<std::uint8_t> MakeBusCalibration(const Calibration& calibration, const TileShape& shape);

// The calibration as it comes over the ports, in either of two forms: pixels row after row across the tile, or a block
// for each module. Nothing if the file is damaged or not one of this tile.
std::optional<Calibration> ReadPortCalibration(std::span<const std::uint8_t> file, const TileShape& shape);

// In blocks. `header` is that of the file that the calibration came in; it may be empty.
std::vector<std::uint8_t> MakePortCalibration(const Calibration& calibration, const TileShape& shape,
                                              std::span<const std::uint8_t> header);

// A file that a tile holds: its header, and zeros for the body.
std::vector<std::uint8_t> MakeTileFile(std::uint8_t fileType, std::size_t bodySize);

// Size of the file that begins so, header and body; nothing if no file of a tile does.
std::optional<std::uint64_t> TileFileSize(std::span<const std::uint8_t> start);

} // namespace vxsim
