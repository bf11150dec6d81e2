// The loop that gives each sign its turn.
#pragma once

#include "sim/platform/descriptor.h"
#include "sim/server/inbox.h"
#include "sim/server/shares.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace vxsim {

class Server;

// Waits for all lines of all signs on one thread, and costs nothing for those that are silent. A sign has a turn when
// something has come for it or its time has come. Whoever waited for a share of their host's time goes ahead of those
// that had theirs, so that a host that overwhelms one sign reaches the others all the same.
class Loop
{
public:
    // Throws std::system_error if the system gives no way to wait.
    Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    // Calls `serve` from the loop whenever the descriptor can be read.
    void Watch(int descriptor, std::function<void()> serve);

    // Serves until the descriptor `stop` can be read. Throws std::system_error if the system refuses to wait.
    void Run(int stop);

private:
    friend class Server;

    using Number = std::uint32_t; // of a sign, or of what else is watched
    enum : Number
    {
        kStop,
        kAsked,
        kFirstSign
    };
    struct Seat
    {
        Server* server = nullptr;
        Clock::time_point due = Clock::time_point::max();
        bool isActive = false; // has something to do, and a place among `active`
    };

    Number Join(Server& server);
    void Leave(Number number);
    void Add(Number number, int descriptor, std::uint32_t events);
    void Change(Number number, int descriptor, std::uint32_t events);
    void Control(int operation, Number number, int descriptor, std::uint32_t events);

    // The time of that sign may have changed.
    void Reschedule(Number number);

    Seat& SeatOf(Number number) { return seats[number - kFirstSign]; }
    bool Wait(); // false if it is time to stop
    int TimeToWait() const;
    void Activate(Number number);
    void ActivateDue();
    void GiveTurns();

    Descriptor poller;
    std::vector<Seat> seats;
    std::vector<Number> active;
    std::set<std::pair<Clock::time_point, Number>> timers;
    Shares shares;
    DatagramReader datagrams; // for all of them
    Crowd crowd;
    std::function<void()> serveAsked;
};

} // namespace vxsim
