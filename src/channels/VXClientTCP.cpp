// The channel over TCP: connecting with patience, reading and writing.
#include "channels/VXClientTCP.h"

#include "util/text.h"

#include <algorithm>
#include <cstring>

namespace vxsign {

bool VXClientTCP::Open(std::uint16_t port, const char* hostText, std::uint16_t signPort, const Patience& patience)
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
    return Connect(patience);
}

bool VXClientTCP::Connect(const Patience& patience)
{
    using Connection = platform::Socket::Connection;
    constexpr std::uint32_t kSliceMs = 50; // between two looks at whether it is still wanted
    std::uint32_t left = patience.timeoutMs;
    Connection connection = socket.Connect(server);
    while (connection == Connection::kPending && left != 0 && !patience.isOver()) {
        const std::uint32_t slice = std::min(left, kSliceMs);
        connection = socket.AwaitConnection(slice);
        left -= slice;
    }
    return connection == Connection::kMade;
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
