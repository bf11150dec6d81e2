// The channel over UDP.
#pragma once

#include "channels/VXCommBase.h"
#include "platform/sockets.h"

#include <array>

namespace vxsign {

/// Datagrams to the sign's port. What comes in is taken from any sender.
class VXClientUDP : public VXCommBase
{
public:
    /// False when a socket is open already, host is null, or there is no socket to be had.
    bool Open(std::uint16_t port, const char* hostText, std::uint16_t signPort);
    bool Open(const Route& route, std::uint32_t /*timeoutMs*/) override
    {
        return Open(route.localPort, route.host, route.remotePort);
    }

    std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs) override;
    std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) override;
    void Close() override;

private:
    platform::Socket socket;
    std::uint16_t localPort = 0;
    platform::Endpoint lastSender;
    std::array<char, 16> host{};
    std::uint16_t remotePort = 0;
};

} // namespace vxsign
