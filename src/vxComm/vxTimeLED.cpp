// The exports of major 5.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/clockFields.h"

#include <vxsign/test.h>

using namespace vxsign;

namespace {

// Sixteenths in 12 bits, two's complement.
constexpr std::uint16_t ToSixteenths(std::int8_t value)
{
    return static_cast<std::uint16_t>(value * 16 & 0xFFF);
}

} // namespace

std::uint32_t vxReadLEDTime(std::uint16_t* year, std::uint8_t* month, std::uint8_t* day, std::uint8_t* hour,
                            std::uint8_t* minute, std::uint8_t* sixth, std::uint8_t* seventh, std::uint8_t* eighth)
{
    const bool good = Required(year, month, day, hour, minute, sixth, seventh, eighth);
    return Call<vxTimeLED>(good, [=](vxTimeLED& sign) {
        const std::uint32_t result = sign.Request(5, 1);
        if (result == VX_OK) {
            const ReplyView reply = sign.Reply();
            TakeClock(reply, *year, *month, *day, *hour, *minute);
            *sixth = 0;
            *seventh = FromBcd(reply.U8(6));
            *eighth = reply.U8(7);
        }
        return result;
    });
}

std::uint32_t vxSendTempHumi(std::uint8_t first, std::int8_t second)
{
    return Call<vxTimeLED>([=](vxTimeLED& sign) -> std::uint32_t {
        // Told once, without waiting for an acknowledgement that counts.
        const Fields<4> request(first, ToSixteenths(second));
        const std::span<const std::uint8_t> payload = request;
        sign.BuildPacket(sign.requestBuffer, 5, 3, payload.data(), static_cast<std::uint32_t>(payload.size()), nullptr,
                         0);
        sign.ReceiveFrame(sign.requestBuffer, TotalLength(sign.requestBuffer), sign.replyBuffer, kReplySize);
        return VX_OK;
    });
}

std::uint32_t vxAjustLEDTimeEx(std::uint16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                               std::uint8_t minute, std::uint8_t sixth, std::uint8_t seventh, std::uint8_t eighth)
{
    return Send<vxTimeLED>({5, 4}, Payload(ClockFields(year, month, day, hour, minute, sixth, seventh, eighth)));
}

std::uint32_t vxWriteSpeedLimit(std::uint16_t first, std::uint16_t second)
{
    return Send<vxTimeLED>({5, 5}, Payload(Fields<8>(first, second)));
}
