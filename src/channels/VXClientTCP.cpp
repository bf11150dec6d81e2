// The channel over TCP: connecting, reading and writing.
#include "channels/VXClientTCP.h"

#include "util/text.h"

#include <cstring>

namespace vxsign {

bool VXClientTCP::Open(std::uint16_t port, const char* hostText, std::uint16_t signPort, std::uint32_t timeoutMs)
{
    using platform::Socket;
    if (socket.IsOpen() || hostText == nullptr || !socket.Open(Socket::Kind::kStream) || !socket.Bind(port))
        return false;
    localPort = port;
    CopyToField(host.data(), host.size(), FieldText(hostText, host.size()));
    remotePort = signPort;
    const auto address = platform::ParseIpv4(FieldText(host.data(), host.size()));
    if (!address)
        return false;
    server = {*address, remotePort};
    Socket::Connection connection = socket.Connect(server);
    if (connection == Socket::Connection::kPending)
        connection = socket.AwaitConnection(timeoutMs);
    return connection == Socket::Connection::kMade;
}

std::uint32_t VXClientTCP::Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs)
{
    return socket.IsOpen() && buffer != nullptr ? socket.Send(buffer, length, timeoutMs) : 0;
}

std::uint32_t VXClientTCP::Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    if (!socket.IsOpen() || buffer == nullptr)
        return 0;
    std::memset(buffer, 0, capacity);
    return socket.Receive(buffer, capacity, timeoutMs);
}

void VXClientTCP::Close()
{
    socket.ShutdownSend();
    socket.Close();
}

} // namespace vxsign
