// Sockets of POSIX systems, which never block beyond their time.
#include "platform/sockets.h"

#include "platform/posix/waiting.h"

#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace vxsign::platform {
namespace {

sockaddr_in ToSocketAddress(const Endpoint& endpoint)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(endpoint.port);
    address.sin_addr.s_addr = htonl(endpoint.address);
    return address;
}

// Sends at once if there is room, and waits for room only if there is none: a wait less in the normal case.
template <class SendOnce>
std::uint32_t SendWithin(int descriptor, std::uint32_t timeoutMs, SendOnce sendOnce)
{
    ssize_t sent = sendOnce();
    if (sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR) &&
        WaitReady(descriptor, POLLOUT, timeoutMs))
        sent = sendOnce();
    return sent > 0 ? static_cast<std::uint32_t>(sent) : 0;
}

} // namespace

int StartSockets()
{
    return 0;
}

void StopSockets()
{
}

std::optional<std::uint32_t> ParseIpv4(std::string_view text)
{
    in_addr address{};
    if (::inet_aton(std::string(text).c_str(), &address) == 0)
        return std::nullopt;
    return ntohl(address.s_addr);
}

bool Socket::Open(Kind kind)
{
    const bool stream = kind == Kind::kStream;
    descriptor = ::socket(AF_INET, (stream ? SOCK_STREAM : SOCK_DGRAM) | SOCK_CLOEXEC | SOCK_NONBLOCK,
                          stream ? IPPROTO_TCP : IPPROTO_UDP);
    if (IsOpen() && stream) {
        const int on = 1;
        ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    return IsOpen();
}

bool Socket::Bind(std::uint16_t localPort)
{
    if (localPort == 0)
        return true; // the system picks a port at the first send, which saves a call
    const sockaddr_in address = ToSocketAddress({INADDR_ANY, localPort});
    return ::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

Socket::Connection Socket::Connect(const Endpoint& remote)
{
    const sockaddr_in address = ToSocketAddress(remote);
    if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return Connection::kMade;
    return errno == EINPROGRESS ? Connection::kPending : Connection::kFailed;
}

Socket::Connection Socket::AwaitConnection(std::uint32_t timeoutMs)
{
    if (!WaitReady(descriptor, POLLOUT, timeoutMs))
        return Connection::kPending;
    int error = 0;
    socklen_t size = sizeof error;
    const bool made = ::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
    return made ? Connection::kMade : Connection::kFailed;
}

std::uint32_t Socket::Send(const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    return SendWithin(descriptor, timeoutMs,
                      [&] { return ::send(descriptor, data, length, MSG_DONTWAIT | MSG_NOSIGNAL); });
}

std::uint32_t Socket::SendTo(const Endpoint& remote, const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    const sockaddr_in address = ToSocketAddress(remote);
    return SendWithin(descriptor, timeoutMs, [&] {
        return ::sendto(descriptor, data, length, MSG_DONTWAIT | MSG_NOSIGNAL,
                        reinterpret_cast<const sockaddr*>(&address), sizeof address);
    });
}

std::uint32_t Socket::Receive(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, Endpoint* sender)
{
    if (timeoutMs != 0 && !WaitReady(descriptor, POLLIN, timeoutMs))
        return 0;
    sockaddr_in address{};
    socklen_t size = sizeof address;
    const ssize_t got =
        ::recvfrom(descriptor, buffer, capacity, MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&address), &size);
    if (got <= 0)
        return 0;
    if (sender != nullptr)
        *sender = {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
    return static_cast<std::uint32_t>(got);
}

void Socket::ShutdownSend()
{
    if (IsOpen())
        ::shutdown(descriptor, SHUT_WR);
}

void Socket::Close()
{
    if (IsOpen())
        ::close(descriptor);
    descriptor = kNone;
}

} // namespace vxsign::platform
