// Requests for one board of a sign.
#pragma once

#include <vxsign/api.h>

#include <cstdint>

namespace vxsign {

/// Addresses the thread's requests to a board of the sign, and puts the former destination address back at its end
/// unless it is told to leave it.
class BoardAddress
{
public:
    BoardAddress(vxApiConfig& thread, std::uint8_t addrLow, std::uint8_t addrHigh)
        : config(thread), former(thread.destinationAddress)
    {
        config.destinationAddress = static_cast<std::uint16_t>(addrHigh << 8 | addrLow);
    }
    ~BoardAddress()
    {
        if (!left)
            config.destinationAddress = former;
    }
    BoardAddress(const BoardAddress&) = delete;
    BoardAddress& operator=(const BoardAddress&) = delete;

    void LeaveChanged() { left = true; }

private:
    vxApiConfig& config;
    std::uint16_t former;
    bool left = false;
};

} // namespace vxsign
