#include "sim/server/server.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <system_error>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kMostWaiting = 1024;
constexpr std::size_t kMostUnsent = 65536; // on the serial line, which nobody may be reading

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

bool Server::HasWork() const
{
    return (!inbox.IsEmpty() && !IsFull()) ||
           std::ranges::any_of(lines, [this](const StreamLine& line) { return line.IsPending() && CanServe(line); });
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
