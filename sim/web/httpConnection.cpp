#include "sim/web/httpConnection.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cctype>
#include <netinet/in.h>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMostHead = 16384;
constexpr milliseconds kHeadTime{5000};
constexpr milliseconds kWriteTime{5000}; // for each piece
constexpr milliseconds kLinger{1000};
constexpr std::size_t kLeastPerMs = 16; // bytes of a body, so that a large one has its time

// What a request may say beside its line. The rest is passed over: compression, ranges, forms.
constexpr std::string_view kHeard[] = {"host",           "origin",       "sec-fetch-site",    "authorization",
                                       "content-length", "content-type", "transfer-encoding", "content-encoding",
                                       "expect"};

bool IsHeard(std::string_view line)
{
    std::string name(line.substr(0, line.find(':')));
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::ranges::find(kHeard, name) != std::end(kHeard);
}

void TellAddress(const sockaddr_in& address, std::string& ip, int& port)
{
    std::array<char, INET_ADDRSTRLEN> text{};
    ::inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size());
    ip = text.data();
    port = ntohs(address.sin_port);
}

} // namespace

HttpConnection::HttpConnection(Descriptor socket, const Descriptor& stopping)
    : connection(std::move(socket)), stop(stopping), inputEnd(Clock::now() + kHeadTime)
{
}

// False if the time is over or the server ends.
bool HttpConnection::WaitUntil(Clock::time_point until, short events) const
{
    const auto left = std::chrono::ceil<milliseconds>(until - Clock::now()).count();
    std::array<pollfd, 2> watched{{{connection.Get(), events, 0}, {stop.Get(), POLLIN, 0}}};
    ::poll(watched.data(), watched.size(), static_cast<int>(std::max<decltype(left)>(left, 0)));
    return watched[0].revents != 0 && watched[1].revents == 0;
}

ssize_t HttpConnection::Receive(char* bytes, std::size_t size)
{
    if (!WaitUntil(inputEnd, POLLIN))
        return -1;
    return ::recv(connection.Get(), bytes, size, MSG_DONTWAIT);
}

int HttpConnection::ReadHead()
{
    constexpr std::string_view kEnd = "\r\n\r\n";
    std::array<char, 4096> piece;
    for (;;) {
        const ssize_t count = Receive(piece.data(), piece.size());
        if (count <= 0)
            return input.empty() || count == 0 ? 0 : 408;
        const std::size_t from = input.size() - std::min(input.size(), kEnd.size());
        input.append(piece.data(), static_cast<std::size_t>(count));
        const std::size_t end = input.find(kEnd, from);
        if (end <= kMostHead) { // where there is none it lies beyond
            Filter(end + kEnd.size());
            return 200;
        }
        if (input.size() > kMostHead)
            return 431;
    }
}

void HttpConnection::Filter(std::size_t headSize)
{
    const std::string head = input.substr(0, headSize);
    std::string kept;
    for (std::size_t at = 0; at < head.size();) {
        const std::size_t end = std::min(head.find("\r\n", at), head.size() - 2) + 2;
        const std::string_view line = std::string_view(head).substr(at, end - at);
        if (at == 0 || line.size() == 2 || IsHeard(line))
            kept += line;
        at = end;
    }
    input.replace(0, headSize, kept);
}

void HttpConnection::Refuse(int status, const std::string& why)
{
    const std::string body = "{\"error\": \"" + why + "\"}";
    const std::string answer = "HTTP/1.1 " + std::to_string(status) + " Refused\r\nContent-Type: application/json\r\n" +
                               "Content-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" +
                               body;
    write(answer.data(), answer.size());
}

void HttpConnection::Finish()
{
    ::shutdown(connection.Get(), SHUT_WR);
    std::array<char, 16384> rest;
    inputEnd = Clock::now() + kLinger;
    while (Receive(rest.data(), rest.size()) > 0) {
    }
}

bool HttpConnection::is_writable() const
{
    pollfd watched{connection.Get(), POLLRDHUP, 0};
    return ::poll(&watched, 1, 0) == 0;
}

ssize_t HttpConnection::read(char* bytes, std::size_t size)
{
    if (taken < input.size()) {
        const std::size_t count = input.copy(bytes, size, taken);
        taken += count;
        return static_cast<ssize_t>(count);
    }
    const ssize_t count = Receive(bytes, size);
    if (count > 0)
        inputEnd += milliseconds(static_cast<std::size_t>(count) / kLeastPerMs + 1);
    return count;
}

ssize_t HttpConnection::write(const char* bytes, std::size_t size)
{
    if (!WaitUntil(Clock::now() + kWriteTime, POLLOUT))
        return -1;
    return ::send(connection.Get(), bytes, size, MSG_NOSIGNAL | MSG_DONTWAIT);
}

void HttpConnection::get_remote_ip_and_port(std::string& ip, int& port) const
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    if (::getpeername(connection.Get(), reinterpret_cast<sockaddr*>(&address), &size) == 0)
        TellAddress(address, ip, port);
}

void HttpConnection::get_local_ip_and_port(std::string& ip, int& port) const
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    if (::getsockname(connection.Get(), reinterpret_cast<sockaddr*>(&address), &size) == 0)
        TellAddress(address, ip, port);
}

} // namespace vxsim
