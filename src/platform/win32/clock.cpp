// The clock of Windows.
#include "platform/clock.h"

#include <windows.h>

namespace vxsign::platform {
namespace {

std::uint64_t MonotonicMs()
{
    return ::GetTickCount64();
}

void SleepMs(std::uint32_t ms)
{
    ::Sleep(ms);
}

LocalTime Now()
{
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    const auto byte = [](WORD value) { return static_cast<std::uint8_t>(value); };
    return {now.wYear,         byte(now.wMonth),  byte(now.wDay),      byte(now.wHour),
            byte(now.wMinute), byte(now.wSecond), byte(now.wDayOfWeek)};
}

} // namespace

const Clock kSystemClock{MonotonicMs, SleepMs, Now};
Clock clock = kSystemClock;

} // namespace vxsign::platform
