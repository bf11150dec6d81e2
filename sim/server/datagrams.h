// Many datagrams in one call.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <netinet/in.h>
#include <span>
#include <sys/socket.h>
#include <sys/uio.h>
#include <vector>

namespace vxsim {

struct Datagram
{
    std::vector<std::uint8_t> bytes;
    sockaddr_in peer = {};
};

// Takes the datagrams that wait at a socket, several in one call: a host may have many requests in flight.
class DatagramReader
{
public:
    static constexpr std::size_t kMost = 16;

    // Reads without waiting. Gives the number of datagrams read, 0 if there is none.
    std::size_t Receive(int socket);

    // One of those read last. Of a datagram longer than any request only the start is there, more than a longest
    // request.
    std::span<const std::uint8_t> Bytes(std::size_t index) const;
    const sockaddr_in& Peer(std::size_t index) const { return peers[index]; }

private:
    static constexpr std::size_t kRoom = 4096;

    std::array<std::array<std::uint8_t, kRoom>, kMost> rooms{};
    std::array<sockaddr_in, kMost> peers{};
    std::array<std::size_t, kMost> lengths{};
};

// Sends all of them. One that cannot go is lost, like any other datagram.
void SendDatagrams(int socket, std::vector<Datagram>& datagrams);

} // namespace vxsim
