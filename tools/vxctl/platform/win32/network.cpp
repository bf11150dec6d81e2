// Hosts and lines of Windows.
#include "vxctl/platform/network.h"

#include "vxctl/cli/failure.h"

#include <vxsign/api.h>

#include <array>
#include <cerrno>
#include <memory>
#include <system_error>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace vxctl::platform {

namespace {

// What Windows numbers otherwise, as the C library does.
int ErrorOf(DWORD systemError)
{
    switch (systemError) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_ACCESS_DENIED: // what a port says that another program has
        return EBUSY;
    case WSAEHOSTUNREACH:
        return EHOSTUNREACH;
    case WSAENETUNREACH:
        return ENETUNREACH;
    case WSAECONNRESET: // how a datagram tells that nothing listens
    case WSAECONNREFUSED:
        return ECONNREFUSED;
    default:
        return std::system_category().default_error_condition(static_cast<int>(systemError)).value();
    }
}

int SocketError()
{
    return ErrorOf(static_cast<DWORD>(::WSAGetLastError()));
}

class Probe
{
public:
    explicit Probe(int type) : number(::WSASocketW(AF_INET, type, 0, nullptr, 0, WSA_FLAG_NO_HANDLE_INHERIT))
    {
        u_long on = 1;
        ::ioctlsocket(number, static_cast<long>(FIONBIO), &on);
    }
    ~Probe() { ::closesocket(number); }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    SOCKET Number() const { return number; }

private:
    SOCKET number;
};

} // namespace

bool IsAddress(const std::string& text)
{
    vxSocketup();
    in_addr address{};
    return ::inet_pton(AF_INET, text.c_str(), &address) == 1;
}

std::string DottedAddress(const std::string& host)
{
    vxSocketup();
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    const int error = ::getaddrinfo(host.c_str(), nullptr, &hints, &found);
    const std::unique_ptr<addrinfo, void(WSAAPI*)(addrinfo*)> owner(found, ::freeaddrinfo);
    if (error != 0 || !found)
        throw UsageError(error == EAI_NONAME || error == EAI_NODATA
                             ? "name " + host + " is unknown"
                             : "no IPv4 address for " + host + ": " + std::system_category().message(error));
    std::array<char, INET_ADDRSTRLEN> text{};
    const auto* const address = reinterpret_cast<const sockaddr_in*>(found->ai_addr);
    if (::inet_ntop(AF_INET, &address->sin_addr, text.data(), text.size()) == nullptr)
        throw UsageError("no IPv4 address for " + host);
    return text.data();
}

int NetworkError(bool isTcp, const std::string& host, std::uint16_t port, int waitMs)
{
    vxSocketup();
    const Probe probe(isTcp ? SOCK_STREAM : SOCK_DGRAM);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1)
        return 0;
    if (::connect(probe.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        ::WSAGetLastError() != WSAEWOULDBLOCK)
        return SocketError();
    if (!isTcp && ::send(probe.Number(), "", 0, 0) < 0)
        return SocketError();
    fd_set ready;
    fd_set failed;
    FD_ZERO(&ready);
    FD_ZERO(&failed);
    FD_SET(probe.Number(), &ready);
    FD_SET(probe.Number(), &failed);
    timeval wait{waitMs / 1000, waitMs % 1000 * 1000};
    if (::select(0, isTcp ? nullptr : &ready, isTcp ? &ready : nullptr, &failed, &wait) < 1)
        return 0;
    if (!isTcp) {
        char byte = 0;
        return ::recv(probe.Number(), &byte, 1, 0) < 0 ? SocketError() : 0;
    }
    int error = 0;
    int size = sizeof error;
    ::getsockopt(probe.Number(), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    return error == 0 ? 0 : ErrorOf(static_cast<DWORD>(error));
}

std::string DeviceOf(const std::string& name)
{
    return name;
}

int SerialError(const std::string& device)
{
    const std::string path = (device.starts_with('\\') ? "" : "\\\\.\\") + device;
    const HANDLE port =
        ::CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (port == INVALID_HANDLE_VALUE)
        return ErrorOf(::GetLastError());
    DCB settings{};
    settings.DCBlength = sizeof settings;
    const bool isSerial = ::GetCommState(port, &settings) != 0;
    ::CloseHandle(port);
    return isSerial ? 0 : ENOTTY;
}

} // namespace vxctl::platform
