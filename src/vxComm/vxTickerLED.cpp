// The exports of major 8.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"
#include "vxComm/shared/fileRecord.h"

#include <vxsign/ticker.h>

using namespace vxsign;

std::uint32_t vxTickerStart(std::uint8_t first, std::uint8_t second, std::uint8_t third)
{
    return Send<vxTickerLED>({8, 1}, Payload(Fields<4>(first, second, third)));
}

std::uint32_t vxTickerStop()
{
    return Send<vxTickerLED>({8, 2});
}

std::uint32_t vxGetBufferStatus(std::uint16_t* status)
{
    return Call<vxTickerLED>(Required(status), [=](vxTickerLED& sign) -> std::uint32_t {
        const std::uint32_t result = sign.Request(8, 3);
        if (result < VX_BUFFER_3_READY || result > VX_BUFFER_1_READY_TOO) // in the place of a refusal
            return result;
        *status = static_cast<std::uint16_t>(result);
        return VX_OK;
    });
}

std::uint32_t vxUploadBuffer(const std::uint8_t* data, std::uint32_t length)
{
    return Call<vxTickerLED>(Required(data) && length != 0, [=](vxTickerLED& sign) -> std::uint32_t {
        const std::uint16_t chunkSize = sign.config->dataSize;
        const std::uint32_t total = PacketCount(length, chunkSize);
        if (total > std::numeric_limits<std::uint16_t>::max())
            return VX_ARGUMENTS;
        for (std::uint32_t number = 1; number <= total; ++number) {
            const std::uint32_t offset = (number - 1) * chunkSize;
            const std::uint32_t count = std::min<std::uint32_t>(chunkSize, length - offset);
            const Fields<8> record(chunkSize, static_cast<std::uint16_t>(total), static_cast<std::uint16_t>(number));
            const std::uint32_t result = SendOn(sign, {8, 4}, Payload(record), Extended(Bytes(data + offset, count)));
            if (result != VX_OK)
                return result;
            sign.Progress(Percent(number, total));
        }
        return VX_OK;
    });
}
