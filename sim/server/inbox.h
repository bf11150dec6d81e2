// Datagrams that wait for their host's turn.
#pragma once

#include "sim/server/datagrams.h"
#include "sim/server/shares.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <utility>

namespace vxsim {

// How many datagrams of each host wait, at all signs together.
class Crowd
{
public:
    bool HasRoom(std::uint32_t host) const
    {
        const auto found = counts.find(host);
        return total < kMost && (found == counts.end() || found->second < kMostOfHost);
    }
    void Add(std::uint32_t host)
    {
        ++counts[host];
        ++total;
    }
    void Remove(std::uint32_t host)
    {
        if (--counts[host] == 0)
            counts.erase(host);
        --total;
    }

private:
    static constexpr std::size_t kMostOfHost = 8192;
    static constexpr std::size_t kMost = 65536;

    std::map<std::uint32_t, std::size_t> counts;
    std::size_t total = 0;
};

class Inbox
{
public:
    explicit Inbox(Crowd& all) : crowd(all) {}
    Inbox(const Inbox&) = delete;
    Inbox& operator=(const Inbox&) = delete;
    ~Inbox();

    // Takes all that has come to a socket, so that nobody's datagrams find the room taken that the system has for them.
    // `port` is what Serve says of them.
    void Read(DatagramReader& datagrams, int socket, std::size_t port);

    bool IsEmpty() const { return requests.empty(); }

    // Hands the datagrams over, in the order of their arrival, of each host as long as it has time left; ends when
    // `serve` gives false, and keeps that one. False if nobody had any time left.
    using Serving = std::function<bool(std::size_t port, const Datagram& request)>;
    bool Serve(Shares& shares, const Serving& serve);

private:
    struct Request
    {
        std::size_t port;
        Datagram datagram;
    };

    Crowd& crowd;
    std::list<Request> requests;
    std::map<std::uint32_t, std::size_t> counts; // by host
};

// The address of a host, first octet in the top byte.
inline std::uint32_t HostOf(const sockaddr_in& peer)
{
    return ntohl(peer.sin_addr.s_addr);
}

} // namespace vxsim
