// The connection from the options of the command line.
#include "vxctl/cli/session.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/interrupt.h"

#include <string_view>

namespace vxctl {

namespace {

// The callback brings nothing along that could name a place for it.
thread_local std::string failed;

void TakeFailure(vxApiConfig* /*config*/, const char* /*source*/, std::uint32_t /*line*/, std::uint32_t level,
                 const char* message)
{
    constexpr std::uint32_t kFailedCommand = 3;
    if (level == kFailedCommand && std::string_view(message) != vxErrorDesc(VX_FILE_NOT_EXISTS))
        failed = message;
}

} // namespace

void Session::Connect(vxOnProgress onProgress, vxOnLog onLog) const
{
    const SignUrl sign = Sign(); // which may take its time over a name, and has sent nothing yet
    AbortOnInterrupt();
    vxApiConfig config{};
    config.kind = sign.kind;
    // Both fit with their ends: a dotted address has 15 characters, and Resolve looks at the serial name.
    sign.host.copy(config.host, sizeof config.host - 1);
    sign.serialName.copy(config.serialName, sizeof config.serialName - 1);
    config.port = sign.port;
    config.baudRate = sign.baudRate;
    config.destinationAddress = options.destination;
    config.retries = options.retries;
    config.timeoutMs = options.timeoutMs;
    config.dataSize = static_cast<std::uint16_t>(options.chunk);
    config.onProgress = onProgress;
    config.onLog = onLog;
    Check(vxInitAPI(&config));
    if (CaughtSignal() != 0) // which the new record has forgotten
        throw SignFailure(VX_ABORTED);
}

void Session::ConnectListening() const
{
    failed.clear();
    Connect(ProgressBar::OnProgress, TakeFailure);
}

const std::string& Session::Failed()
{
    return failed;
}

} // namespace vxctl
