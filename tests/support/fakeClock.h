// A clock in the place of the library's.
#pragma once

#include "platform/clock.h"

#include <atomic>
#include <cstdint>

namespace vxsign::test {

/// Takes the place of the library's clock until it goes out of scope. Time stands still but for Advance and sleeps,
/// which return at once. One at a time.
class FakeClock
{
public:
    FakeClock() : former(platform::clock)
    {
        nowMs += kAheadMs;
        sleptMs = 0;
        local = {2020, 5, 13, 10, 20, 30, 3};
        platform::clock = {Now, Sleep, Local};
    }
    ~FakeClock() { platform::clock = former; }
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    static void Advance(std::uint64_t ms) { nowMs += ms; }
    static std::uint64_t NowMs() { return nowMs; }
    /// How long was slept in all.
    static std::uint64_t SleptMs() { return sleptMs; }
    static void SetLocalTime(const platform::LocalTime& time) { local = time; }

private:
    // Time starts later than any real clock and never goes back, so that what the library remembers of a clock before
    // this one lies in the past.
    static constexpr std::uint64_t kStartMs = 1'000'000'000'000;
    static constexpr std::uint64_t kAheadMs = 1'000'000;

    static std::uint64_t Now() { return nowMs; }
    static void Sleep(std::uint32_t ms)
    {
        sleptMs += ms;
        nowMs += ms;
    }
    static platform::LocalTime Local() { return local; }

    inline static std::atomic<std::uint64_t> nowMs = kStartMs;
    inline static std::atomic<std::uint64_t> sleptMs;
    inline static platform::LocalTime local;
    const platform::Clock former;
};

} // namespace vxsign::test
