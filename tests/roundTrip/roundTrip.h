// Exports called against the virtual sign, in one process and at one time: what comes back proves both halves at once.
#pragma once

#include "support/scriptedSign.h"
#include "support/signFixture.h"

namespace vxsign::test {

class RoundTrip : public StageTest
{
protected:
    RoundTrip()
    {
        line.raw = [this](const Packet& request) { return Answer(request); };
    }

    /// Milliseconds since the test began: the time of both.
    std::uint64_t Now() const { return FakeClock::NowMs() - startMs; }

    std::deque<Bytes> Answer(const Packet& request)
    {
        arrival.nowMs = Now();
        return {sign->Answer(request.bytes, arrival)};
    }

    /// Tells the sign of its condition and waits until it has looked.
    void Tell(const std::string& lines)
    {
        FakeClock::Advance(1000);
        SignTest::Tell(Now(), lines);
    }

    const FakeClock clock;
    const std::uint64_t startMs = FakeClock::NowMs();
    ScriptedSign line;
    TempFolder local; // of the host
};

} // namespace vxsign::test
