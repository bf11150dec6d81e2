// Codes of the traffic signal controller's error log in words.
#pragma once

#include <cstdint>
#include <string>

namespace vxsign {

/// What a code of the traffic signal controller's error log says.
struct TrafficError
{
    std::uint32_t level = 0; // 0, and no text, for a code that is not known
    std::string text;        // may hold control characters, and zeros
};

TrafficError DescribeTrafficError(std::uint16_t code);

} // namespace vxsign
