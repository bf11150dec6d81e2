// Names of temporary files, in the folder that the thread's callback tells.
#include "platform/paths.h"
#include "thread/threadRecords.h"
#include "util/localCall.h"
#include "util/tempStamp.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <cinttypes>
#include <cstdio>

using namespace vxsign;

namespace {

constexpr std::uint32_t kTempFolderSize = 256;

std::string TempFolder()
{
    vxApiConfig* const config = ThreadConfig();
    if (config == nullptr || config->onTempPath == nullptr)
        return platform::TempFolder();
    char folder[kTempFolderSize] = {};
    config->onTempPath(config, folder, kTempFolderSize);
    folder[kTempFolderSize - 1] = '\0'; // whatever the caller's function left there
    return folder;
}

} // namespace

std::uint32_t vxGetPCTempFilename(char* out, std::uint32_t outLength, const char* extension)
{
    if (extension == nullptr)
        return VX_ARGUMENTS;
    if (out == nullptr || outLength == 0)
        return VX_OK;
    out[0] = '\0';
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        std::snprintf(out, outLength, "%s%" PRIu32 "%" PRIu64 ".%s", TempFolder().c_str(), platform::ProcessId(),
                      NextTempStamp(), extension);
        return VX_OK;
    });
}
