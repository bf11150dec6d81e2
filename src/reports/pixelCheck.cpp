// The pixel check from its start to the fetched results.
#include "platform/stop.h"
#include "thread/threadRecords.h"
#include "util/localCall.h"

#include <vxsign/pixel.h>
#include <vxsign/result.h>

using namespace vxsign;

namespace {

constexpr std::uint16_t kSteps = 4;
constexpr std::uint32_t kPollMs = 1000;
constexpr std::uint8_t kLastPercentToWaitFor = 99;

// Polls until the sign is done or a poll fails. The first two polls follow each other without a pause.
std::uint32_t WaitForEnd(vxApiConfig& config)
{
    std::uint8_t percent = 0;
    std::uint32_t result = vxPixProgress(&percent);
    while (result == VX_OK) {
        result = vxPixProgress(&percent);
        if (percent > kLastPercentToWaitFor)
            break;
        if (config.onProgress != nullptr)
            config.onProgress(&config, 0, percent);
        platform::Rest(kPollMs);
    }
    return result;
}

} // namespace

std::uint32_t vxPxlChk(const char* pxlLocal, const char* signalLocal)
{
    if (pxlLocal == nullptr || signalLocal == nullptr)
        return VX_ARGUMENTS;
    vxApiConfig* const config = ThreadConfig();
    if (config == nullptr)
        return VX_NOT_INITIALISED;
    config->progressTotal = kSteps;
    config->progressPos = 0;
    return LocalCall<std::uint32_t>(VX_COMMUNICATION, [=]() -> std::uint32_t {
        std::uint32_t result = vxBeginPixCheck();
        if (result != VX_OK)
            return result;
        config->progressPos = 1;
        result = WaitForEnd(*config);
        if (result != VX_OK)
            return result;
        config->progressPos = 2;
        vxReadPixResult(pxlLocal);
        config->progressPos = 3;
        vxReadSignalResult(signalLocal);
        return VX_OK;
    });
}
