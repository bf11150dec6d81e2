// A relay over UDP: one datagram there is one here.
#include "vxctl/record/loopback.h"
#include "vxctl/record/relay.h"

#include <arpa/inet.h>
#include <list>
#include <sys/socket.h>
#include <vxsign/api.h>

namespace vxctl {

namespace {

constexpr std::size_t kMostPeers = 8;

struct Datagram
{
    std::vector<std::uint8_t> bytes;
    Endpoint from;
};

bool Receive(int socket, Datagram& datagram)
{
    datagram.bytes.resize(65536);
    sockaddr_in from{};
    socklen_t size = sizeof from;
    const ssize_t count = ::recvfrom(socket, datagram.bytes.data(), datagram.bytes.size(), MSG_DONTWAIT,
                                     reinterpret_cast<sockaddr*>(&from), &size);
    datagram.bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    datagram.from = {ntohl(from.sin_addr.s_addr), ntohs(from.sin_port)};
    return count >= 0;
}

void Send(int socket, const Endpoint& to, std::span<const std::uint8_t> bytes)
{
    const sockaddr_in address = AddressOf(to);
    ::sendto(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address),
             sizeof address);
}

class DatagramRelay : public Relay
{
public:
    DatagramRelay(const SignUrl& url, Recording& recording, std::uint32_t line)
        : to(recording), number(line), sign(EndpointOf(url)), host(HostTowards(sign)),
          front(BoundSocket(SOCK_DGRAM, INADDR_LOOPBACK))
    {
        place = url;
        place.host = "127.0.0.1";
        place.port = LocalEnd(front.Get()).port;
        Begin();
    }
    ~DatagramRelay() override { End(); }

private:
    // A socket of the library has one of its own towards the sign, so that an answer that comes late does not get to
    // the next one.
    struct Peer
    {
        Endpoint library;
        Descriptor socket;
        RecordedLine line;
    };

    std::vector<pollfd> Awaited() const override
    {
        std::vector<pollfd> all{{front.Get(), POLLIN, 0}};
        for (const Peer& peer : peers)
            all.push_back({peer.socket.Get(), POLLIN, 0});
        return all;
    }

    void Take(std::span<const pollfd> ready) override
    {
        Datagram datagram;
        std::size_t which = 1;
        for (Peer& peer : peers) {
            if (ready[which++].revents != 0 && Receive(peer.socket.Get(), datagram)) {
                AddDatagram(peer.line, Way::kIn, datagram.bytes);
                Send(front.Get(), peer.library, datagram.bytes);
            }
        }
        if (ready[0].revents != 0 && Receive(front.Get(), datagram)) {
            Peer& peer = PeerOf(datagram.from);
            AddDatagram(peer.line, Way::kOut, datagram.bytes);
            Send(peer.socket.Get(), sign, datagram.bytes);
        }
    }

    Peer& PeerOf(const Endpoint& library)
    {
        for (Peer& peer : peers) {
            if (peer.library.port == library.port)
                return peer;
        }
        if (peers.size() == kMostPeers)
            peers.pop_front();
        Descriptor socket = BoundSocket(SOCK_DGRAM, INADDR_ANY);
        const std::uint16_t port = LocalEnd(socket.Get()).port;
        peers.push_back({library, std::move(socket), RecordedLine(to, number, {host, port}, sign)});
        return peers.back();
    }

    Recording& to;
    std::uint32_t number;
    Endpoint sign;
    std::uint32_t host;
    Descriptor front;
    std::list<Peer> peers; // the latest at the end
};

} // namespace

std::unique_ptr<Relay> MakeDatagramRelay(const SignUrl& sign, Recording& recording, std::uint32_t line)
{
    return std::make_unique<DatagramRelay>(sign, recording, line);
}

} // namespace vxctl
