// All lines of a sign.
#pragma once

#include "sim/devices/bootLoader.h"
#include "sim/devices/modbusDevices.h"
#include "sim/server/answers.h"
#include "sim/server/endpoints.h"
#include "sim/server/faults.h"
#include "sim/server/inbox.h"
#include "sim/server/loop.h"
#include "sim/server/streamLine.h"
#include "sim/virtualSign.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <optional>
#include <utility>
#include <vector>

namespace vxsim {

// The time that requests arrive at and the face is drawn for: milliseconds of the steady clock.
std::uint64_t NowMs();

struct ServerSettings
{
    std::chrono::milliseconds delay{0}; // from a request to its reply
    FaultSettings faults;
    std::chrono::milliseconds idle{30000}; // silence after which a connection makes room for a new one
};

// How the lines are treated, all of them alike.
struct LineSettings
{
    FaultSettings faults;
    std::chrono::milliseconds delay{0}; // from a request to its reply
    bool unplugged = false;             // silence on all lines

    bool operator==(const LineSettings&) const = default;
};

// What has its place on the sign's lines too. Each may be missing.
struct Beside
{
    BootLoader* bootLoader = nullptr;   // has the serial line for itself
    ModbusDevices* devices = nullptr;   // on the serial line, told apart by address, function and checksum,
    Endpoints* modbusRtuPort = nullptr; // and on ports of their own, one for each form of their requests
    Endpoints* modbusTcpPort = nullptr;
};

// Carries requests from the endpoints to the sign and the replies back, when it has its turn in the loop. A stream may
// bring requests in pieces and several at once; a datagram is exactly one request.
class Server
{
public:
    // Throws std::system_error if the lines cannot be watched.
    Server(Loop& loop, Endpoints& endpoints, SignAt sign, const ServerSettings& settings, const Beside& beside = {});
    ~Server() { loop.Leave(number); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Calls `tick` from the loop, first at once and then whenever the time is over, for a face that is redrawn.
    void OnTick(std::chrono::milliseconds every, std::function<void()> tick);

    // The same tick at another pace from now on.
    void TickEvery(std::chrono::milliseconds every);

    // The next tick no later than that.
    void TickBy(Clock::time_point when);

    // Calls `serve` from the loop whenever the descriptor can be read.
    void Watch(int descriptor, std::function<void()> serve) { loop.Watch(descriptor, std::move(serve)); }

    // Told of each request after the sign has answered it.
    void Observe(std::function<void(const Carried&)> observer) { answers.Observe(std::move(observer)); }

    LineSettings Line();

    // Holds at once, for replies that wait too.
    void Use(const LineSettings& line);

private:
    friend class Loop;

    // Silence after which the rest of a broken request is no longer expected.
    static constexpr std::chrono::milliseconds kPartTimeout{200};

    // Where hosts reach us by datagrams and connections.
    struct Port
    {
        Endpoints* at;
        Speech speech;
        std::vector<Datagram> outgoing = {};
        std::uint32_t udpWatched = 0; // what the loop waits for
        std::uint32_t tcpWatched = 0;
    };

    // A reply that waits for its time, and where it leaves: by a port as a datagram, or by a line.
    struct Waiting
    {
        Clock::time_point due;
        Datagram reply;
        std::uint64_t line = 0;
        Port* port = nullptr;
    };

    // From the loop: what can be done at a line, all that is to be done, whether something is left, and when it has to
    // have a turn without being asked. A turn gives whether the hosts that it is for had any time left.
    void Note(int descriptor, std::uint32_t events) { noted.emplace_back(descriptor, events); }
    bool Turn();
    bool HasWork() const;
    Clock::time_point Due() const;

    std::uint32_t Noted(int descriptor) const;
    void WatchLines();
    void WatchFor(std::uint32_t events, int descriptor, std::uint32_t& watched);
    void Accept(Port& port);
    void ServeDatagrams();
    void ServeLines();
    bool ServeLine(StreamLine& line, std::uint32_t events);
    bool AnswerLine(StreamLine& line);
    void KeepUpBootLoader(Clock::time_point now);
    void SettleSilentLines(Clock::time_point now);
    bool SendOrWait(StreamLine& line, Replies replies);
    void SendDue(Clock::time_point now);
    bool IsSerial(const StreamLine& line) const { return line.Get() == serialLine; }
    bool IsFull() const;
    bool CanServe(const StreamLine& line) const;
    std::list<StreamLine>::const_iterator Quietest(std::optional<std::uint32_t> host) const;
    bool MakeRoomFor(std::uint32_t host);

    Loop& loop;
    std::uint32_t number; // in the loop
    Endpoints& endpoints;
    std::vector<Port> ports; // all of them from the start on
    ServerSettings settings;
    Beside beside;
    Answers answers;
    std::list<StreamLine> lines;
    std::uint64_t lastNumber = 0;
    int serialLine = -1;
    std::deque<Waiting> waiting;                      // in the order of their time, as the delay is the same for all
    std::vector<std::pair<int, std::uint32_t>> noted; // descriptors, and what can be done there in this turn
    Inbox inbox;
    bool served = false;                                     // something, in this turn
    Clock::time_point acceptFrom = Clock::time_point::min(); // later where descriptors are short
    std::chrono::milliseconds tickEvery{0};
    std::function<void()> tick;
    Clock::time_point nextTick{};
};

} // namespace vxsim
