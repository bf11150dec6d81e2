// Exports for sleeping, DOS times and BCD times.
#include "platform/clock.h"
#include "util/littleEndian.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <cstdio>

using namespace vxsign;

namespace {

// What the seven bits of a DOS year can hold.
constexpr unsigned kFirstDosYear = 1980;
constexpr unsigned kLastDosYear = 2107;

} // namespace

void vxSleep(std::uint32_t ms)
{
    platform::clock.sleepMs(ms);
}

void vxGetDOSTime(std::uint16_t* date, std::uint16_t* time)
{
    if (date == nullptr || time == nullptr)
        return;
    const platform::LocalTime now = platform::clock.localTime();
    if (now.year < kFirstDosYear || now.year > kLastDosYear)
        return;
    *date = static_cast<std::uint16_t>((now.year - kFirstDosYear) << 9 | unsigned{now.month} << 5 | now.day);
    *time = static_cast<std::uint16_t>(unsigned{now.hour} << 11 | unsigned{now.minute} << 5 | now.second / 2u);
}

void vxGetDateTime(std::uint8_t* out)
{
    if (out == nullptr)
        return;
    const platform::LocalTime now = platform::clock.localTime();
    Store16(out, now.year);
    out[2] = now.month;
    out[3] = now.day;
    out[4] = now.hour;
    out[5] = now.minute;
    out[6] = now.second;
    out[7] = now.dayOfWeek;
}

std::uint32_t vxTM_DecodeDosTime(std::uint32_t dosDateTime, char* out, std::uint8_t outLength)
{
    if (out == nullptr || outLength == 0)
        return VX_OK;
    const unsigned date = dosDateTime & 0xFFFF;
    const unsigned time = dosDateTime >> 16;
    std::snprintf(out, outLength, "%u-%02u-%02u %02u:%02u:%02u", (date >> 9) + kFirstDosYear, date >> 5 & 0xF,
                  date & 0x1F, time >> 11, time >> 5 & 0x3F, (time & 0x1F) * 2);
    return VX_OK;
}

std::uint32_t vxSysUpTimeMS()
{
    return static_cast<std::uint32_t>(platform::clock.monotonicMs());
}

std::uint32_t vxSystemUpTimeSec()
{
    static const std::uint64_t start = platform::clock.monotonicMs();
    return static_cast<std::uint32_t>((platform::clock.monotonicMs() - start) / 1000);
}
