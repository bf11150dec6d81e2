// Sockets of relays.
#pragma once

#include "vxctl/cli/signUrl.h"
#include "vxctl/record/recordedLine.h"
#include "vxctl/record/relay.h"

#include <netinet/in.h>

namespace vxctl {

sockaddr_in AddressOf(const Endpoint& end);
Endpoint EndpointOf(const SignUrl& sign);

// Where a socket of this PC is. Of one that is bound to all addresses the host is 0.
Endpoint LocalEnd(int socket);

// The address of this PC that the sign sees; 0 where there is no way to it.
std::uint32_t HostTowards(const Endpoint& sign);

// A socket that does not block, bound to a port of the system's choice: on loopback for the library, or with any
// address for a sign. Throws SignFailure.
Descriptor BoundSocket(int type, std::uint32_t host);

} // namespace vxctl
