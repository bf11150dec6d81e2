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
    pollfd waiting{descriptor, events, 0};
    int ready = ::poll(&waiting, 1, static_cast<int>(std::min<std::uint64_t>(timeoutMs, kLongest)));
    if (ready >= 0 || errno != EINTR)
        return ready > 0;

    const std::uint64_t end = kSystemClock.monotonicMs() + timeoutMs;
    do {
        const std::uint64_t now = kSystemClock.monotonicMs();
        ready = ::poll(&waiting, 1, now < end ? static_cast<int>(std::min(end - now, kLongest)) : 0);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace vxsign::platform
