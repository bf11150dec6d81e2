// Hosts and lines of POSIX systems.
#include "vxctl/platform/network.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vxctl::platform {

namespace {

class Descriptor
{
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number; }

private:
    int number;
};

} // namespace

bool IsAddress(const std::string& text)
{
    in_addr address{};
    return ::inet_pton(AF_INET, text.c_str(), &address) == 1;
}

std::string DottedAddress(const std::string& host)
{
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    const int error = ::getaddrinfo(host.c_str(), nullptr, &hints, &found);
    const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(found, ::freeaddrinfo);
    if (error != 0 || !found)
        throw UsageError(error == EAI_NONAME || error == EAI_NODATA
                             ? "name " + host + " is unknown"
                             : "no IPv4 address for " + host + ": " + ::gai_strerror(error));
    std::array<char, NI_MAXHOST> text{};
    if (::getnameinfo(found->ai_addr, found->ai_addrlen, text.data(), static_cast<socklen_t>(text.size()), nullptr, 0,
                      NI_NUMERICHOST) != 0)
        throw UsageError("no IPv4 address for " + host);
    return text.data();
}

int NetworkError(bool isTcp, const std::string& host, std::uint16_t port, int waitMs)
{
    const int type = isTcp ? SOCK_STREAM : SOCK_DGRAM;
    const Descriptor probe(::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1)
        return 0;
    if (::connect(probe.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno != EINPROGRESS)
        return errno;
    if (type == SOCK_DGRAM && ::send(probe.Number(), "", 0, MSG_NOSIGNAL) < 0)
        return errno;
    pollfd wait{probe.Number(), static_cast<short>(type == SOCK_STREAM ? POLLOUT : POLLIN), 0};
    if (::poll(&wait, 1, waitMs) < 1)
        return 0;
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(probe.Number(), SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

std::string DeviceOf(const std::string& name)
{
    constexpr std::string_view kPort = "COM";
    if (name.starts_with('/'))
        return name;
    const std::uint32_t number = name.starts_with(kPort) ? ParseNumber(name.substr(kPort.size())).value_or(0) : 0;
    return number > 0 ? "/dev/ttyS" + std::to_string(number - 1) : "/dev/" + name;
}

int SerialError(const std::string& device)
{
    const Descriptor probe(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (probe.Number() < 0)
        return errno;
    return ::isatty(probe.Number()) != 0 ? 0 : ENOTTY;
}

} // namespace vxctl::platform
