// The clock of POSIX systems.
#include "platform/clock.h"

#include <cerrno>
#include <ctime>

namespace vxsign::platform {
namespace {

std::uint64_t MonotonicMs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

void SleepMs(std::uint32_t ms)
{
    timespec left{static_cast<std::time_t>(ms / 1000), static_cast<long>(ms % 1000) * 1'000'000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

LocalTime Now()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {static_cast<std::uint16_t>(local.tm_year + 1900), static_cast<std::uint8_t>(local.tm_mon + 1),
            static_cast<std::uint8_t>(local.tm_mday),         static_cast<std::uint8_t>(local.tm_hour),
            static_cast<std::uint8_t>(local.tm_min),          static_cast<std::uint8_t>(local.tm_sec),
            static_cast<std::uint8_t>(local.tm_wday)};
}

} // namespace

const Clock kSystemClock{MonotonicMs, SleepMs, Now};
Clock clock = kSystemClock;

} // namespace vxsign::platform
