// The numbers that video processors and boards take, as arguments.
#pragma once

#include "vxctl/cli/argument.h"

#include <limits>

namespace vxctl {

inline constexpr std::uint32_t kLastByte = std::numeric_limits<std::uint8_t>::max();

constexpr Argument Byte(std::string_view name, std::string_view help)
{
    return Number(name, 0, kLastByte, help);
}

constexpr Argument Word(std::string_view name, std::string_view help)
{
    return Number(name, 0, std::numeric_limits<std::uint16_t>::max(), help);
}

} // namespace vxctl
