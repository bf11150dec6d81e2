// Opens sockets of relays.
#include "vxctl/record/loopback.h"

#include "vxctl/cli/failure.h"

#include <arpa/inet.h>
#include <cerrno>
#include <sys/socket.h>
#include <system_error>

namespace vxctl {

sockaddr_in AddressOf(const Endpoint& end)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(end.host);
    address.sin_port = htons(end.port);
    return address;
}

Endpoint EndpointOf(const SignUrl& sign)
{
    in_addr address{};
    ::inet_pton(AF_INET, sign.host.c_str(), &address);
    return {ntohl(address.s_addr), sign.port};
}

Endpoint LocalEnd(int socket)
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
}

std::uint32_t HostTowards(const Endpoint& sign)
{
    const Descriptor probe(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = AddressOf(sign);
    (void)::connect(probe.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address); // which sends nothing
    return LocalEnd(probe.Get()).host;
}

Descriptor BoundSocket(int type, std::uint32_t host)
{
    Descriptor made(::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const sockaddr_in address = AddressOf({host, 0});
    if (!made || ::bind(made.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw SignFailure(VX_CALL, "no relay for the recording: " + std::generic_category().message(errno));
    return made;
}

} // namespace vxctl
