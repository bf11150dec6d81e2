#include "sim/server/inbox.h"

namespace vxsim {
namespace {

constexpr int kMostBatches = 64;           // that are read at a time
constexpr std::size_t kMostRequests = 256; // of a host
constexpr std::size_t kMostHosts = 16;     // that have so many

} // namespace

Inbox::~Inbox()
{
    for (const Request& request : requests)
        crowd.Remove(HostOf(request.datagram.peer));
}

void Inbox::Read(DatagramReader& datagrams, int socket, std::size_t port)
{
    std::size_t count = DatagramReader::kMost;
    for (int batch = 0; batch < kMostBatches && count == DatagramReader::kMost; ++batch) {
        count = datagrams.Receive(socket);
        for (std::size_t i = 0; i < count; ++i) {
            const sockaddr_in& peer = datagrams.Peer(i);
            const std::uint32_t host = HostOf(peer);
            if (requests.size() >= kMostHosts * kMostRequests || !crowd.HasRoom(host) || counts[host] >= kMostRequests)
                continue; // lost, like any datagram that comes too fast
            crowd.Add(host);
            ++counts[host];
            const auto bytes = datagrams.Bytes(i);
            requests.push_back({port, {{bytes.begin(), bytes.end()}, peer}});
        }
    }
}

bool Inbox::Serve(Shares& shares, const Serving& serve)
{
    bool served = false;
    for (auto request = requests.begin(); request != requests.end();) {
        const std::uint32_t host = HostOf(request->datagram.peer);
        if (!shares.IsLeft(host)) {
            ++request;
            continue;
        }
        const Shares::Spending spending(shares, host);
        if (!serve(request->port, request->datagram))
            return served;
        served = true;
        crowd.Remove(host);
        if (--counts[host] == 0)
            counts.erase(host);
        request = requests.erase(request);
    }
    return served;
}

} // namespace vxsim
