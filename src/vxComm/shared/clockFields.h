// The clock of signs and of traffic signal controllers, as it travels: in BCD, low digits of the year first.
#pragma once

#include "util/bcd.h"
#include "vxBaseCMD/fields.h"

#include <cstdint>

namespace vxsign {

/// The payload that sets a clock. What the last three stand for is the device's; the eighth goes as it is.
inline Fields<12> ClockFields(std::uint16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                              std::uint8_t minute, std::uint8_t sixth, std::uint8_t seventh, std::uint8_t eighth)
{
    return Fields<12>(ToBcd(year % 100u), ToBcd(year / 100u), ToBcd(month), ToBcd(day), ToBcd(hour), ToBcd(minute),
                      ToBcd(sixth), ToBcd(seventh), eighth);
}

/// The part of a reply that all clocks have alike.
inline void TakeClock(const ReplyView& reply, std::uint16_t& year, std::uint8_t& month, std::uint8_t& day,
                      std::uint8_t& hour, std::uint8_t& minute)
{
    year = static_cast<std::uint16_t>(FromBcd(reply.U8(1)) * 100 + FromBcd(reply.U8(0)));
    month = FromBcd(reply.U8(2));
    day = FromBcd(reply.U8(3));
    hour = FromBcd(reply.U8(4));
    minute = FromBcd(reply.U8(5));
}

} // namespace vxsign
