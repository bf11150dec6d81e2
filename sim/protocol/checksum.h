// The two checks of a packet.
#pragma once

#include <cstdint>
#include <span>

// The two checks of a packet. Both give the 16-bit value that stands, low byte first, in the packet's checksum field,
// and both run over the packet from offset 4 to its end.
namespace vxsim {

// The sum of all bytes, cut to 16 bits.
std::uint16_t Sum16(std::span<const std::uint8_t> bytes);

// Reflected CRC-16 (0x8408 from 0xFFFF, complemented) with its bytes swapped: the packet stores this one high byte
// first. Of no bytes it is 0.
std::uint16_t Crc16(std::span<const std::uint8_t> bytes);

} // namespace vxsim
