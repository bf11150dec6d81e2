// Packets of the sign, put together.
#pragma once

#include "sim/protocol/codes.h"
#include "sim/protocol/frame.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

// What a sign has to say to one request.
struct Reply
{
    std::uint8_t status = 0; // 0 done, 1 a code stands in front of the payload
    std::vector<std::uint8_t> payload;
    std::vector<std::uint8_t> extended;
    std::string remark = {}; // for whoever looks on; does not travel

    static Reply Done() { return {}; }
    static Reply WithCode(Code code);
    static Reply WithPayload(std::span<const std::uint8_t> payload)
    {
        return {0, {payload.begin(), payload.end()}, {}};
    }
    static Reply WithExtended(std::span<const std::uint8_t> bytes) { return {0, {}, {bytes.begin(), bytes.end()}}; }
};

// The packet that carries `reply` back: the id, major and minor of the request, its addresses exchanged, its kind of
// check. The payload is zero padded to whole words; beyond 255 words it is cut, the extended part beyond 65535 bytes.
std::vector<std::uint8_t> BuildReply(const Frame& request, const Reply& reply);

// Puts the right checksum into a finished reply packet that was changed afterwards.
void RestoreChecksum(std::span<std::uint8_t> packet);

} // namespace vxsim
