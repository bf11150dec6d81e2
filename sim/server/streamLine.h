// One stream: what has come, and what waits to go.
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

// What hosts speak at a place.
enum class Speech : std::uint8_t
{
    kPackets, // of the sign; on the serial line with Modbus RTU between them if there are devices
    kModbusRtu,
    kModbusTcp,
    kXmodem
};

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

    // From now on hosts speak this. What is no packets goes to Bytes, not to the finder.
    void Use(Speech other) { speech = other; }
    Speech Spoken() const { return speech; }
    // What devices beside the sign may still have to answer.
    std::vector<std::uint8_t>& Bytes() { return rawBytes; }

    // What has come has never come.
    void Forget();

    // Reads what is there into the finder. False if the other side has gone.
    bool Receive(Clock::time_point now);

    // Queues bytes and sends as many as the line takes. False if the line is broken.
    bool Send(std::span<const std::uint8_t> bytes);
    bool Flush() { return Send({}); }
    // Whether something has come that is not looked at yet.
    bool IsPending() const { return pending; }
    void SetPending(bool isPending) { pending = isPending; }
    bool HasUnsent() const { return !unsent.empty(); }
    std::size_t Unsent() const { return unsent.size(); }
    void DropUnsent() { unsent.clear(); }

    // What the loop waits for at this line; who changes it has to tell the loop.
    std::uint32_t watched = 0;

private:
    std::uint64_t number;
    Descriptor line;
    std::optional<std::uint32_t> peer;
    FrameFinder finder;
    Speech speech = Speech::kPackets;
    bool pending = false;
    std::vector<std::uint8_t> rawBytes;
    std::vector<std::uint8_t> unsent;
    Clock::time_point lastInput = Clock::now();
};

} // namespace vxsim
