// Looks for the reason of a silence.
#include "vxctl/cli/lineFault.h"

#include "vxctl/platform/network.h"

#include <vxsign/result.h>

#include <cerrno>
#include <system_error>

namespace vxctl {

namespace {

// The sign, or its end of the line, as people know it.
std::string PlaceOf(const SignUrl& sign)
{
    return sign.kind == VX_CHANNEL_SERIAL ? platform::DeviceOf(sign.serialName)
                                          : sign.host + ":" + std::to_string(sign.port);
}

LineFault Silence(const Options& options)
{
    return {"no answer from " + PlaceOf(ParseSignUrl(options.url)) + " within " + std::to_string(options.retries) +
                (options.retries == 1 ? " try of " : " tries of ") + std::to_string(options.timeoutMs) + " ms",
            std::string(AdviceFor(VX_COMMUNICATION))};
}

} // namespace

LineFault FaultOf(int systemError, const std::string& place)
{
    switch (systemError) {
    case 0:
        return {};
    case ECONNREFUSED:
        return {"connection refused by " + place, "nothing listens there: check the port, and whether the sign speaks "
                                                  "TCP or UDP"};
    case EHOSTUNREACH:
    case ENETUNREACH:
#if defined(EHOSTDOWN)
    case EHOSTDOWN:
#endif
    case ENETDOWN:
        return {"no route to " + place, "check the address, and the network of this PC"};
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return {place + ": no such device", "\"vxctl ports\" lists the serial lines of this PC"};
    case EBUSY:
        return {place + " is busy", "another program has it: end that one"};
    case ENOTTY:
        return {place + " is no serial line", "\"vxctl ports\" lists the serial lines of this PC"};
    case EACCES:
    case EPERM:
        return {place + ": permission denied", "on most systems the group dialout may use serial lines"};
    default:
        return {place + ": " + std::generic_category().message(systemError), std::string(AdviceFor(VX_COMMUNICATION))};
    }
}

LineFault LookAtLine(const Options& options, int waitMs)
{
    const SignUrl typed = ParseSignUrl(options.url);
    const std::string place = PlaceOf(typed);
    if (typed.kind == VX_CHANNEL_SERIAL)
        return FaultOf(platform::SerialError(place), place);
    const bool isTcp = typed.kind == VX_CHANNEL_TCP;
    return FaultOf(platform::NetworkError(isTcp, Resolve(typed).host, typed.port, waitMs), place);
}

LineFault FindLineFault(const Options& options, int waitMs)
{
    LineFault fault = LookAtLine(options, waitMs);
    return fault.reason.empty() ? Silence(options) : fault;
}

} // namespace vxctl
