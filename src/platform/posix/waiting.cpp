// Waiting with poll, which goes on behind a signal.
#include "platform/posix/waiting.h"

#include "platform/clock.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <poll.h>

namespace vxsign::platform {

bool WaitReady(int descriptor, short events, std::uint32_t timeoutMs)
{
    constexpr std::uint64_t kLongest = std::numeric_limits<int>::max();
    // The clock drops parts of a millisecond; behind a signal no wait becomes shorter for that.
    const std::uint64_t end = kSystemClock.monotonicMs() + timeoutMs + 1;
    std::uint64_t left = timeoutMs;
    pollfd waiting{descriptor, events, 0};
    while (true) {
        const int ready = ::poll(&waiting, 1, static_cast<int>(std::min(left, kLongest)));
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
        const std::uint64_t now = kSystemClock.monotonicMs();
        left = now < end ? end - now : 0;
    }
}

} // namespace vxsign::platform
