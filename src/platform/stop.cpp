// Looks at the word that stops a thread.
#include "platform/stop.h"

#include "platform/clock.h"

#include <algorithm>
#include <atomic>

namespace vxsign::platform {
namespace {

thread_local std::uint32_t* stopWord = nullptr;

} // namespace

void StopBy(std::uint32_t* word)
{
    stopWord = word;
}

bool IsStopped()
{
    return stopWord != nullptr && std::atomic_ref(*stopWord).load(std::memory_order_relaxed) != 0;
}

void Rest(std::uint32_t ms)
{
    while (ms != 0 && !IsStopped()) {
        const std::uint32_t slice = std::min(ms, kLookMs);
        clock.sleepMs(slice);
        ms -= slice;
    }
}

} // namespace vxsign::platform
