// The connection from the options of the command line.
#include "vxctl/cli/session.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/interrupt.h"
#ifdef VXCTL_HAS_RECORDING
#include "vxctl/record/relay.h"
#endif

#include <vxsign/login.h>

namespace vxctl {

namespace {

// Where the library finds the sign: at a relay while all is recorded.
const SignUrl& PlaceFor([[maybe_unused]] const Session& session, const SignUrl& named)
{
#ifdef VXCTL_HAS_RECORDING
    if (session.relay == nullptr)
        session.relay = MakeRelay(named, session.options);
    if (session.relay != nullptr)
        return session.relay->Place();
#endif
    return named;
}

} // namespace

void Session::Connect(vxOnProgress onProgress, vxOnLog onLog) const
{
    const SignUrl named = Sign(); // which may take its time over a name, and has sent nothing yet
    if (heedsSignals)
        AbortOnInterrupt();
    HeedAborts();
    const SignUrl& sign = PlaceFor(*this, named);
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
    if (IsAborted()) // which the new record has forgotten
        throw SignFailure(VX_ABORTED);
    if (options.login)
        Check(vxLogin(options.login->user.c_str(), PasswordOf(*options.login).c_str()));
}

} // namespace vxctl
