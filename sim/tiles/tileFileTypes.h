// The types of files that a tile holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vxsim {

// The files that a tile holds, by type. On the sign's disk they lie under the tile's address with these extensions.
inline constexpr std::string_view kTileFileExtensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri", ".mod",
                                                           ".sta", ".pix", ".ifo", ".all", ".rev", ".rev", ".rev",
                                                           ".org", ".dst", ".gan", ".gap", ".dap", ".log"};
inline constexpr std::size_t kTileFileTypes = sizeof kTileFileExtensions / sizeof kTileFileExtensions[0];

enum TileFileType : std::uint8_t
{
    kProgramFile = 0,
    kGateArrayFile = 1,
    kConfigurationFile = 3,
    kDriverFile = 4,
    kCalibrationFile = 5,
    kStatusFile = 7,
    kCoefficientFile = 13
};

// Hosts count the types anew behind the last one.
constexpr std::uint8_t TileFileTypeOf(std::uint8_t number)
{
    return static_cast<std::uint8_t>(number % kTileFileTypes);
}

} // namespace vxsim
