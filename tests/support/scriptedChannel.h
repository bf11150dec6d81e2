// A channel without a line, whose bytes arrive at times of the fake clock.
#pragma once

#include "channels/VXCommBase.h"
#include "support/fakeClock.h"
#include "support/packets.h"

#include <functional>
#include <map>

namespace vxsign::test {

/// What comes back: pieces by the milliseconds from the request to them. No read takes two pieces.
using Arrivals = std::multimap<std::uint64_t, Bytes>;

class ScriptedChannel : public VXCommBase
{
public:
    explicit ScriptedChannel(std::function<Arrivals(const Packet& request)> answerRequest)
        : answer(std::move(answerRequest))
    {
    }

    bool Open(const Route& /*route*/, std::uint32_t /*timeoutMs*/) override { return true; }

    std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t /*timeoutMs*/) override
    {
        requests.push_back({Bytes(buffer, buffer + length)});
        for (auto& [delay, piece] : answer(requests.back()))
            arriving.emplace(FakeClock::NowMs() + delay, piece);
        return length;
    }

    /// Waits as a socket does: no longer than until the next piece. Looking without waiting takes time as well.
    std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) override
    {
        const std::uint64_t now = FakeClock::NowMs();
        if (gone)
            return 0;
        if (arriving.empty() || arriving.begin()->first > now + timeoutMs) {
            if (timeoutMs != 0 || ++looks % kLooksInAMs == 0)
                FakeClock::Advance(std::max(timeoutMs, 1u));
            return 0;
        }
        const auto next = arriving.begin();
        FakeClock::Advance(next->first > now ? next->first - now : 0);
        const std::size_t count = std::min<std::size_t>(next->second.size(), capacity);
        std::copy_n(next->second.begin(), count, buffer);
        next->second.erase(next->second.begin(), next->second.begin() + static_cast<std::ptrdiff_t>(count));
        if (next->second.empty())
            arriving.erase(next);
        return static_cast<std::uint32_t>(count);
    }

    void Close() override {}

    std::vector<Packet> requests;
    /// The far end has gone: no read waits any more.
    bool gone = false;
    /// Reads without waiting that found nothing.
    std::uint32_t looks = 0;

private:
    static constexpr std::uint32_t kLooksInAMs = 1000;

    std::function<Arrivals(const Packet&)> answer;
    Arrivals arriving;
};

} // namespace vxsign::test
