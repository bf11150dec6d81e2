#pragma once

#include "sim/platform/descriptor.h"
#include "sim/protocol/frameFinder.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

using Clock = std::chrono::steady_clock;

// A line that carries a stream: a TCP connection or our side of the pseudo-terminal.
class StreamLine
{
public:
    // `peer` is the IPv4 address at the other end of a connection; without one the line is no socket.
    StreamLine(std::uint64_t number, Descriptor line, std::optional<std::uint32_t> peer);

    std::uint64_t Number() const { return number; } // tells the lines apart for good
    int Get() const { return line.Get(); }
    std::uint32_t Host() const { return peer.value_or(0); }
    FrameFinder& Finder() { return finder; }
    bool IsWaiting() const { return finder.IsWaiting(); }
    Clock::time_point LastInput() const { return lastInput; }

    // From now on what comes in is no packets of the sign: it goes to Bytes, not to the finder.
    void UseBytes() { usesBytes = true; }
    bool IsBytes() const { return usesBytes; }
    // What devices beside the sign may still have to answer.
    std::vector<std::uint8_t>& Bytes() { return rawBytes; }

    // Reads what is there into the finder. False if the other side has gone.
    bool Receive(Clock::time_point now);

    // Queues bytes and sends as many as the line takes. False if the line is broken.
    bool Send(std::span<const std::uint8_t> bytes);
    bool Flush() { return Send({}); }
    bool HasUnsent() const { return !unsent.empty(); }
    std::size_t Unsent() const { return unsent.size(); }
    void DropUnsent() { unsent.clear(); }

private:
    std::uint64_t number;
    Descriptor line;
    std::optional<std::uint32_t> peer;
    FrameFinder finder;
    bool usesBytes = false;
    std::vector<std::uint8_t> rawBytes;
    std::vector<std::uint8_t> unsent;
    Clock::time_point lastInput{};
};

} // namespace vxsim
