// From what came in to what goes out.
#pragma once

#include "sim/devices/bootLoader.h"
#include "sim/devices/modbusDevices.h"
#include "sim/server/faults.h"
#include "sim/server/shares.h"
#include "sim/server/streamLine.h"
#include "sim/virtualSign.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace vxsim {

using Replies = std::vector<std::vector<std::uint8_t>>; // none of them empty

// What has gone over a line: a request of a host and what went out for it, which is nothing where `reply` is empty.
struct Carried
{
    const Arrival& arrival;
    std::span<const std::uint8_t> request;
    std::span<const std::uint8_t> reply;
    std::chrono::nanoseconds took; // by the sign, to answer
};

// The sign at that time, for requests that have come. It may be made only then; null if it cannot, and then it is
// silent.
using SignAt = std::function<VirtualSign*(std::uint64_t nowMs)>;

// What goes out for what comes in, whoever it is for, with the faults of the line done to it. Boot loader and devices
// may be missing where nobody speaks to them.
class Answers
{
public:
    Answers(SignAt of, BootLoader* boot, ModbusDevices* others, const FaultSettings& faults)
        : signAt(std::move(of)), bootLoader(boot), devices(others), injector(faults)
    {
    }

    // Told of each request after the sign has answered it.
    void Observe(std::function<void(const Carried&)> observer) { tell = std::move(observer); }

    FaultInjector& Faults() { return injector; }

    // Without its line the sign hears nothing and says nothing.
    void Unplug(bool isUnplugged) { unplugged = isUnplugged; }
    bool IsUnplugged() const { return unplugged; }

    Replies ToDatagram(Speech speech, std::span<const std::uint8_t> request, const Arrival& arrival);

    // To what the line has received, as long as its host has time left; the line is pending while something is left
    // over. Nothing if it makes no sense to go on with that line.
    std::optional<Replies> ToLine(StreamLine& line, std::uint64_t nowMs, Shares& shares);

    // What the boot loader says of itself.
    Replies OfBootLoader(std::uint64_t nowMs);

private:
    template <typename Request>
    void AnswerPacket(const Request& request, std::span<const std::uint8_t> bytes, const Arrival& arrival,
                      Replies& replies);
    bool AnswerModbus(Speech speech, std::vector<std::uint8_t>& bytes, std::uint64_t nowMs, Replies& replies);
    void AddBytes(std::vector<std::uint8_t> reply, Replies& replies);

    SignAt signAt;
    BootLoader* bootLoader;
    ModbusDevices* devices;
    FaultInjector injector;
    std::function<void(const Carried&)> tell;
    bool unplugged = false;
};

} // namespace vxsim
