#include "api/threadRecords.h"
#include "platform/clock.h"
#include "platform/paths.h"
#include "util/localCall.h"
#include "util/tempFile.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>
#include <atomic>
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

std::uint64_t vxsign::NextTempStamp()
{
    static std::atomic<std::uint64_t> last = 0;
    std::uint64_t before = last.load();
    std::uint64_t stamp = 0;
    do {
        stamp = std::max(before + 1, platform::clock.monotonicMs());
    } while (!last.compare_exchange_weak(before, stamp));
    return stamp;
}

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
