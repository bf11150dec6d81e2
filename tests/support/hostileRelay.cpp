// Stands between a host and a sign on loopback and makes the sign's replies hostile: hostileRelay PORT MODE, where PORT
// is the sign's and MODE one of
//   escapes  words become orders to a terminal, of the same length
//   short    a piece of a file has 80 bytes, whatever the sign announced
//   growing  the first announcement of a file is a byte short
// Prints its own port as "udp 127.0.0.1:PORT", as a sign does.
#include "support/packets.h"

#include <arpa/inet.h>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

using vxsign::test::Bytes;

constexpr std::ptrdiff_t kHeaderSize = 16;

sockaddr_in Loopback(std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

// ESC, CSI as a byte and as a character, the direction of writing turned in three ways, BEL and DEL, the end of a line.
constexpr std::array<std::string_view, 8> kOrders = {"\x1b[2J",      "\x9bK",    "\xC2\x9BK", "\xE2\x80\xAE",
                                                     "\xE2\x81\xA6", "\xD8\x9C", "\x07\x7f",  "\r\n"};

using At = Bytes::iterator;

void Fill(At begin, At end, std::string_view order)
{
    for (std::size_t i = 0; begin != end; ++begin, ++i)
        *begin = static_cast<std::uint8_t>(order[i % order.size()]);
}

// In turn another order for each run of letters that is long enough to be a word; of XML, which stays XML, for each
// text between two tags.
void Poison(Bytes& bytes)
{
    constexpr std::ptrdiff_t kShortestWord = 3;
    constexpr std::string_view kXml = "<?xml";
    const auto isLetter = [](std::uint8_t byte) { return std::isalpha(byte) != 0; };
    std::size_t count = 0;
    At at = std::search(bytes.begin() + kHeaderSize, bytes.end(), kXml.begin(), kXml.end());
    const bool isXml = at != bytes.end();
    for (at = isXml ? at : bytes.begin() + kHeaderSize; at != bytes.end();) {
        At begin = isXml ? std::find(at, bytes.end(), '>') : std::find_if(at, bytes.end(), isLetter);
        if (isXml && begin != bytes.end())
            ++begin;
        at = isXml ? std::find(begin, bytes.end(), '<') : std::find_if_not(begin, bytes.end(), isLetter);
        const bool isText = isXml ? begin != at && *begin != '\n' : at - begin >= kShortestWord;
        if (isText)
            Fill(begin, at, kOrders[count++ % kOrders.size()]);
    }
}

bool IsPiece(const Bytes& reply)
{
    return reply[12] == 1 && (reply[13] == 2 || reply[13] == 17);
}

void Shorten(Bytes& reply)
{
    constexpr std::size_t kShort = 80;
    if (!IsPiece(reply) || (reply[4] | reply[5] << 8) <= static_cast<int>(kShort))
        return;
    reply.resize(16U + 4U * reply[14] + kShort);
    reply[4] = kShort;
    reply[5] = 0;
}

void BeginToGrow(Bytes& reply)
{
    constexpr std::size_t kSizeAt = 20; // in the payload of 8 bytes that vxsim gives
    static bool isAnnounced = false;
    if (!IsPiece(reply) || reply.size() <= kSizeAt || std::exchange(isAnnounced, true))
        return;
    --reply[kSizeAt];
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const std::string_view mode = argv[2];
    void (*const change)(Bytes&) = mode == "escapes" ? Poison : mode == "short" ? Shorten : BeginToGrow;
    const sockaddr_in sign = Loopback(static_cast<std::uint16_t>(std::atoi(argv[1])));
    sockaddr_in here = Loopback(0);
    socklen_t size = sizeof here;
    const int hosts = ::socket(AF_INET, SOCK_DGRAM, 0);
    const int signs = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (::bind(hosts, reinterpret_cast<sockaddr*>(&here), size) != 0 ||
        ::getsockname(hosts, reinterpret_cast<sockaddr*>(&here), &size) != 0 ||
        ::connect(signs, reinterpret_cast<const sockaddr*>(&sign), sizeof sign) != 0)
        return 1;
    std::printf("udp 127.0.0.1:%d\n", ntohs(here.sin_port));
    std::fflush(stdout);

    sockaddr_in host{}; // the one that asked last
    for (;;) {
        std::array<pollfd, 2> ready{{{hosts, POLLIN, 0}, {signs, POLLIN, 0}}};
        ::poll(ready.data(), ready.size(), -1);
        Bytes packet(65536);
        if ((ready[0].revents & POLLIN) != 0) {
            size = sizeof host;
            const ssize_t got =
                ::recvfrom(hosts, packet.data(), packet.size(), 0, reinterpret_cast<sockaddr*>(&host), &size);
            if (got > 0)
                ::send(signs, packet.data(), static_cast<std::size_t>(got), 0);
        }
        if (ready[1].revents == 0)
            continue;
        const ssize_t got = ::recv(signs, packet.data(), packet.size(), 0);
        if (got < kHeaderSize)
            continue;
        packet.resize(static_cast<std::size_t>(got));
        change(packet);
        const unsigned check = packet[1] == 0xA8 ? vxsign::test::SumField(packet) : vxsign::test::CrcField(packet);
        packet[2] = static_cast<std::uint8_t>(check);
        packet[3] = static_cast<std::uint8_t>(check >> 8);
        ::sendto(hosts, packet.data(), packet.size(), 0, reinterpret_cast<sockaddr*>(&host), size);
    }
}
