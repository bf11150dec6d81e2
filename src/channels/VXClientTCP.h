// The channel over TCP.
#pragma once

#include "channels/VXCommBase.h"
#include "platform/sockets.h"

#include <array>

namespace vxsign {

/// A stream to the sign's port.
class VXClientTCP : public VXCommBase
{
public:
    /// False when a socket is open already, host is null or no IPv4 address within its 16 bytes, or the sign does not
    /// take the connection within timeoutMs.
    bool Open(std::uint16_t port, const char* hostText, std::uint16_t signPort, std::uint32_t timeoutMs);
    bool Open(const Route& route, std::uint32_t timeoutMs) override
    {
        return Open(route.localPort, route.host, route.remotePort, timeoutMs);
    }

    std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs) override;
    /// The sign's orderly end reads as 0, like a time-out.
    std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) override;
    void Close() override;

private:
    platform::Socket socket;
    platform::Endpoint server;
    std::uint16_t localPort = 0;
    std::array<char, 16> host{};
    std::uint16_t remotePort = 0;
};

} // namespace vxsign
