// Stands between the library and a sign and records what goes.
#pragma once

#include "vxctl/cli/options.h"
#include "vxctl/cli/signUrl.h"
#include "vxctl/record/recordedLine.h"

#include "sim/platform/descriptor.h"

#include <memory>
#include <poll.h>
#include <span>
#include <thread>
#include <vector>

namespace vxctl {

using vxsim::Descriptor;

// A thread that hands on whatever comes from either end, as it came, and records it. At its end it hands on what is
// still there.
class Relay
{
public:
    virtual ~Relay() = default;
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    // What the library takes for the sign.
    const SignUrl& Place() const { return place; }

protected:
    Relay();

    // What is waited for, and what is done with what came; some time without anything ends in Idle.
    virtual std::vector<pollfd> Awaited() const = 0;
    virtual void Take(std::span<const pollfd> ready) = 0;
    virtual void Idle() {}
    virtual void Finish() {}

    // The first statement behind all that the thread needs, and the first of the destructor of who has it.
    void Begin();
    void End();

    bool IsEnding() const;

    // Waits for room to write and writes all; false where the other end takes no more.
    bool SendAll(int to, std::span<const std::uint8_t> bytes) const;

    SignUrl place;

private:
    void Run();

    Descriptor ending; // becomes readable
    Descriptor bell;   // its other end
    std::jthread thread;
};

// For a sign whose place has been resolved. Null where there is nothing to record to, and where the line cannot be
// opened: the library then finds that out by itself. Throws SignFailure where this PC has no room for it.
std::unique_ptr<Relay> MakeRelay(const SignUrl& sign, const Options& options);

std::unique_ptr<Relay> MakeDatagramRelay(const SignUrl& sign, Recording& recording, std::uint32_t line);
std::unique_ptr<Relay> MakeConnectionRelay(const SignUrl& sign, int patienceMs, Recording& recording,
                                           std::uint32_t line);
std::unique_ptr<Relay> MakeSerialRelay(const SignUrl& sign, Recording& recording);

// The bytes that have come; empty at the end of a stream, and where nothing has.
std::vector<std::uint8_t> TakeBytes(int from);

} // namespace vxctl
