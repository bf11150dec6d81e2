#include "sim/server/server.h"

#include <algorithm>
#include <sys/epoll.h>
#include <system_error>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMostWaiting = 1024;
constexpr std::size_t kMostUnsent = 65536; // on the serial line, which nobody may be reading

} // namespace

std::uint64_t NowMs()
{
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<milliseconds>(Clock::now().time_since_epoch()).count());
}

Server::Server(Loop& of, Endpoints& where, SignAt sign, const ServerSettings& how, const Beside& others)
    : loop(of), number(loop.Join(*this)), endpoints(where), ports{{&where, Speech::kPackets}}, settings(how),
      beside(others), answers(std::move(sign), others.bootLoader, others.devices, how.faults), inbox(loop.crowd)
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
    WatchLines();
    loop.Reschedule(number);
}

void Server::OnTick(milliseconds every, std::function<void()> call)
{
    tickEvery = every;
    tick = std::move(call);
    TickBy(nextTick = Clock::now());
}

void Server::TickEvery(milliseconds every)
{
    tickEvery = every;
    TickBy(Clock::now() + every);
}

void Server::TickBy(Clock::time_point when)
{
    nextTick = std::min(nextTick, when);
    loop.Reschedule(number);
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
    loop.Reschedule(number);
}

bool Server::Turn()
{
    served = false;
    for (std::size_t i = 0; i < ports.size(); ++i)
        if (Noted(ports[i].at->udp.Get()) != 0)
            inbox.Read(loop.datagrams, ports[i].at->udp.Get(), i);
    ServeDatagrams();
    ServeLines();
    for (Port& port : ports)
        if (Noted(port.at->tcp.Get()) != 0)
            Accept(port);
    const auto now = Clock::now();
    SendDue(now);
    SettleSilentLines(now);
    KeepUpBootLoader(now);
    if (tick && now >= nextTick) {
        nextTick = now + tickEvery;
        tick();
    }
    noted.clear();
    WatchLines();
    return served;
}

std::uint32_t Server::Noted(int descriptor) const
{
    const auto found = std::ranges::find(noted, descriptor, &std::pair<int, std::uint32_t>::first);
    return found != noted.end() ? found->second : 0;
}

bool Server::IsFull() const
{
    return waiting.size() >= kMostWaiting;
}

bool Server::HasWork() const
{
    return (!inbox.IsEmpty() && !IsFull()) ||
           std::ranges::any_of(lines, [this](const StreamLine& line) { return line.IsPending() && CanServe(line); });
}

void Server::WatchFor(std::uint32_t events, int descriptor, std::uint32_t& watched)
{
    constexpr std::uint32_t kKnown = 1U << 31; // to the loop
    if (watched == (events | kKnown))
        return;
    if ((watched & kKnown) == 0)
        loop.Add(number, descriptor, events);
    else
        loop.Change(number, descriptor, events);
    watched = events | kKnown;
}

void Server::WatchLines()
{
    const bool accepts = acceptFrom <= Clock::now();
    for (Port& port : ports) {
        WatchFor(IsFull() ? 0U : EPOLLIN, port.at->udp.Get(), port.udpWatched);
        WatchFor(accepts ? EPOLLIN : 0U, port.at->tcp.Get(), port.tcpWatched);
    }
    for (StreamLine& line : lines) {
        const bool reads = CanServe(line) && !line.IsPending();
        WatchFor((line.HasUnsent() ? EPOLLOUT : 0U) | (reads ? EPOLLIN : 0U), line.Get(), line.watched);
    }
}

Clock::time_point Server::Due() const
{
    auto until = Clock::time_point::max();
    if (!waiting.empty())
        until = waiting.front().due;
    if (tick)
        until = std::min(until, nextTick);
    if (acceptFrom > Clock::now())
        until = std::min(until, acceptFrom);
    if (beside.bootLoader != nullptr)
        until = std::min(until, Clock::time_point(milliseconds(beside.bootLoader->DueMs())));
    for (const StreamLine& line : lines) {
        if (line.IsWaiting() && !line.IsPending())
            until = std::min(until, line.LastInput() + kPartTimeout);
    }
    return until;
}

void Server::ServeDatagrams()
{
    served |= inbox.Serve(loop.shares, [this](std::size_t index, const Datagram& request) {
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
