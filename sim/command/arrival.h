// When a request came, and from where.
#pragma once

#include <cstdint>

namespace vxsim {

struct Arrival
{
    std::uint64_t nowMs = 0; // of any steady clock
    std::uint32_t host = 0;  // IPv4 address of the host, first octet in the top byte; 0 for a serial line
    std::uint64_t line = 0;  // tells programs of one host apart: their UDP port, or the number of their connection
};

} // namespace vxsim
