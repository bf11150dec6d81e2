// The calibration of a tile, and the files that hold one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

inline constexpr std::uint32_t kLongestTileSide = 1024; // pixels
inline constexpr std::size_t kTileCoefficients = 9;     // of a pixel
inline constexpr std::uint16_t kFullCoefficient = 65535;
inline constexpr std::uint16_t kFullCompact = 255; // where records are compact

// What the order of a file depends on. Sides are in pixels, 0 where they are not known.
struct TileShape
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t moduleWidth = 0;
    std::uint32_t moduleHeight = 0;
    std::uint32_t kind = 0; // of files of the first family
    std::uint32_t model = 0;
};

// A matrix of 3 by 3 for each pixel, row after row. Each row of a matrix makes one colour out of red, green and blue.
struct TilePixels
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint16_t> coefficients;

    std::size_t Count() const { return std::size_t{width} * height; }
};

enum class TileForm
{
    kFirst,  // a tile pixel file of the first family
    kFlat,   // .bri of the second family, pixel rows across the tile
    kBlocks, // .bri, one module after the other
    kCsv,
    kJson
};

// The form with that name; without one that of the file's extension, kFirst where that tells nothing. Throws
// UsageError.
TileForm TileFormOf(const std::string& path, const std::string& name);

// Reads a file; CSV and JSON know their size, the others need the shape. kFlat and kBlocks take either. Throws
// UsageError for what is no such file, SignFailure for one that cannot be read.
TilePixels LoadTilePixels(const std::string& path, TileForm form, const TileShape& shape);

// Throws UsageError where the shape does not fit, SignFailure where the file cannot be written.
void SaveTilePixels(const TilePixels& pixels, const std::string& path, TileForm form, const TileShape& shape);

// Every pixel with the unit matrix, whose diagonal is `full`.
TilePixels PlainTile(std::uint32_t width, std::uint32_t height, std::uint16_t full);

// Multiplies the rows of each matrix by levels such as "50%" or "100%,80%,60%" (red, green, blue). Throws UsageError.
void ScaleTile(TilePixels& pixels, const std::string& levels);

// The coefficient that stands for all of the light: 255 where none is larger.
std::uint16_t FullCoefficientOf(const TilePixels& pixels);

// The tile in white light, as lamps. Throws SignFailure.
void WriteTilePicture(const TilePixels& pixels, std::uint32_t full, const std::string& local);

// Of tilePixelText.cpp.
std::string TileCsv(const TilePixels& pixels);
std::string TileJson(const TilePixels& pixels);
TilePixels ParseTileCsv(std::string_view text);
TilePixels ParseTileJson(std::string_view text);

// Of tileBlocks.cpp: the bytes of .bri files.
std::vector<std::uint8_t> MakeCalibrationFile(const TilePixels& pixels, bool blocks, const TileShape& shape);
TilePixels ParseCalibrationFile(const std::vector<std::uint8_t>& file, const TileShape& shape);

} // namespace vxctl
