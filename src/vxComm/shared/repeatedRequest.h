// Requests that go out more than once.
#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

#include <algorithm>
#include <array>

namespace vxsign {

/// The packet that was last built in the request buffer, to be exchanged several times with one id. A copy: a reply may
/// run over into that buffer.
class RepeatedRequest
{
public:
    explicit RepeatedRequest(CBaseCMD& command)
        : sign(command), length(std::min(TotalLength(command.requestBuffer), kRequestSize))
    {
        std::copy_n(sign.requestBuffer, length, packet.begin());
    }

    std::uint32_t Exchange() const { return sign.Exchange(packet.data(), length, sign.replyBuffer); }

private:
    CBaseCMD& sign;
    std::uint32_t length;
    std::array<std::uint8_t, kRequestSize> packet;
};

} // namespace vxsign
