// UDP and TCP over IPv4 in the frames of a capture.
#pragma once

#include "vxctl/record/captureFile.h"
#include "vxctl/record/recordedLine.h"

#include <compare>
#include <optional>

namespace vxctl {

struct CapturedPacket
{
    Endpoint from;
    Endpoint to;
    bool isTcp = false;
    std::uint32_t sequence = 0;          // of TCP
    std::uint8_t flags = 0;              //
    std::span<const std::uint8_t> bytes; // of the frame
};

// Nothing for a frame that is something else, damaged or the rest of a packet in pieces.
std::optional<CapturedPacket> PacketOf(const CapturedFrame& frame);

} // namespace vxctl
