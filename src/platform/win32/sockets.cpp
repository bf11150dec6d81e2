// Sockets of Windows, which never block beyond their time.
#include "platform/sockets.h"

#include "platform/win32/waiting.h"

#include <charconv>
#include <winsock2.h>

namespace vxsign::platform {
namespace {

#if !defined(SIO_UDP_CONNRESET)
constexpr DWORD SIO_UDP_CONNRESET = _WSAIOW(IOC_VENDOR, 12);
#endif

static_assert(sizeof(SOCKET) == sizeof(Socket::Handle) && INVALID_SOCKET == Socket::kNone);

sockaddr_in ToSocketAddress(const Endpoint& endpoint)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(endpoint.port);
    address.sin_addr.s_addr = htonl(endpoint.address);
    return address;
}

enum class Until
{
    kReadable,
    kWritable
};

// True when the socket is ready or has failed, so that the operation itself tells which. It is select that waits:
// WSAPoll keeps quiet about a refused connection on some systems.
bool WaitReady(SOCKET descriptor, Until until, std::uint32_t timeoutMs)
{
    return WaitInSlices(timeoutMs, [=](std::uint32_t sliceMs) {
        fd_set ready;
        fd_set failed;
        FD_ZERO(&ready);
        FD_ZERO(&failed);
        FD_SET(descriptor, &ready);
        FD_SET(descriptor, &failed);
        timeval slice{0, static_cast<long>(sliceMs) * 1000};
        fd_set* const readable = until == Until::kReadable ? &ready : nullptr;
        fd_set* const writable = until == Until::kWritable ? &ready : nullptr;
        return ::select(0, readable, writable, &failed, &slice) != 0;
    });
}

// Sends at once if there is room, and waits for room only if there is none: a wait less in the normal case.
template <class SendOnce>
std::uint32_t SendWithin(SOCKET descriptor, std::uint32_t timeoutMs, SendOnce sendOnce)
{
    int sent = sendOnce();
    if (sent < 0 && ::WSAGetLastError() == WSAEWOULDBLOCK && WaitReady(descriptor, Until::kWritable, timeoutMs))
        sent = sendOnce();
    return sent > 0 ? static_cast<std::uint32_t>(sent) : 0;
}

// A part of an address: decimal, octal behind a 0 or hexadecimal behind 0x.
std::optional<std::uint64_t> ParseNumber(std::string_view text)
{
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    } else if (text.starts_with('0'))
        base = 8;
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

} // namespace

int StartSockets()
{
    WSADATA data{};
    return ::WSAStartup(MAKEWORD(2, 2), &data);
}

void StopSockets()
{
    ::WSACleanup();
}

std::optional<std::uint32_t> ParseIpv4(std::string_view text)
{
    text = text.substr(0, text.find_first_of(" \t\n\v\f\r"));
    std::uint64_t address = 0;
    for (unsigned bits = 32; bits != 0; bits -= 8) {
        const std::size_t dot = text.find('.');
        const auto number = ParseNumber(text.substr(0, dot));
        const bool last = dot == std::string_view::npos;
        if (!number || *number >> (last ? bits : 8) != 0)
            return std::nullopt;
        if (last)
            return static_cast<std::uint32_t>(address | *number);
        address |= *number << (bits - 8);
        text.remove_prefix(dot + 1);
    }
    return std::nullopt;
}

bool Socket::Open(Kind kind)
{
    // Not when the library is loaded, where the system forbids it.
    static const bool started = StartSockets() == 0;
    const bool stream = kind == Kind::kStream;
    if (started)
        descriptor = ::WSASocketW(AF_INET, stream ? SOCK_STREAM : SOCK_DGRAM, stream ? IPPROTO_TCP : IPPROTO_UDP,
                                  nullptr, 0, WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
    if (!IsOpen())
        return false;
    u_long on = 1;
    ::ioctlsocket(descriptor, static_cast<long>(FIONBIO), &on);
    if (stream) {
        const BOOL noDelay = TRUE;
        ::setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&noDelay), sizeof noDelay);
    } else {
        // What came back for an earlier datagram is no answer to this one.
        BOOL report = FALSE;
        DWORD size = 0;
        ::WSAIoctl(descriptor, SIO_UDP_CONNRESET, &report, sizeof report, nullptr, 0, &size, nullptr, nullptr);
    }
    return true;
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
    return ::WSAGetLastError() == WSAEWOULDBLOCK ? Connection::kPending : Connection::kFailed;
}

Socket::Connection Socket::AwaitConnection(std::uint32_t timeoutMs)
{
    if (!WaitReady(descriptor, Until::kWritable, timeoutMs))
        return Connection::kPending;
    int error = 0;
    int size = sizeof error;
    const bool made =
        ::getsockopt(descriptor, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size) == 0 && error == 0;
    return made ? Connection::kMade : Connection::kFailed;
}

std::uint32_t Socket::Send(const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    return SendWithin(descriptor, timeoutMs,
                      [&] { return ::send(descriptor, static_cast<const char*>(data), static_cast<int>(length), 0); });
}

std::uint32_t Socket::SendTo(const Endpoint& remote, const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    const sockaddr_in address = ToSocketAddress(remote);
    return SendWithin(descriptor, timeoutMs, [&] {
        return ::sendto(descriptor, static_cast<const char*>(data), static_cast<int>(length), 0,
                        reinterpret_cast<const sockaddr*>(&address), sizeof address);
    });
}

std::uint32_t Socket::Receive(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, Endpoint* sender)
{
    if (timeoutMs != 0 && !WaitReady(descriptor, Until::kReadable, timeoutMs))
        return 0;
    sockaddr_in address{};
    int size = sizeof address;
    int got = ::recvfrom(descriptor, static_cast<char*>(buffer), static_cast<int>(capacity), 0,
                         reinterpret_cast<sockaddr*>(&address), &size);
    if (got < 0 && ::WSAGetLastError() == WSAEMSGSIZE) // a datagram that was cut
        got = static_cast<int>(capacity);
    if (got <= 0)
        return 0;
    if (sender != nullptr)
        *sender = {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
    return static_cast<std::uint32_t>(got);
}

void Socket::ShutdownSend()
{
    if (IsOpen())
        ::shutdown(descriptor, SD_SEND);
}

void Socket::Close()
{
    if (IsOpen())
        ::closesocket(descriptor);
    descriptor = kNone;
}

} // namespace vxsign::platform
