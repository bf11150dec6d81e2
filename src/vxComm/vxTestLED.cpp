// The exports of major 3.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/test.h>

static_assert(sizeof(vxCrayState) == 6);
static_assert(offsetof(vxCrayState, first) == 0);
static_assert(offsetof(vxCrayState, second) == 4);

using namespace vxsign;

namespace {

constexpr std::uint8_t kFirstPattern = 2;
constexpr std::uint8_t kLastPattern = 15;

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

std::uint32_t vxConnectTest(std::uint16_t* first, std::uint16_t* second, std::uint32_t* third)
{
    return Send<vxTestLED>({3, 1}, Reply(Out<0>(first), Out<2>(second), Out<4>(third)));
}

std::uint32_t vxPatternTest(std::uint8_t pattern)
{
    const bool good = pattern >= kFirstPattern && pattern <= kLastPattern;
    return Call<vxTestLED>(good, [=](vxTestLED& sign) { return sign.Request(3, pattern); });
}

std::uint32_t vxStopTest()
{
    return Send<vxTestLED>({3, 9});
}

std::uint32_t vxCrayTest(const vxCrayState* state)
{
    return Send<vxTestLED>({3, 10}, Payload(Bytes(state, sizeof *state)));
}

std::uint32_t vxColorTest(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return Send<vxTestLED>({3, 11}, Payload(Fields<16>(red, green, blue)));
}

std::uint32_t vxAreaTest(const std::uint64_t* area)
{
    return Send<vxTestLED>({3, 13}, Payload(Bytes(area, 24)));
}

std::uint32_t vxLocationTest(std::uint16_t first, std::uint16_t second, std::uint16_t third, std::uint16_t fourth,
                             const void* data, std::uint32_t count, std::uint16_t fifth)
{
    const std::size_t size = std::min<std::size_t>(count, kLongestExtended) * sizeof(std::uint16_t);
    return Send<vxTestLED>({3, 16}, Payload(Fields<16>(first, second, third, fourth, fifth)),
                           Extended(Bytes(data, size)));
}

std::uint32_t vxDebugInfoSetting(std::uint32_t value)
{
    return Send<vxTestLED>({3, 48}, Payload(Fields<4>(value)));
}

std::uint32_t vxStabilityTest(const void* data, std::uint8_t length, std::uint16_t id)
{
    const Block block = Bytes(data, length);
    return Call<vxTestLED>(!block.refused, [=](vxTestLED& sign) {
        packetIds::Set(id); // the ids of all threads go on from here
        return SendOn(sign, {3, 49}, Extended(block));
    });
}

std::uint32_t vxCustomTest(std::uint8_t major, std::uint8_t minor, const void* payload, std::uint8_t payloadLength,
                           const void* extended, std::uint8_t extendedLength, std::uint8_t crc, void* requestOut,
                           std::uint8_t* requestLength, void* replyOut, std::uint8_t* replyLength)
{
    const bool good = !Bytes(payload, payloadLength).refused && !Bytes(extended, extendedLength).refused;
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
