// The channel over UDP: datagrams out and in.
#include "channels/VXClientUDP.h"

#include "util/text.h"

#include <cstring>

namespace vxsign {

bool VXClientUDP::Open(std::uint16_t port, const char* hostText, std::uint16_t signPort)
{
    using platform::Socket;
    if (socket.IsOpen() || hostText == nullptr || !socket.Open(Socket::Kind::kDatagram) || !socket.Bind(port))
        return false;
    localPort = port;
    CopyToField(host.data(), host.size(), FieldText(hostText, host.size()));
    remotePort = signPort;
    return true;
}

std::uint32_t VXClientUDP::Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs)
{
    const auto address = platform::ParseIpv4(FieldText(host.data(), host.size()));
    if (!socket.IsOpen() || buffer == nullptr || !address)
        return 0;
    return socket.SendTo({*address, remotePort}, buffer, length, timeoutMs);
}

std::uint32_t VXClientUDP::Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    if (!socket.IsOpen() || buffer == nullptr)
        return 0;
    std::memset(buffer, 0, capacity);
    return socket.Receive(buffer, capacity, timeoutMs, &lastSender);
}

void VXClientUDP::Close()
{
    socket.Close();
}

} // namespace vxsign
