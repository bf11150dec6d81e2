#include "sim/server/server.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <map>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <system_error>
#include <termios.h>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMostLines = 64;
constexpr int kMostAccepted = 64; // in a turn
constexpr std::size_t kMostWaiting = 1024;
constexpr std::size_t kMostUnsent = 65536; // on the serial line, which nobody may be reading
// Silence after which the rest of a broken request is no longer expected.
constexpr milliseconds kPartTimeout{200};
// Silence after which replies that no host has fetched from the serial line are stale.
constexpr milliseconds kStaleTimeout{1000};

// Places among what is watched: the last two for each port, and the lines behind them.
enum : std::size_t
{
    kStop,
    kAsked,
    kUdp,
    kTcp
};
constexpr std::size_t kEachPort = 2;

} // namespace

std::uint64_t NowMs()
{
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<milliseconds>(Clock::now().time_since_epoch()).count());
}

Server::Server(Endpoints& where, VirtualSign& served, const ServerSettings& how, const Beside& others)
    : endpoints(where), ports{{&where, Speech::kPackets}}, settings(how), beside(others),
      answers(served, others.bootLoader, others.devices, how.faults)
{
    if (beside.modbusRtuPort != nullptr)
        ports.push_back({beside.modbusRtuPort, Speech::kModbusRtu});
    if (beside.modbusTcpPort != nullptr)
        ports.push_back({beside.modbusTcpPort, Speech::kModbusTcp});
    if (endpoints.serial) {
        serialLine = endpoints.serial.Get();
        lines.emplace_back(++lastNumber, std::move(endpoints.serial), std::nullopt);
        if (beside.bootLoader != nullptr)
            lines.back().Use(Speech::kXmodem);
        else if (beside.devices != nullptr)
            lines.back().Finder().KeepSkipped();
    } else {
        beside.bootLoader = nullptr;
    }
}

void Server::OnTick(milliseconds every, std::function<void()> call)
{
    tickEvery = every;
    tick = std::move(call);
    nextTick = Clock::now();
}

void Server::TickEvery(milliseconds every)
{
    tickEvery = every;
    nextTick = std::min(nextTick, Clock::now() + every);
}

void Server::Watch(int descriptor, std::function<void()> serve)
{
    asked = descriptor;
    serveAsked = std::move(serve);
}

LineSettings Server::Line()
{
    return {answers.Faults().Settings(), settings.delay, answers.IsUnplugged()};
}

void Server::Use(const LineSettings& line)
{
    answers.Faults().Use(line.faults);
    answers.Unplug(line.unplugged);
    settings.delay = line.delay;
    if (line.unplugged)
        waiting.clear();
    const auto latest = Clock::now() + line.delay;
    for (Waiting& reply : waiting)
        reply.due = std::min(reply.due, latest);
}

void Server::Run(int stop)
{
    while (true) {
        const auto begin = Clock::now();
        Prepare(stop);
        if (::poll(watched.data(), watched.size(), TimeToWait(begin)) < 0) {
            if (errno == EINTR)
                continue;
            throw std::system_error(errno, std::generic_category(), "cannot wait for requests");
        }
        if (watched[kStop].revents != 0)
            return;
        if (watched[kAsked].revents != 0)
            serveAsked();
        shares.BeginTurn();
        for (std::size_t i = 0; i < ports.size(); ++i)
            if (watched[kUdp + kEachPort * i].revents != 0)
                inbox.Read(ports[i].at->udp.Get(), i);
        ServeDatagrams();
        ServeLines();
        for (std::size_t i = 0; i < ports.size(); ++i)
            if (watched[kTcp + kEachPort * i].revents != 0)
                Accept(ports[i]);
        if (lines.empty() && waiting.empty() && !tick)
            continue;
        const auto now = Clock::now();
        SendDue(now);
        SettleSilentLines(now);
        KeepUpBootLoader(now);
        if (tick && now >= nextTick) {
            tick();
            nextTick = now + tickEvery;
        }
    }
}

bool Server::IsFull() const
{
    return waiting.size() >= kMostWaiting;
}

// Whether what has come on a line can be answered: not as long as its host leaves replies where they are. On the serial
// line the next host is heard, fetched or not.
bool Server::CanServe(const StreamLine& line) const
{
    return !IsFull() && (IsSerial(line) || !line.HasUnsent());
}

bool Server::HasWork() const
{
    return (!inbox.IsEmpty() && !IsFull()) ||
           std::ranges::any_of(lines, [this](const StreamLine& line) { return line.IsPending() && CanServe(line); });
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

void Server::Prepare(int stop)
{
    const auto input = static_cast<short>(IsFull() ? 0 : POLLIN);
    watched.clear();
    watched.push_back({stop, POLLIN, 0});
    watched.push_back({asked, POLLIN, 0});
    for (const Port& port : ports) {
        watched.push_back({port.at->udp.Get(), input, 0});
        watched.push_back({!acceptPaused ? port.at->tcp.Get() : -1, POLLIN, 0});
    }
    for (const StreamLine& line : lines) {
        const int events = (line.HasUnsent() ? POLLOUT : 0) | (CanServe(line) && !line.IsPending() ? POLLIN : 0);
        watched.push_back({line.Get(), static_cast<short>(events), 0});
    }
}

int Server::TimeToWait(Clock::time_point now) const
{
    if (HasWork())
        return 0;
    auto until = Clock::time_point::max();
    if (!waiting.empty())
        until = waiting.front().due;
    if (tick)
        until = std::min(until, nextTick);
    if (beside.bootLoader != nullptr)
        until = std::min(until, Clock::time_point(milliseconds(beside.bootLoader->DueMs())));
    for (const StreamLine& line : lines) {
        if (line.IsWaiting() && !line.IsPending())
            until = std::min(until, line.LastInput() + kPartTimeout);
    }
    if (until == Clock::time_point::max())
        return -1;
    const auto left = std::chrono::ceil<milliseconds>(until - now).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

void Server::Accept(Port& port)
{
    for (int accepted = 0; accepted < kMostAccepted; ++accepted) {
        sockaddr_in peer = {};
        socklen_t size = sizeof peer;
        Descriptor connection(
            ::accept4(port.at->tcp.Get(), reinterpret_cast<sockaddr*>(&peer), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!connection) {
            // Out of descriptors: no new connection before an old one goes.
            acceptPaused = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
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

void Server::ServeDatagrams()
{
    inbox.Serve(shares, [this](std::size_t index, const Datagram& request) {
        if (IsFull())
            return false;
        Port& port = ports[index];
        const sockaddr_in& peer = request.peer;
        for (auto& reply :
             answers.ToDatagram(port.speech, request.bytes, {NowMs(), HostOf(peer), ntohs(peer.sin_port)})) {
            if (settings.delay.count() == 0)
                port.outgoing.push_back({std::move(reply), peer});
            else
                waiting.push_back({Clock::now() + settings.delay, {std::move(reply), peer}, 0, &port});
        }
        return true;
    });
    for (Port& port : ports)
        SendDatagrams(port.at->udp.Get(), port.outgoing);
}

void Server::ServeLines()
{
    std::size_t index = kUdp + kEachPort * ports.size();
    for (auto line = lines.begin(); line != lines.end(); ++index) {
        const short events = watched[index].revents;
        if ((events == 0 && !line->IsPending()) || ServeLine(*line, events)) {
            ++line;
        } else {
            line = lines.erase(line);
            acceptPaused = false;
        }
    }
}

// False if the line has ended.
bool Server::ServeLine(StreamLine& line, short events)
{
    if ((events & POLLOUT) != 0 && !line.Flush())
        return false;
    if (line.IsPending() && CanServe(line))
        return AnswerLine(line);
    if ((events & ~POLLOUT) == 0)
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
    auto replies = answers.ToLine(line, NowMs(), shares);
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

// False if the line is broken.
bool Server::SendOrWait(StreamLine& line, Replies replies)
{
    for (std::vector<std::uint8_t>& reply : replies) {
        if (IsSerial(line) && line.Unsent() > kMostUnsent)
            return true;
        if (settings.delay.count() != 0)
            waiting.push_back({Clock::now() + settings.delay, {std::move(reply), {}}, line.Number(), nullptr});
        else if (!line.Send(reply))
            return false;
    }
    return true;
}

void Server::SendDue(Clock::time_point now)
{
    for (; !waiting.empty() && waiting.front().due <= now; waiting.pop_front()) {
        Waiting& first = waiting.front();
        if (first.port != nullptr) {
            first.port->outgoing.push_back(std::move(first.reply));
            continue;
        }
        const auto line = std::ranges::find(lines, first.line, &StreamLine::Number);
        if (line != lines.end())
            line->Send(first.reply.bytes); // a broken line is noticed at its next event
    }
    for (Port& port : ports)
        SendDatagrams(port.at->udp.Get(), port.outgoing);
}

} // namespace vxsim
