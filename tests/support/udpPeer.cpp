// A sign's end of a UDP line.
#include "support/udpPeer.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vxsign::test {

int BoundSocket(int type, std::uint16_t& port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    const int descriptor = ::socket(AF_INET, type | SOCK_CLOEXEC, 0);
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size), 0);
    port = ntohs(address.sin_port);
    return descriptor;
}

UdpPeer::UdpPeer(std::function<Bytes(const Bytes&)> answerRequest)
    : answer(std::move(answerRequest)), descriptor(BoundSocket(SOCK_DGRAM, port)), thread([this] { Serve(); })
{
}

UdpPeer::~UdpPeer()
{
    ending = true;
    ::shutdown(descriptor, SHUT_RD); // wakes the thread
    thread.join();
    ::close(descriptor);
}

std::vector<Packet> UdpPeer::TakeRequests()
{
    const std::lock_guard lock(mutex);
    return std::exchange(requests, {});
}

void UdpPeer::Serve()
{
    Bytes buffer(65536);
    while (!ending) {
        sockaddr_in from{};
        socklen_t size = sizeof from;
        const ssize_t got =
            ::recvfrom(descriptor, buffer.data(), buffer.size(), 0, reinterpret_cast<sockaddr*>(&from), &size);
        if (ending || got < 0)
            continue;
        const std::lock_guard lock(mutex);
        requests.push_back({Part(buffer, 0, static_cast<std::size_t>(got))});
        const Bytes reply = answer(requests.back().bytes);
        if (!reply.empty())
            ::sendto(descriptor, reply.data(), reply.size(), 0, reinterpret_cast<sockaddr*>(&from), size);
    }
}

} // namespace vxsign::test
