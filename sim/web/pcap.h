// Traffic as a capture file.
#pragma once

#include "sim/web/trafficRing.h"

#include <cstdint>
#include <string>

namespace vxsim {

// Where the sign is in a capture.
struct CapturedSign
{
    std::uint32_t host = 0; // IPv4, first octet in the top byte
    std::uint16_t port = 0;
};

// What stands ahead of all packets: the form of pcap with bare IP packets.
std::string PcapHeader();

// A request and its reply, if one went out, as two UDP datagrams, whichever line carried them: a connection has a
// port that tells it from others, a serial line the host 0.0.0.0.
std::string PcapRecords(const CarriedPacket& packet, const CapturedSign& sign);

} // namespace vxsim
