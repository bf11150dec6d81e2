// Connections that are handed over as arguments.
#pragma once

#include <vxsign/api.h>

#include <cstdint>

namespace vxsign {

/// How a function reaches its sign that takes the connection as arguments.
struct Connection
{
    const char* host = nullptr;
    std::uint32_t port = 0;
    std::uint32_t kind = VX_CHANNEL_UDP;
    const char* serialName = nullptr; // may be null where the channel is not serial
    std::uint32_t baudRate = 0;
    std::uint16_t destinationAddress = 0;
    std::uint32_t retries = 3;
    std::uint32_t timeoutMs = 3000;

    /// Whether the names that it needs are there.
    bool Complete() const { return host != nullptr && (serialName != nullptr || kind != VX_CHANNEL_SERIAL); }

    /// Puts a configuration made from this, without callbacks, in place of the thread's, where it stays.
    /// Returns what vxInitAPI gives.
    std::uint32_t Install() const;
};

} // namespace vxsign
