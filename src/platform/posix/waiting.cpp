// Waiting with poll, which goes on behind a signal, in slices.
#include "platform/posix/waiting.h"

#include "platform/clock.h"
#include "platform/stop.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>

namespace vxsign::platform {

bool WaitReady(int descriptor, short events, std::uint32_t timeoutMs)
{
    // The clock drops parts of a millisecond; behind a signal no wait becomes shorter for that.
    const std::uint64_t end = kSystemClock.monotonicMs() + timeoutMs + 1;
    std::uint64_t left = timeoutMs;
    pollfd waiting{descriptor, events, 0};
    while (true) {
        const std::uint64_t slice = IsStopped() ? 0 : std::min<std::uint64_t>(left, kLookMs);
        const int ready = ::poll(&waiting, 1, static_cast<int>(slice));
        if (ready > 0 || (ready < 0 && errno != EINTR))
            return ready > 0;
        if (ready == 0 && (slice == 0 || slice == left))
            return false;
        const std::uint64_t now = kSystemClock.monotonicMs();
        left = ready == 0 ? left - slice : now < end ? end - now : 0;
    }
}

} // namespace vxsign::platform
