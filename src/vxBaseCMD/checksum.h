// The checksum of packets and tile files.
#pragma once

#include <cstdint>
#include <span>

namespace vxsign {

/// The CRC of vxChkSum over bytes that come piece by piece.
class RunningCrc
{
public:
    void Add(std::span<const std::uint8_t> bytes);
    /// Of all bytes so far, in the form that vxChkSum gives it: stored low byte first it stands high byte first.
    std::uint16_t Value() const;

private:
    std::uint32_t crc = 0xFFFF;
};

} // namespace vxsign
