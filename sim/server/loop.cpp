#include "sim/server/loop.h"

#include "sim/server/server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <sys/epoll.h>
#include <system_error>

namespace vxsim {
namespace {

constexpr std::size_t kMostEvents = 256; // at a time
constexpr int kMostDue = 8;              // signs that have a turn of their own, likewise
constexpr unsigned kNumberShift = 32;

} // namespace

Loop::Loop() : poller(::epoll_create1(EPOLL_CLOEXEC))
{
    if (!poller)
        throw std::system_error(errno, std::generic_category(), "cannot wait for requests");
}

Loop::Number Loop::Join(Server& server)
{
    seats.push_back({&server});
    return static_cast<Number>(kFirstSign + seats.size() - 1);
}

void Loop::Leave(Number number)
{
    Seat& seat = SeatOf(number);
    timers.erase({seat.due, number});
    seat = {};
}

void Loop::Control(int operation, Number number, int descriptor, std::uint32_t events)
{
    epoll_event event = {};
    event.events = events;
    event.data.u64 = std::uint64_t{number} << kNumberShift | static_cast<std::uint32_t>(descriptor);
    if (::epoll_ctl(poller.Get(), operation, descriptor, &event) != 0)
        throw std::system_error(errno, std::generic_category(), "cannot watch a line");
}

void Loop::Add(Number number, int descriptor, std::uint32_t events)
{
    Control(EPOLL_CTL_ADD, number, descriptor, events);
}

void Loop::Change(Number number, int descriptor, std::uint32_t events)
{
    Control(EPOLL_CTL_MOD, number, descriptor, events);
}

void Loop::Watch(int descriptor, std::function<void()> serve)
{
    serveAsked = std::move(serve);
    Add(kAsked, descriptor, EPOLLIN);
}

void Loop::Run(int stop)
{
    Add(kStop, stop, EPOLLIN);
    while (Wait()) {
        ActivateDue();
        GiveTurns();
    }
}

// Not all at once where many are due: hosts come in between.
void Loop::ActivateDue()
{
    const auto now = Clock::now();
    for (int i = 0; i < kMostDue && !timers.empty() && timers.begin()->first <= now; ++i) {
        const Number number = timers.begin()->second;
        SeatOf(number).due = Clock::time_point::max();
        timers.erase(timers.begin());
        Activate(number);
    }
}

bool Loop::Wait()
{
    std::array<epoll_event, kMostEvents> events; // filled by the call
    const int count = ::epoll_wait(poller.Get(), events.data(), static_cast<int>(events.size()), TimeToWait());
    if (count < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "cannot wait for requests");
    bool isAsked = false;
    for (int i = 0; i < count; ++i) {
        const epoll_event& event = events[static_cast<std::size_t>(i)];
        const auto number = static_cast<Number>(event.data.u64 >> kNumberShift);
        if (number == kStop)
            return false;
        isAsked |= number == kAsked;
        if (number < kFirstSign || SeatOf(number).server == nullptr)
            continue;
        SeatOf(number).server->Note(static_cast<int>(event.data.u64 & UINT32_MAX), event.events);
        Activate(number);
    }
    if (isAsked)
        serveAsked();
    return true;
}

int Loop::TimeToWait() const
{
    if (!active.empty())
        return 0;
    if (timers.empty())
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(timers.begin()->first - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

void Loop::Activate(Number number)
{
    if (!std::exchange(SeatOf(number).isActive, true))
        active.push_back(number);
}

void Loop::Reschedule(Number number)
{
    Seat& seat = SeatOf(number);
    const auto due = seat.server->Due();
    if (due == seat.due)
        return;
    timers.erase({seat.due, number});
    seat.due = due;
    if (due != Clock::time_point::max())
        timers.emplace(due, number);
}

void Loop::GiveTurns()
{
    shares.BeginTurn();
    std::vector<Number> served;
    std::vector<Number> present;
    present.swap(active);
    for (const Number number : present) {
        Seat& seat = SeatOf(number);
        seat.isActive = false;
        if (seat.server == nullptr)
            continue;
        const bool hadShare = seat.server->Turn();
        seat.isActive = seat.server->HasWork();
        if (seat.isActive)
            (hadShare ? served : active).push_back(number);
        Reschedule(number);
    }
    active.insert(active.end(), served.begin(), served.end());
}

} // namespace vxsim
