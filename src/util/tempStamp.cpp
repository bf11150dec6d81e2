// Counts the clock on where it stands still.
#include "util/tempStamp.h"

#include "platform/clock.h"

#include <algorithm>
#include <atomic>

std::uint64_t vxsign::NextTempStamp()
{
    static std::atomic<std::uint64_t> last = 0;
    std::uint64_t before = last.load();
    std::uint64_t stamp = 0;
    do {
        stamp = std::max(before + 1, platform::clock.monotonicMs());
    } while (!last.compare_exchange_weak(before, stamp));
    return stamp;
}
