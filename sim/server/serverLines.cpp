// The lines of the loop: connections of hosts, and the serial line.
#include "sim/server/server.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <termios.h>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMostLines = 64;
constexpr int kMostAccepted = 64;         // in a turn
constexpr milliseconds kAcceptPause{250}; // where nobody leaves
// Silence after which replies that no host has fetched from the serial line are stale.
constexpr milliseconds kStaleTimeout{1000};

} // namespace

// Whether what has come on a line can be answered: not as long as its host leaves replies where they are. On the serial
// line the next host is heard, fetched or not.
bool Server::CanServe(const StreamLine& line) const
{
    return !IsFull() && (IsSerial(line) || !line.HasUnsent());
}

// The connection that has been silent longest, of a host or of all of them.
std::list<StreamLine>::const_iterator Server::Quietest(std::optional<std::uint32_t> host) const
{
    const auto since = [&](const StreamLine& line) {
        return IsSerial(line) || (host && line.Host() != *host) ? Clock::time_point::max() : line.LastInput();
    };
    return std::ranges::min_element(lines, {}, since);
}

// Whoever has been silent long enough makes room, or else the host with the most connections, if those are more than
// the other one would then have.
bool Server::MakeRoomFor(std::uint32_t host)
{
    if (lines.size() < kMostLines)
        return true;
    auto leaving = Quietest(std::nullopt);
    if (leaving->LastInput() + settings.idle > Clock::now()) {
        std::map<std::uint32_t, std::size_t> counts{{host, 1}};
        for (const StreamLine& line : lines)
            ++counts[line.Host()];
        const auto most = std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; });
        if (most->second <= counts[host])
            return false;
        leaving = Quietest(most->first);
    }
    lines.erase(leaving);
    return true;
}

void Server::Accept(Port& port)
{
    for (int accepted = 0; accepted < kMostAccepted; ++accepted) {
        sockaddr_in peer = {};
        socklen_t size = sizeof peer;
        Descriptor connection(
            ::accept4(port.at->tcp.Get(), reinterpret_cast<sockaddr*>(&peer), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!connection) {
            // Out of descriptors: no new connection before an old one goes, here or at another sign.
            if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM)
                acceptFrom = Clock::now() + kAcceptPause;
            return;
        }
        if (!MakeRoomFor(HostOf(peer)))
            continue;
        const int on = 1;
        ::setsockopt(connection.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        lines.emplace_back(++lastNumber, std::move(connection), HostOf(peer));
        lines.back().Use(port.speech);
    }
}

void Server::ServeLines()
{
    for (auto line = lines.begin(); line != lines.end();) {
        const std::uint32_t events = Noted(line->Get());
        if ((events == 0 && !line->IsPending()) || ServeLine(*line, events)) {
            ++line;
        } else {
            line = lines.erase(line);
            acceptFrom = Clock::time_point::min();
        }
    }
}

// False if the line has ended.
bool Server::ServeLine(StreamLine& line, std::uint32_t events)
{
    if ((events & EPOLLOUT) != 0 && !line.Flush())
        return false;
    if (line.IsPending() && CanServe(line))
        return AnswerLine(line);
    if ((events & ~std::uint32_t{EPOLLOUT}) == 0)
        return true;
    const auto now = Clock::now();
    if (IsSerial(line)) {
        // Nobody else can undo a host's claim to have the device for itself, as the device stays open.
        ::ioctl(endpoints.serialDevice.Get(), TIOCNXCL);
        // What a real sign sends when no host listens is lost.
        if (now - line.LastInput() >= kStaleTimeout) {
            ::tcflush(endpoints.serialDevice.Get(), TCIFLUSH);
            line.DropUnsent();
        }
    }
    const bool alive = line.Receive(now);
    return AnswerLine(line) && alive;
}

bool Server::AnswerLine(StreamLine& line)
{
    auto replies = answers.ToLine(line, NowMs(), loop.shares);
    served |= !line.IsPending() || (replies && !replies->empty());
    return replies && SendOrWait(line, std::move(*replies));
}

void Server::KeepUpBootLoader(Clock::time_point now)
{
    if (beside.bootLoader == nullptr || now < Clock::time_point(milliseconds(beside.bootLoader->DueMs())))
        return;
    const auto line = std::ranges::find(lines, serialLine, &StreamLine::Get);
    if (line == lines.end())
        return;
    const bool asking = beside.bootLoader->IsAsking();
    auto bytes = answers.OfBootLoader(NowMs());
    // A host that comes later finds one question, the latest.
    if (asking && !bytes.empty())
        ::tcflush(endpoints.serialDevice.Get(), TCIFLUSH);
    SendOrWait(*line, std::move(bytes)); // a broken line is noticed at its next event
}

void Server::SettleSilentLines(Clock::time_point now)
{
    for (StreamLine& line : lines) {
        while (line.IsWaiting() && !line.IsPending() && now - line.LastInput() >= kPartTimeout) {
            line.Finder().GiveUp();
            if (!AnswerLine(line))
                break; // a broken line is noticed at its next event
        }
    }
}

} // namespace vxsim
