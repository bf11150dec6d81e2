// Asks signs how they are, and tells the broker.
#pragma once

#include "vxbridge/service/common.h"

#include <functional>
#include <memory>
#include <string>

namespace vxbridge {

class Poller
{
public:
    explicit Poller(const Common& parts) : common(parts), order(SignBoard::PollWords()) {}

    // Puts a poll into the sign's queue; one that waits already will do. `whenDone` runs when its turn was.
    void Begin(
        const std::shared_ptr<const vxctl::BookSign>& sign, std::function<void()> whenDone = [] {});

    // Asks it now, and gives its metrics; nothing when there is no such sign.
    std::optional<std::string> Probe(const std::string& name);

private:
    bool Poll(const vxctl::BookSign& sign);

    const Common& common;
    const vxctl::Order order;
};

} // namespace vxbridge
