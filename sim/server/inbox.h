// Datagrams that wait for their host's turn.
#pragma once

#include "sim/server/datagrams.h"
#include "sim/server/shares.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>

namespace vxsim {

class Inbox
{
public:
    // Takes all that has come to a socket, so that nobody's datagrams find the room taken that the system has for them.
    // `port` is what Serve says of them.
    void Read(int socket, std::size_t port);

    bool IsEmpty() const { return requests.empty(); }

    // Hands the datagrams over, in the order of their arrival, of each host as long as it has time left; ends when
    // `serve` gives false, and keeps that one.
    using Serving = std::function<bool(std::size_t port, const Datagram& request)>;
    void Serve(Shares& shares, const Serving& serve);

private:
    struct Request
    {
        std::size_t port;
        Datagram datagram;
    };

    DatagramReader datagrams;
    std::list<Request> requests;
    std::map<std::uint32_t, std::size_t> counts; // by host
};

// The address of a host, first octet in the top byte.
inline std::uint32_t HostOf(const sockaddr_in& peer)
{
    return ntohl(peer.sin_addr.s_addr);
}

} // namespace vxsim
