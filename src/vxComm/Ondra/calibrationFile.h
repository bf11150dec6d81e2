// A tile's calibration file in its two forms, and the status of the tile that says how to tell them apart.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vxsign {

struct TileStatus
{
    bool locked;
    std::uint16_t width; // pixels
    std::uint16_t height;
    std::uint16_t moduleWidth;
    std::uint16_t moduleHeight;
    std::uint8_t across; // modules
    std::uint8_t down;
};

/// The PC's place for a file of a tile.
std::string LocalTileFile(std::uint8_t port, std::uint16_t tile, const char* extension);

/// Reads the tile's status anew. Nothing when that fails.
std::optional<TileStatus> FetchTileStatus(std::uint8_t port, std::uint16_t tile);

/// The conversions, from one local file to another; each fetches the tile's status first. VX_NO_RECORD when that
/// fails or a file cannot be opened or written, VX_ARGUMENTS when the source is no calibration file or has not all of
/// the tile's pixels.
std::uint32_t FlatToBlocks(const char* flat, const char* blocks, std::uint8_t port, std::uint16_t tile);
std::uint32_t BlocksToFlat(const char* blocks, const char* flat, std::uint8_t port, std::uint16_t tile);

} // namespace vxsign
