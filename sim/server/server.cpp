#include "sim/server/server.h"

#include <algorithm>
#include <cerrno>
#include <climits>
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
constexpr std::size_t kMostWaiting = 1024;
constexpr std::size_t kMostUnsent = 65536; // on the serial line, which nobody may be reading
// Silence after which the rest of a broken request is no longer expected.
constexpr milliseconds kPartTimeout{200};
// Silence after which replies that no host has fetched from the serial line are stale.
constexpr milliseconds kStaleTimeout{1000};

// Places among what is watched: these two for each port, and the lines behind them.
enum : std::size_t
{
    kStop,
    kUdp,
    kTcp
};
constexpr std::size_t kEachPort = 2;

std::uint32_t HostOf(const sockaddr_in& peer)
{
    return ntohl(peer.sin_addr.s_addr);
}

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

void Server::Run(int stop)
{
    while (true) {
        const auto begin = Clock::now();
        Prepare(stop, begin);
        if (::poll(watched.data(), watched.size(), TimeToWait(begin)) < 0) {
            if (errno == EINTR)
                continue;
            throw std::system_error(errno, std::generic_category(), "cannot wait for requests");
        }
        if (watched[kStop].revents != 0)
            return;
        ServePorts(&Server::ServeDatagrams, kUdp);
        ServeLines();
        ServePorts(&Server::Accept, kTcp);
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

// The connection that has been silent longest.
std::list<StreamLine>::const_iterator Server::Quietest() const
{
    return std::ranges::min_element(lines, {}, [this](const StreamLine& line) {
        return IsSerial(line) ? Clock::time_point::max() : line.LastInput();
    });
}

// When there is room for one more connection: at once, or as soon as one has been silent so long that it makes room.
Clock::time_point Server::RoomSince() const
{
    return lines.size() < kMostLines ? Clock::time_point() : Quietest()->LastInput() + settings.idle;
}

void Server::Prepare(int stop, Clock::time_point now)
{
    // A host that does not fetch its replies is not heard until it does.
    const auto input = static_cast<short>(IsFull() ? 0 : POLLIN);
    watched.clear();
    watched.push_back({stop, POLLIN, 0});
    const bool accepts = !acceptPaused && RoomSince() <= now;
    for (const Port& port : ports) {
        watched.push_back({port.at->udp.Get(), input, 0});
        watched.push_back({accepts ? port.at->tcp.Get() : -1, POLLIN, 0});
    }
    for (const StreamLine& line : lines) {
        const short serialInput = IsSerial(line) ? input : short{0}; // the next host is heard, fetched or not
        watched.push_back({line.Get(), line.HasUnsent() ? static_cast<short>(POLLOUT | serialInput) : input, 0});
    }
}

int Server::TimeToWait(Clock::time_point now) const
{
    auto until = Clock::time_point::max();
    if (!waiting.empty())
        until = waiting.front().due;
    if (tick)
        until = std::min(until, nextTick);
    if (beside.bootLoader != nullptr)
        until = std::min(until, Clock::time_point(milliseconds(beside.bootLoader->DueMs())));
    for (const StreamLine& line : lines) {
        if (line.IsWaiting())
            until = std::min(until, line.LastInput() + kPartTimeout);
    }
    if (const auto room = RoomSince(); room > now)
        until = std::min(until, room);
    if (until == Clock::time_point::max())
        return -1;
    const auto left = std::chrono::ceil<milliseconds>(until - now).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

void Server::ServePorts(void (Server::*serve)(Port&), std::size_t place)
{
    for (Port& port : ports) {
        if (watched[place].revents != 0)
            (this->*serve)(port);
        place += kEachPort;
    }
}

void Server::Accept(Port& port)
{
    if (RoomSince() > Clock::now())
        return;
    sockaddr_in peer = {};
    socklen_t size = sizeof peer;
    Descriptor connection(
        ::accept4(port.at->tcp.Get(), reinterpret_cast<sockaddr*>(&peer), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!connection) {
        // Out of descriptors: no new connection before an old one goes.
        acceptPaused = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
        return;
    }
    const int on = 1;
    ::setsockopt(connection.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (lines.size() >= kMostLines)
        lines.erase(Quietest());
    lines.emplace_back(++lastNumber, std::move(connection), HostOf(peer));
    lines.back().Use(port.speech);
}

void Server::ServeDatagrams(Port& port)
{
    const int socket = port.at->udp.Get();
    const std::size_t count = datagrams.Receive(socket);
    for (std::size_t i = 0; i < count; ++i) {
        const sockaddr_in& peer = datagrams.Peer(i);
        for (auto& reply :
             answers.ToDatagram(port.speech, datagrams.Bytes(i), {NowMs(), HostOf(peer), ntohs(peer.sin_port)})) {
            if (settings.delay.count() == 0)
                port.outgoing.push_back({std::move(reply), peer});
            else
                waiting.push_back({Clock::now() + settings.delay, {std::move(reply), peer}, 0, &port});
        }
    }
    SendDatagrams(socket, port.outgoing);
}

void Server::ServeLines()
{
    std::size_t index = kUdp + kEachPort * ports.size();
    for (auto line = lines.begin(); line != lines.end(); ++index) {
        const short events = watched[index].revents;
        if (events == 0 || ServeLine(*line, events)) {
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
    auto replies = answers.ToLine(line, NowMs());
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
        while (line.IsWaiting() && now - line.LastInput() >= kPartTimeout) {
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
