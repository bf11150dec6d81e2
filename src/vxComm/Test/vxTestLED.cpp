#include "vxComm/Test/vxTestLED.h"

#include "vxBaseCMD/call.h"

#include <vxsign/test.h>

using namespace vxsign;

namespace {

// Copies a whole packet out, and its length cut to 8 bits.
void CopyOut(const std::uint8_t* packet, void* out, std::uint8_t* length)
{
    const std::uint32_t total = TotalLength(packet);
    if (out != nullptr)
        std::memcpy(out, packet, std::min(total, kReplyRoom));
    if (length != nullptr)
        *length = static_cast<std::uint8_t>(total);
}

} // namespace

std::uint32_t vxCustomTest(std::uint8_t major, std::uint8_t minor, const void* payload, std::uint8_t payloadLength,
                           const void* extended, std::uint8_t extendedLength, std::uint8_t crc, void* requestOut,
                           std::uint8_t* requestLength, void* replyOut, std::uint8_t* replyLength)
{
    const bool good = (payload != nullptr || payloadLength == 0) && (extended != nullptr || extendedLength == 0);
    return Call<vxTestLED>(good, [=](vxTestLED& sign) {
        sign.useCrc = crc;
        sign.BuildPacket(sign.requestBuffer, major, minor, payload, payloadLength, extended, extendedLength);
        // A reply that runs over reaches into the request buffer: so the request is copied ahead of the exchange.
        CopyOut(sign.requestBuffer, requestOut, requestLength);
        const std::uint32_t result =
            sign.Exchange(sign.requestBuffer, TotalLength(sign.requestBuffer), sign.replyBuffer);
        CopyOut(sign.replyBuffer, replyOut, replyLength);
        return result;
    });
}
