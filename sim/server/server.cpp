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

enum : std::size_t
{
    kStop,
    kUdp,
    kTcp,
    kDevicesUdp,
    kDevicesTcp,
    kFirstLine
};

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
    : endpoints(where), sign(served), settings(how), beside(others), injector(how.faults)
{
    if (endpoints.serial) {
        serialLine = endpoints.serial.Get();
        lines.emplace_back(++lastNumber, std::move(endpoints.serial), std::nullopt);
        if (beside.bootLoader != nullptr)
            lines.back().UseBytes();
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
        Prepare(stop);
        if (::poll(watched.data(), watched.size(), TimeToWait(Clock::now())) < 0) {
            if (errno == EINTR)
                continue;
            throw std::system_error(errno, std::generic_category(), "cannot wait for requests");
        }
        if (watched[kStop].revents != 0)
            return;
        if (watched[kUdp].revents != 0)
            ServeDatagrams();
        if (watched[kDevicesUdp].revents != 0)
            ServeDeviceDatagrams();
        ServeLines();
        if (watched[kTcp].revents != 0)
            Accept(endpoints.tcp, false);
        if (watched[kDevicesTcp].revents != 0)
            Accept(beside.devicesPort->tcp, true);
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

void Server::Prepare(int stop)
{
    // A host that does not fetch its replies is not heard until it does.
    const auto input = static_cast<short>(IsFull() ? 0 : POLLIN);
    watched.clear();
    watched.push_back({stop, POLLIN, 0});
    watched.push_back({endpoints.udp.Get(), input, 0});
    const bool accepts = !acceptPaused && lines.size() < kMostLines;
    watched.push_back({accepts ? endpoints.tcp.Get() : -1, POLLIN, 0});
    const Endpoints* const devices = beside.devicesPort;
    watched.push_back({devices != nullptr ? devices->udp.Get() : -1, input, 0});
    watched.push_back({devices != nullptr && accepts ? devices->tcp.Get() : -1, POLLIN, 0});
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
    if (until == Clock::time_point::max())
        return -1;
    const auto left = std::chrono::ceil<milliseconds>(until - now).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

void Server::Accept(const Descriptor& listener, bool forDevices)
{
    sockaddr_in peer = {};
    socklen_t size = sizeof peer;
    Descriptor connection(
        ::accept4(listener.Get(), reinterpret_cast<sockaddr*>(&peer), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!connection) {
        // Out of descriptors: no new connection before an old one goes.
        acceptPaused = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
        return;
    }
    const int on = 1;
    ::setsockopt(connection.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    lines.emplace_back(++lastNumber, std::move(connection), HostOf(peer));
    if (forDevices)
        lines.back().UseBytes();
}

void Server::ServeDeviceDatagrams()
{
    const int socket = beside.devicesPort->udp.Get();
    const std::size_t count = datagrams.Receive(socket);
    for (std::size_t i = 0; i < count; ++i) {
        const auto request = datagrams.Bytes(i);
        std::vector<std::uint8_t> bytes(request.begin(), request.end());
        for (std::vector<std::uint8_t>& answer : beside.devices->Answer(bytes))
            if (auto reply = injector.ApplyToBytes(std::move(answer)); !reply.empty())
                outgoing.push_back({std::move(reply), datagrams.Peer(i)});
    }
    SendDatagrams(socket, outgoing);
}

void Server::ServeDatagrams()
{
    const std::size_t count = datagrams.Receive(endpoints.udp.Get());
    for (std::size_t i = 0; i < count; ++i) {
        auto reply = injector.Apply(sign.Answer(datagrams.Bytes(i), {NowMs(), HostOf(datagrams.Peer(i))}));
        if (reply.empty())
            continue;
        if (settings.delay.count() == 0)
            outgoing.push_back({std::move(reply), datagrams.Peer(i)});
        else
            waiting.push_back({Clock::now() + settings.delay, {std::move(reply), datagrams.Peer(i)}, 0});
    }
    SendDatagrams(endpoints.udp.Get(), outgoing);
}

void Server::ServeLines()
{
    std::size_t index = kFirstLine;
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
    return AnswerFrames(line) && alive;
}

bool Server::AnswerFrames(StreamLine& line)
{
    while (const auto frame = line.Finder().Next()) {
        if (!Reply(line, sign.Answer(*frame, {NowMs(), line.Host()})))
            return false;
    }
    return AnswerBytes(line);
}

// What is no packet of the sign.
bool Server::AnswerBytes(StreamLine& line)
{
    std::vector<std::uint8_t>& bytes = line.Bytes();
    if (IsSerial(line) && beside.bootLoader != nullptr) {
        auto reply = beside.bootLoader->Take(std::exchange(bytes, {}), NowMs());
        return SendOrWait(line, injector.ApplyToBytes(std::move(reply)));
    }
    if (beside.devices == nullptr)
        return true;
    const auto skipped = line.Finder().TakeSkipped();
    bytes.insert(bytes.end(), skipped.begin(), skipped.end());
    for (std::vector<std::uint8_t>& answer : beside.devices->Answer(bytes))
        if (!SendOrWait(line, injector.ApplyToBytes(std::move(answer))))
            return false;
    return true;
}

void Server::KeepUpBootLoader(Clock::time_point now)
{
    if (beside.bootLoader == nullptr || now < Clock::time_point(milliseconds(beside.bootLoader->DueMs())))
        return;
    const auto line = std::ranges::find(lines, serialLine, &StreamLine::Get);
    if (line == lines.end())
        return;
    const bool asking = beside.bootLoader->IsAsking();
    auto bytes = beside.bootLoader->KeepUp(NowMs());
    // A host that comes later finds one question, the latest.
    if (asking && !bytes.empty())
        ::tcflush(endpoints.serialDevice.Get(), TCIFLUSH);
    SendOrWait(*line, injector.ApplyToBytes(std::move(bytes))); // a broken line is noticed at its next event
}

void Server::SettleSilentLines(Clock::time_point now)
{
    for (StreamLine& line : lines) {
        while (line.IsWaiting() && now - line.LastInput() >= kPartTimeout) {
            line.Finder().GiveUp();
            if (!AnswerFrames(line))
                break; // a broken line is noticed at its next event
        }
    }
}

bool Server::Reply(StreamLine& line, std::vector<std::uint8_t> reply)
{
    return SendOrWait(line, injector.Apply(std::move(reply)));
}

bool Server::SendOrWait(StreamLine& line, std::vector<std::uint8_t> reply)
{
    if (reply.empty() || (IsSerial(line) && line.Unsent() > kMostUnsent))
        return true;
    if (settings.delay.count() == 0)
        return line.Send(reply);
    waiting.push_back({Clock::now() + settings.delay, {std::move(reply), {}}, line.Number()});
    return true;
}

void Server::SendDue(Clock::time_point now)
{
    for (; !waiting.empty() && waiting.front().due <= now; waiting.pop_front()) {
        Waiting& first = waiting.front();
        if (first.line == 0) {
            outgoing.push_back(std::move(first.reply));
            continue;
        }
        const auto line = std::ranges::find(lines, first.line, &StreamLine::Number);
        if (line != lines.end())
            line->Send(first.reply.bytes); // a broken line is noticed at its next event
    }
    SendDatagrams(endpoints.udp.Get(), outgoing);
}

} // namespace vxsim
