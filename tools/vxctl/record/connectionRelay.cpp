// A relay over TCP: a connection here is one there.
#include "vxctl/record/loopback.h"
#include "vxctl/record/relay.h"

#include "vxctl/cli/interrupt.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <list>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace vxctl {

namespace {

constexpr int kGlanceMs = 20;         // at Ctrl-C
constexpr int kLaterPatienceMs = 200; // with a sign that has not been there so far

void PutSegment(RecordedLine& line, Way way, Recording::Time time, RecordedLine::Bytes bytes)
{
    line.Segment(way, time, kTcpPush | kTcpAcknowledge, bytes);
}

void SendAtOnce(int socket)
{
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// The end of the line that is closed with a reset.
void Reset(Descriptor& socket)
{
    const linger now{1, 0};
    ::setsockopt(socket.Get(), SOL_SOCKET, SO_LINGER, &now, sizeof now);
    socket.Close();
}

class Connection
{
public:
    using Time = Recording::Time;

    Connection(Descriptor library, Descriptor sign, RecordedLine recorded)
        : down(std::move(library)), up(std::move(sign)), line(recorded)
    {
        const Time now = std::chrono::system_clock::now();
        line.Segment(Way::kOut, now, kTcpSyn);
        if (!up) {
            line.Segment(Way::kIn, now, kTcpReset | kTcpAcknowledge);
            Reset(down);
            return;
        }
        line.Segment(Way::kIn, now, kTcpSyn | kTcpAcknowledge);
        line.Segment(Way::kOut, now, kTcpAcknowledge);
        SendAtOnce(down.Get());
    }

    int Down() const { return down.Get(); }
    int Up() const { return up.Get(); }
    bool IsOver() const { return !down; }

    // Gives what came from the library, and ends with it.
    std::vector<std::uint8_t> FromLibrary()
    {
        std::vector<std::uint8_t> bytes = Take(down, out);
        if (bytes.empty() && errno != EAGAIN)
            Close();
        return bytes;
    }

    // What came from the sign. At its end the library is told so, and still heard.
    std::vector<std::uint8_t> FromSign()
    {
        std::vector<std::uint8_t> bytes = Take(up, in);
        if (bytes.empty() && errno == 0) {
            End(in, Way::kIn, kTcpFin | kTcpAcknowledge);
            ::shutdown(down.Get(), SHUT_WR);
            signHasEnded = true;
        } else if (bytes.empty() && errno != EAGAIN) {
            End(in, Way::kIn, kTcpReset | kTcpAcknowledge);
            Reset(down);
        }
        return bytes;
    }

    bool HasSignEnded() const { return signHasEnded; }

    void Close()
    {
        if (IsOver())
            return;
        End(in, Way::kIn, 0);
        End(out, Way::kOut, kTcpFin | kTcpAcknowledge);
        ::shutdown(up.Get(), SHUT_WR);
        up.Close();
        down.Close();
    }

    void Rest()
    {
        in.Rest(line);
        out.Rest(line);
    }

private:
    std::vector<std::uint8_t> Take(const Descriptor& from, RecordedStream& stream)
    {
        errno = 0;
        std::vector<std::uint8_t> bytes = TakeBytes(from.Get());
        if (!bytes.empty())
            stream.Add(line, bytes);
        return bytes;
    }

    void End(RecordedStream& stream, Way way, std::uint8_t flags)
    {
        stream.End(line);
        if (flags != 0)
            line.Segment(way, std::chrono::system_clock::now(), flags);
    }

    Descriptor down; // the library's
    Descriptor up;   // the sign's
    RecordedLine line;
    RecordedStream out{Way::kOut, PutSegment};
    RecordedStream in{Way::kIn, PutSegment};
    bool signHasEnded = false;
};

class ConnectionRelay : public Relay
{
public:
    ConnectionRelay(const SignUrl& url, int patience, Recording& recording, std::uint32_t number)
        : to(recording), line(number), patienceMs(patience), sign(EndpointOf(url)),
          front(BoundSocket(SOCK_STREAM, INADDR_LOOPBACK))
    {
        place = url;
        place.host = "127.0.0.1";
        place.port = LocalEnd(front.Get()).port;
        ListenOnceThere(patienceMs);
        Begin();
    }
    ~ConnectionRelay() override { End(); }

private:
    // A sign that refuses is one for the library too: as long as it was never reached nothing listens here. The
    // connection that showed that it is there becomes the library's first one.
    void ListenOnceThere(int waitMs)
    {
        first = Connect(waitMs);
        isListening = static_cast<bool>(first) && ::listen(front.Get(), SOMAXCONN) == 0;
    }

    Descriptor Connect(int waitMs) const
    {
        Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        SendAtOnce(socket.Get());
        const sockaddr_in address = AddressOf(sign);
        if (::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return socket;
        if (errno != EINPROGRESS)
            return {};
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(waitMs);
        pollfd wait{socket.Get(), POLLOUT, 0};
        while (::poll(&wait, 1, kGlanceMs) < 1) {
            if (IsAborted() || IsEnding() || std::chrono::steady_clock::now() >= deadline)
                return {};
        }
        int error = 0;
        socklen_t size = sizeof error;
        ::getsockopt(socket.Get(), SOL_SOCKET, SO_ERROR, &error, &size);
        return error == 0 ? std::move(socket) : Descriptor();
    }

    std::vector<pollfd> Awaited() const override
    {
        std::vector<pollfd> all;
        for (const Connection& connection : connections) {
            all.push_back({connection.Down(), POLLIN, 0});
            all.push_back({connection.HasSignEnded() ? -1 : connection.Up(), POLLIN, 0});
        }
        if (isListening)
            all.push_back({front.Get(), POLLIN, 0});
        return all;
    }

    void Take(std::span<const pollfd> ready) override
    {
        std::size_t which = 0;
        for (Connection& connection : connections) {
            if (ready[which++].revents != 0)
                SendAll(connection.Up(), connection.FromLibrary());
            if (ready[which++].revents != 0 && !connection.IsOver())
                SendAll(connection.Down(), connection.FromSign());
        }
        connections.remove_if([](const Connection& connection) { return connection.IsOver(); });
        if (isListening && ready.back().revents != 0)
            Accept();
    }

    void Accept()
    {
        Descriptor library(::accept4(front.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!library)
            return;
        char byte = 0;
        if (first && ::recv(first.Get(), &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0)
            first.Close(); // the sign did not wait for the library
        Descriptor towards = first ? std::move(first) : Connect(patienceMs);
        const Endpoint host = towards ? LocalEnd(towards.Get()) : Endpoint{HostTowards(sign), kUnknownPort};
        connections.emplace_back(std::move(library), std::move(towards), RecordedLine(to, line, host, sign));
    }

    void Idle() override
    {
        for (Connection& connection : connections)
            connection.Rest();
        if (!isListening)
            ListenOnceThere(kLaterPatienceMs);
    }

    void Finish() override
    {
        for (Connection& connection : connections)
            connection.Close();
    }

    static constexpr std::uint16_t kUnknownPort = 1; // of this PC, in a connection that never was

    Recording& to;
    std::uint32_t line;
    int patienceMs;
    Endpoint sign;
    Descriptor front;
    Descriptor first;
    bool isListening = false;
    std::list<Connection> connections;
};

} // namespace

std::unique_ptr<Relay> MakeConnectionRelay(const SignUrl& sign, int patienceMs, Recording& recording,
                                           std::uint32_t line)
{
    return std::make_unique<ConnectionRelay>(sign, patienceMs, recording, line);
}

} // namespace vxctl
