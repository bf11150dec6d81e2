// The sign's time, divided among its hosts.
#pragma once

#include "sim/server/streamLine.h"

#include <cstdint>
#include <map>

namespace vxsim {

// What each host has had of the present turn of the loop. One that has had its share waits for the next turn, behind
// everybody else: so a host waits for no more than a share, and what was begun in it, of each other one.
class Shares
{
public:
    void BeginTurn() { used.clear(); }

    bool IsLeft(std::uint32_t host) const
    {
        const auto found = used.find(host);
        return found == used.end() || found->second < kShare;
    }

    // From the making of it to its end a host has the sign.
    class Spending
    {
    public:
        Spending(Shares& of, std::uint32_t by) : spent(of.used[by]) {}
        ~Spending() { spent += Clock::now() - begin; }
        Spending(const Spending&) = delete;
        Spending& operator=(const Spending&) = delete;

    private:
        Clock::duration& spent;
        const Clock::time_point begin = Clock::now();
    };

private:
    static constexpr std::chrono::milliseconds kShare{2};

    std::map<std::uint32_t, Clock::duration> used;
};

} // namespace vxsim
