// The commands of the traffic signal controller.
#include "util/file.h"
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/clockFields.h"

#include <vxsign/traffic.h>

using namespace vxsign;

namespace {

constexpr std::size_t kLongestFlow = 1536;

// A block of the reply, and how much of it there was.
std::uint32_t ReadBlock(Code code, const Block& payload, std::uint8_t* buffer, std::uint32_t* size)
{
    return Call<vxTrafficLED>(Required(buffer, size), [&](vxTrafficLED& sign) {
        const std::uint32_t result = SendOn(sign, code, Payload(payload), Reply(OutExtended(buffer, *size)));
        if (result == VX_OK)
            *size = static_cast<std::uint32_t>(std::min<std::size_t>(*size, sign.Reply().Extended().size()));
        return result;
    });
}

std::uint32_t ReadFlow(vxTrafficLED& sign, const std::uint8_t* query, const char* path)
{
    const std::uint32_t result = SendOn(sign, {10, 13}, Payload(Bytes(query, VX_TRAFFIC_FLOW_QUERY)));
    if (result != VX_OK)
        return result;
    const ReplyView reply = sign.Reply();
    std::array<std::uint8_t, kLongestFlow> flow;
    const std::size_t length = std::min(reply.PayloadLength() + reply.Extended().size(), flow.size());
    reply.Copy(flow.data(), 0, length);
    File file = OpenFile(path, "wb");
    if (!file)
        return VX_OPEN_FILE;
    const bool written = WriteAll(file, flow.data(), length);
    return CloseFile(file) && written ? VX_OK : VX_CALL;
}

} // namespace

std::uint32_t vxReadTCStatus(std::uint8_t* buffer, std::uint32_t* size)
{
    return ReadBlock({10, 6}, {}, buffer, size);
}

std::uint32_t vxReadTCMonitor(std::uint32_t monitorKind, std::uint8_t* buffer, std::uint32_t* size)
{
    return ReadBlock({10, 5}, Fields<4>(static_cast<std::uint8_t>(monitorKind)), buffer, size);
}

std::uint32_t vxTCGetRealStatus(std::uint8_t* buffer, std::uint32_t capacity, std::uint8_t part)
{
    return Send<vxTrafficLED>({10, 17}, Payload(Fields<4>(part)), Reply(Optional(OutExtended(buffer, capacity))));
}

std::uint32_t vxTCManual(std::uint8_t mode)
{
    return Send<vxTrafficLED>({10, 2}, Payload(Fields<4>(mode)));
}

std::uint32_t vxTCJKBLightTest(const std::uint8_t* lamps, std::uint8_t lampCount)
{
    return Send<vxTrafficLED>({10, 8}, Payload(Fields<4>(lampCount)), Extended(Bytes(lamps, lampCount)));
}

std::uint32_t vxTCJKCLightTest(const std::uint8_t* lamps, std::uint8_t firstCount, std::uint8_t secondCount)
{
    const std::size_t count = std::size_t{firstCount} + secondCount;
    return Send<vxTrafficLED>({10, 9}, Payload(Fields<4>(firstCount, secondCount)), Extended(Bytes(lamps, count)));
}

std::uint32_t vxTrafficTempPhaseRun(const std::uint8_t* phase, std::uint32_t flag)
{
    return Send<vxTrafficLED>({10, 16},
                              Payload(Fields<32>(Copy<VX_TRAFFIC_PHASE>{phase}, static_cast<std::uint8_t>(flag))));
}

std::uint32_t vxTrafficRFlow(const std::uint8_t* query, const char* path)
{
    // By rule whatever keeps the request from going out is one failure here.
    bool reached = false;
    const std::uint32_t result = Call<vxTrafficLED>([&](vxTrafficLED& sign) {
        reached = Required(query, path);
        return reached ? ReadFlow(sign, query, path) : static_cast<std::uint32_t>(VX_NOT_INITIALISED);
    });
    return reached ? result : static_cast<std::uint32_t>(VX_NOT_INITIALISED);
}

std::uint32_t vxReadTrafficTime(std::uint16_t* year, std::uint8_t* month, std::uint8_t* day, std::uint8_t* hour,
                                std::uint8_t* minute, std::uint8_t* second, std::uint8_t* timeField7,
                                std::uint8_t* timeField8)
{
    const bool good = Required(year, month, day, hour, minute, second, timeField7, timeField8);
    return Call<vxTrafficLED>(good, [=](vxTrafficLED& sign) {
        const std::uint32_t result = sign.Request(5, 1);
        if (result == VX_OK) {
            const ReplyView reply = sign.Reply();
            TakeClock(reply, *year, *month, *day, *hour, *minute);
            *second = FromBcd(reply.U8(6));
            *timeField7 = FromBcd(reply.U8(7));
            *timeField8 = reply.U8(8);
        }
        return result;
    });
}

std::uint32_t vxAjustTrafficTime(std::uint16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour,
                                 std::uint8_t minute, std::uint8_t second, std::uint8_t timeField7,
                                 std::uint8_t timeField8)
{
    return Send<vxTrafficLED>({5, 2},
                              Payload(ClockFields(year, month, day, hour, minute, second, timeField7, timeField8)));
}
