#pragma once

#include "sim/protocol/frame.h"

#include <cstdint>
#include <string_view>

namespace vxsim {

// What a command is called, such as "brightness"; the name of its family if the minor is none of it, and "unknown"
// for a major that is none.
std::string_view CommandName(std::uint8_t major, std::uint8_t minor);

// The name of a request, which its payload may have a part in.
std::string_view CommandName(const Frame& request);

} // namespace vxsim
