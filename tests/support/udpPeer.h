// A sign's end of a UDP line.
#pragma once

#include "support/packets.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

namespace vxsign::test {

/// A socket of that type, bound to a port on loopback that the system picks and that is written to `port`.
int BoundSocket(int type, std::uint16_t& port);

/// A sign's end of a UDP line on loopback: answers each datagram by a function on a thread of its own, and keeps what
/// came.
class UdpPeer
{
public:
    /// An empty answer is silence.
    explicit UdpPeer(std::function<Bytes(const Bytes& request)> answer);
    ~UdpPeer();
    UdpPeer(const UdpPeer&) = delete;
    UdpPeer& operator=(const UdpPeer&) = delete;

    std::uint16_t Port() const { return port; }

    /// What came since the last call. Afterwards, and until the next request, what the answers left may be read.
    std::vector<Packet> TakeRequests();

private:
    void Serve();

    std::function<Bytes(const Bytes&)> answer;
    std::uint16_t port = 0;
    const int descriptor;
    std::atomic<bool> ending = false;
    std::mutex mutex;
    std::vector<Packet> requests;
    std::thread thread;
};

} // namespace vxsign::test
