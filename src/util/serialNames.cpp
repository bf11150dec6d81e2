// The export that lists serial ports.
#include "platform/serialPorts.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

using namespace vxsign;

std::uint32_t vxEnumSerial(char* out, std::uint32_t outLength)
{
    if (out == nullptr)
        return VX_ARGUMENTS;
    CopyToField(out, outLength, "");
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        std::string list;
        for (const std::string& port : platform::SerialPorts()) {
            if (!list.empty())
                list += '|';
            list += port;
        }
        CopyToField(out, outLength, list);
        return VX_OK;
    });
}
