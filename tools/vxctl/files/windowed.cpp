// Tries a line before the window is used on it.
#include "vxctl/files/windowed.h"

#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/progressBar.h"

#include <vxsign/local.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

namespace vxctl {

namespace {

// A near line shows more packets in this time, which is well, since a window gains least on it.
constexpr std::uint32_t kTrialMs = 1000;
constexpr std::uint32_t kTrialPackets = 4; // at least
// What a loss costs a window: 4 seconds, while the seven other packets go on.
constexpr std::uint32_t kLossMs = 4000 / 8;

// Watches the plain transfer of a file, and ends it when its first packets have met nothing that speaks against a
// window.
class Trial
{
public:
    explicit Trial(vxApiConfig& sign) : config(sign), onProgress(sign.onProgress), onLog(sign.onLog)
    {
        current = this;
        config.onProgress = [](vxApiConfig*, std::uint32_t, std::uint32_t percent) { current->TakePacket(percent); };
        config.onLog = [](vxApiConfig*, const char*, std::uint32_t, std::uint32_t, const char*) {
            current->isGood = current->config.timeoutMs >= kLossMs;
        };
    }
    ~Trial()
    {
        config.onProgress = onProgress;
        config.onLog = onLog;
        current = nullptr;
        if (isOver)
            config.abortFlag = 0;
        if (isOver && IsAborted())
            config.abortFlag = 1;
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    // Whether the window is to have the file.
    bool IsOver() const { return isOver; }

private:
    void TakePacket(std::uint32_t percent)
    {
        if (onProgress != nullptr)
            onProgress(&config, 0, percent);
        if (++packets < kTrialPackets || vxSysUpTimeMS() - startMs < kTrialMs)
            return;
        if (!isGood || percent == 100 || config.abortFlag != 0)
            return;
        isOver = true;
        config.abortFlag = 1;
    }

    static inline thread_local Trial* current = nullptr; // the callbacks bring nothing along that could name it

    vxApiConfig& config;
    const vxOnProgress onProgress;
    const vxOnLog onLog;
    const std::uint32_t startMs = vxSysUpTimeMS();
    std::uint32_t packets = 0;
    bool isGood = true;
    bool isOver = false;
};

} // namespace

std::uint32_t SendWindowed(const char* path, const char* local)
{
    {
        const Trial trial(*static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION)));
        const std::uint32_t result = vxWriteSpecFileEx(path, local);
        if (!trial.IsOver())
            return result;
    }
    const std::uint32_t result = vxWriteFileOptimize(path, local);
    return result == VX_COMMUNICATION ? vxWriteSpecFileEx(path, local) : result;
}

} // namespace vxctl
