#include "sim/server/datagrams.h"

#include <algorithm>

namespace vxsim {

std::size_t DatagramReader::Receive(int socket)
{
    std::array<iovec, kMost> parts{};
    std::array<mmsghdr, kMost> messages{};
    for (std::size_t i = 0; i < kMost; ++i) {
        parts[i] = {rooms[i].data(), rooms[i].size()};
        messages[i].msg_hdr.msg_name = &peers[i];
        messages[i].msg_hdr.msg_namelen = sizeof peers[i];
        messages[i].msg_hdr.msg_iov = &parts[i];
        messages[i].msg_hdr.msg_iovlen = 1;
    }
    // An error is a passing thing, such as a former reply that nobody took.
    const int count = ::recvmmsg(socket, messages.data(), kMost, MSG_DONTWAIT, nullptr);
    const std::size_t read = count > 0 ? static_cast<std::size_t>(count) : 0;
    for (std::size_t i = 0; i < read; ++i)
        lengths[i] = messages[i].msg_len;
    return read;
}

std::span<const std::uint8_t> DatagramReader::Bytes(std::size_t index) const
{
    return std::span(rooms[index]).first(lengths[index]);
}

void SendDatagrams(int socket, std::vector<Datagram>& datagrams)
{
    constexpr std::size_t kBatch = DatagramReader::kMost;
    for (std::size_t at = 0; at < datagrams.size();) {
        std::array<iovec, kBatch> parts{};
        std::array<mmsghdr, kBatch> messages{};
        const std::size_t count = std::min(kBatch, datagrams.size() - at);
        for (std::size_t i = 0; i < count; ++i) {
            Datagram& datagram = datagrams[at + i];
            parts[i] = {datagram.bytes.data(), datagram.bytes.size()};
            messages[i].msg_hdr.msg_name = &datagram.peer;
            messages[i].msg_hdr.msg_namelen = sizeof datagram.peer;
            messages[i].msg_hdr.msg_iov = &parts[i];
            messages[i].msg_hdr.msg_iovlen = 1;
        }
        const int sent = ::sendmmsg(socket, messages.data(), static_cast<unsigned>(count), MSG_DONTWAIT);
        at += sent > 0 ? static_cast<std::size_t>(sent) : 1;
    }
    datagrams.clear();
}

} // namespace vxsim
