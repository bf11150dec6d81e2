// The calibration of a tile of 4x4 with four modules, in both forms of the ports.
#pragma once

#include "support/bytes.h"

#include <initializer_list>

namespace vxsign::test {

/// Records of pixels: all nine coefficients of a pixel have the same two bytes.
inline Bytes PixelRecords(std::initializer_list<int> numbers)
{
    Bytes records;
    for (const int number : numbers)
        records.insert(records.end(), 18, static_cast<std::uint8_t>(number));
    return records;
}

inline Bytes CalibrationHeader(const char* length)
{
    return Hex("AA55 2000 0000 0500 0000 AD50 8F52 0000") + Hex(length) + Bytes(12, 0x3C);
}

/// A file of a tile that differs from piece to piece: its header and `size` - 32 bytes.
inline Bytes TileFile(std::size_t size)
{
    return Hex("AA55 2000") + Bytes(12) + Little(static_cast<std::uint32_t>(size - 32), 4) + Bytes(12) +
           Ramp(size - 32);
}

inline Bytes FlatCalibration()
{
    return CalibrationHeader("20010000") + PixelRecords({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
}

inline Bytes CalibrationInBlocks()
{
    const auto block = [](const char* crc, std::initializer_list<int> numbers) {
        return Hex("AA55") + Hex(crc) + Hex("48000000 AD50 8F52") + Bytes(52, 0) + PixelRecords(numbers);
    };
    return CalibrationHeader("20020000") + block("320D", {0, 1, 4, 5}) + block("862A", {2, 3, 6, 7}) +
           block("F2B3", {8, 9, 12, 13}) + block("4694", {10, 11, 14, 15});
}

} // namespace vxsign::test
