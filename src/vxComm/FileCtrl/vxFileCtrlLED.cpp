#include "vxComm/FileCtrl/vxFileCtrlLED.h"

#include "vxBaseCMD/call.h"

#include <vxsign/filesystem.h>

using namespace vxsign;

std::uint32_t vxDelete(const char* path)
{
    return Send<vxFileCtrlLED>({7, 6}, Payload(TerminatedText(path, kLongestSignPath)));
}
