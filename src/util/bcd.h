// Binary coded decimals: two digits in one byte, the tens above.
#pragma once

#include <cstdint>

namespace vxsign {

constexpr std::uint8_t ToBcd(unsigned value)
{
    return static_cast<std::uint8_t>(value / 10 << 4 | value % 10);
}

/// Halves that are no digits count as they are: 0xFF is 165.
constexpr std::uint8_t FromBcd(std::uint8_t bcd)
{
    return static_cast<std::uint8_t>((bcd >> 4) * 10 + (bcd & 0xF));
}

} // namespace vxsign
