#include "sim/server/inbox.h"

namespace vxsim {
namespace {

constexpr int kMostBatches = 64;           // that are read at a time
constexpr std::size_t kMostRequests = 256; // of a host
constexpr std::size_t kMostHosts = 16;     // that have so many

} // namespace

void Inbox::Read(int socket, std::size_t port)
{
    std::size_t count = DatagramReader::kMost;
    for (int batch = 0; batch < kMostBatches && count == DatagramReader::kMost; ++batch) {
        count = datagrams.Receive(socket);
        for (std::size_t i = 0; i < count; ++i) {
            const sockaddr_in& peer = datagrams.Peer(i);
            if (requests.size() >= kMostHosts * kMostRequests || counts[HostOf(peer)] >= kMostRequests)
                continue; // lost, like any datagram that comes too fast
            ++counts[HostOf(peer)];
            const auto bytes = datagrams.Bytes(i);
            requests.push_back({port, {{bytes.begin(), bytes.end()}, peer}});
        }
    }
}

void Inbox::Serve(Shares& shares, const Serving& serve)
{
    for (auto request = requests.begin(); request != requests.end();) {
        const std::uint32_t host = HostOf(request->datagram.peer);
        if (!shares.IsLeft(host)) {
            ++request;
            continue;
        }
        const Shares::Spending spending(shares, host);
        if (!serve(request->port, request->datagram))
            return;
        if (--counts[host] == 0)
            counts.erase(host);
        request = requests.erase(request);
    }
}

} // namespace vxsim
