#pragma once

#include <cstdint>
#include <netinet/in.h>
#include <thread>

namespace vxsign::bench {

/// The other end of a loopback line: acknowledges each datagram of 16 bytes and more with a good reply of 20 bytes,
/// with as little work as that takes. Library and bare sockets are measured against the same peer.
class EchoPeer
{
public:
    EchoPeer();
    ~EchoPeer();
    EchoPeer(const EchoPeer&) = delete;
    EchoPeer& operator=(const EchoPeer&) = delete;

    const sockaddr_in& Address() const { return address; }
    std::uint16_t Port() const { return ntohs(address.sin_port); }

private:
    void Serve() const;

    int descriptor;
    sockaddr_in address{};
    std::thread thread;
};

} // namespace vxsign::bench
