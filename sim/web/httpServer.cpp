#include "sim/web/httpServer.h"

#include "sim/web/bell.h"
#include "sim/web/httpConnection.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <exception>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <system_error>
#include <utility>

namespace vxsim {
namespace {

constexpr std::chrono::milliseconds kFullPause{100}; // when the system has no more descriptors
constexpr int kBacklog = 16;

Descriptor Listen(const std::string& host, std::uint16_t& port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1)
        throw std::invalid_argument("'" + host + "' is no IPv4 address");
    Descriptor listening(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    socklen_t size = sizeof address;
    ::setsockopt(listening.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (::bind(listening.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listening.Get(), kBacklog) != 0 ||
        ::getsockname(listening.Get(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::system_error(errno, std::generic_category(),
                                "cannot show the page at " + host + ":" + std::to_string(port));
    port = ntohs(address.sin_port);
    return listening;
}

} // namespace

HttpServer::HttpServer(const std::string& host, std::uint16_t wanted) : stopping(MakeBell()), port(wanted)
{
    listening = Listen(host, port);
    svr_sock_ = listening.Get(); // streams end when it is none
}

void HttpServer::Start()
{
    pool.emplace(kMostConnections);
    acceptor = std::thread([this] { Accept(); });
}

void HttpServer::Stop()
{
    svr_sock_ = INVALID_SOCKET;
    Ring(stopping);
    if (acceptor.joinable())
        acceptor.join();
    if (pool)
        pool->shutdown();
    pool.reset();
}

void HttpServer::Accept()
{
    std::array<pollfd, 2> watched{{{listening.Get(), POLLIN, 0}, {stopping.Get(), POLLIN, 0}}};
    while (::poll(watched.data(), watched.size(), -1) < 0 || watched[1].revents == 0) {
        const int connection = ::accept4(listening.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0) {
            if (errno == EMFILE || errno == ENFILE)
                std::this_thread::sleep_for(kFullPause);
            continue;
        }
        if (++open > kMostConnections) {
            HttpConnection(Descriptor(connection), stopping).Refuse(503, "too many connections");
            --open;
        } else {
            pool->enqueue([this, connection] { Serve(connection); });
        }
    }
}

// What fails while an answer is under way ends it there.
void HttpServer::Answer(HttpConnection& connection)
{
    try {
        bool closed = true;
        process_request(connection, true, closed, prepare);
    } catch (const std::exception&) { // no memory, or a sign that has gone
    }
}

void HttpServer::Serve(int socket)
{
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    HttpConnection connection(Descriptor(socket), stopping);
    const int status = connection.ReadHead();
    if (status == 200)
        Answer(connection);
    else if (status != 0)
        connection.Refuse(status, status == 431 ? "the head of the request is too long" : "the request is too slow");
    connection.Finish();
    --open;
}

} // namespace vxsim
