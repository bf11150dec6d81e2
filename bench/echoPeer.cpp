#include "echoPeer.h"

#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace vxsign::bench {

EchoPeer::EchoPeer() : descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), size);
    ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
    thread = std::thread([this] { Serve(); });
}

EchoPeer::~EchoPeer()
{
    // A datagram that is no request ends the thread.
    ::sendto(descriptor, "", 1, 0, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    thread.join();
    ::close(descriptor);
}

void EchoPeer::Serve() const
{
    constexpr std::size_t kHeader = 16;
    std::uint8_t bytes[2048];
    sockaddr_in from{};
    for (;;) {
        socklen_t size = sizeof from;
        const ssize_t got = ::recvfrom(descriptor, bytes, sizeof bytes, 0, reinterpret_cast<sockaddr*>(&from), &size);
        if (got < static_cast<ssize_t>(kHeader))
            return;
        // Status 1 with "Process OK", which every kind of sender takes as done.
        bytes[1] = 0xA8;
        bytes[4] = bytes[5] = 0;
        bytes[14] = 1;
        bytes[15] = 1;
        const std::uint8_t processOk[4] = {0x00, 0x90, 0, 0};
        std::memcpy(bytes + kHeader, processOk, sizeof processOk);
        unsigned sum = 0;
        for (std::size_t i = 4; i < kHeader + sizeof processOk; ++i)
            sum += bytes[i];
        bytes[2] = static_cast<std::uint8_t>(sum);
        bytes[3] = static_cast<std::uint8_t>(sum >> 8);
        ::sendto(descriptor, bytes, kHeader + sizeof processOk, 0, reinterpret_cast<const sockaddr*>(&from), size);
    }
}

} // namespace vxsign::bench
