// The exports of major 16.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/pixel.h>
#include <vxsign/read.h>

using namespace vxsign;

std::uint32_t vxBeginPixCheck()
{
    return Send<vxPixcelLED>({16, 1});
}

std::uint32_t vxPixProgress(std::uint8_t* percent)
{
    return Send<vxPixcelLED>({16, 3}, Payload(Fields<4>()), Reply(Out<0>(percent)));
}

std::uint32_t vxReadPixResult(const char* local)
{
    return vxReadSpecPathFile("D:\\PXL.CSV", local);
}

std::uint32_t vxReadSignalResult(const char* local)
{
    return vxReadSpecPathFile("D:\\SIGNAL.CSV", local);
}
