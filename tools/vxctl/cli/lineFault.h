// Why there is no answer: the library knows only that there is none.
#pragma once

#include "vxctl/cli/session.h"

#include <string>

namespace vxctl {

struct LineFault
{
    std::string reason;
    std::string advice;
};

// What an error of the system says of the way to a place, such as "10.0.0.5:9520" or "/dev/ttyUSB9"; the reason is
// empty for an error that says nothing of it.
LineFault FaultOf(int systemError, const std::string& place);

// Looks at the line of the options with a socket or device of its own: it opens a TCP connection or a serial line and
// closes it, or sends an empty datagram, and waits so long at most for what a host or a router sends back. The reason
// is empty where nothing speaks against the line.
inline constexpr int kLookMs = 500;
LineFault LookAtLine(const Options& options, int waitMs = kLookMs);

// The same behind a failure: where nothing speaks against the line, the sign keeps silent.
LineFault FindLineFault(const Options& options, int waitMs = kLookMs);

} // namespace vxctl
