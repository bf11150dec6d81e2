#include "sim/server/endpoints.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <system_error>
#include <termios.h>

namespace vxsim {
namespace {

constexpr int kPickTries = 50;
constexpr int kBacklog = 1024;
constexpr int kDatagramRoom = 4 << 20; // or as much of that as the system gives

[[noreturn]] void Fail(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

bool Bind(const Descriptor& socket, std::uint32_t address, std::uint16_t port)
{
    sockaddr_in local = {};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(address);
    local.sin_port = htons(port);
    return ::bind(socket.Get(), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

std::uint16_t BoundPort(const Descriptor& socket)
{
    sockaddr_in local = {};
    socklen_t size = sizeof local;
    if (::getsockname(socket.Get(), reinterpret_cast<sockaddr*>(&local), &size) != 0)
        Fail("cannot tell the port");
    return ntohs(local.sin_port);
}

} // namespace

Endpoints::Endpoints(const ListenSettings& settings) : host(settings.host)
{
    in_addr parsed = {};
    if (::inet_pton(AF_INET, host.c_str(), &parsed) != 1)
        throw std::invalid_argument("'" + host + "' is no IPv4 address such as 127.0.0.1");
    address = ntohl(parsed.s_addr);
    // A port that is picked for TCP may be taken in UDP: then another one.
    int tries = settings.port == 0 ? kPickTries : 1;
    while (!OpenSockets(settings.port)) {
        if (--tries == 0)
            Fail("cannot use port " + std::to_string(port) + " of " + host);
    }
    if (settings.serial)
        OpenSerial();
}

// False with errno set if the port is taken in either protocol.
bool Endpoints::OpenSockets(std::uint16_t wanted)
{
    port = wanted;
    tcp = Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    udp = Descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!tcp || !udp)
        Fail("cannot make a socket");
    // A port stays usable right after a former sign ended with connections open.
    const int on = 1;
    ::setsockopt(tcp.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    ::setsockopt(udp.Get(), SOL_SOCKET, SO_RCVBUF, &kDatagramRoom, sizeof kDatagramRoom);
    if (!Bind(tcp, address, wanted) || ::listen(tcp.Get(), kBacklog) != 0)
        return false;
    port = BoundPort(tcp);
    return Bind(udp, address, port);
}

void Endpoints::OpenSerial()
{
    serial = Descriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 128> path{};
    if (!serial || ::grantpt(serial.Get()) != 0 || ::unlockpt(serial.Get()) != 0 ||
        ::ptsname_r(serial.Get(), path.data(), path.size()) != 0)
        Fail("cannot make a pseudo-terminal");
    serialPath = path.data();
    serialDevice = Descriptor(::open(path.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    termios line = {};
    if (!serialDevice || ::tcgetattr(serialDevice.Get(), &line) != 0)
        Fail("cannot open " + serialPath);
    ::cfmakeraw(&line);
    if (::tcsetattr(serialDevice.Get(), TCSANOW, &line) != 0)
        Fail("cannot set up " + serialPath);
}

} // namespace vxsim
