// Waiting in slices, so that what stops the thread ends the wait.
#pragma once

#include "platform/clock.h"
#include "platform/stop.h"

#include <algorithm>

namespace vxsign::platform {

/// Lets `ready` wait, a slice of time after the other, until it gives true, timeoutMs are over or the thread is to
/// stop (platform/stop.h). It looks once in any case.
template <class Ready>
bool WaitInSlices(std::uint32_t timeoutMs, Ready ready)
{
    const std::uint64_t end = kSystemClock.monotonicMs() + timeoutMs;
    while (true) {
        const std::uint64_t now = kSystemClock.monotonicMs();
        const std::uint64_t left = now < end && !IsStopped() ? end - now : 0;
        if (ready(static_cast<std::uint32_t>(std::min<std::uint64_t>(left, kLookMs))))
            return true;
        if (left == 0)
            return false;
    }
}

} // namespace vxsign::platform
