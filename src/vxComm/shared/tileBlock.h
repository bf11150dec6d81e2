// What calibration files of both tile families are made of.
#pragma once

#include "util/littleEndian.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vxsign {

constexpr std::uint16_t kTileMagic = 0x55AA;
constexpr std::size_t kTileFileHeader = 32;
constexpr std::size_t kTileBlockHeader = 64;
constexpr std::uint16_t kTileChunk = 264; // bytes of a file that travel at a time
constexpr std::size_t kPixelRecord = 18;  // nine coefficients of 16 bits

/// The header ahead of a module's records.
inline std::array<std::uint8_t, kTileBlockHeader> TileBlockHeader(std::uint16_t crc, std::uint32_t bodyLength,
                                                                  std::uint16_t date, std::uint16_t time)
{
    std::array<std::uint8_t, kTileBlockHeader> header{};
    Store16(&header[0], kTileMagic);
    Store16(&header[2], crc);
    Store32(&header[4], bodyLength);
    Store16(&header[8], date);
    Store16(&header[10], time);
    return header;
}

} // namespace vxsign
