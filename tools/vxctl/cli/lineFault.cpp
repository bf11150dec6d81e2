// Looks for the reason of a silence.
#include "vxctl/cli/lineFault.h"

#include "vxctl/cli/numbers.h"

#include <vxsign/result.h>

#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace vxctl {

namespace {

class Descriptor
{
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number; }

private:
    int number;
};

// The error of a way to the host; 0 when nothing speaks against it.
int NetworkError(const SignUrl& sign, int waitMs)
{
    const int type = sign.kind == VX_CHANNEL_TCP ? SOCK_STREAM : SOCK_DGRAM;
    const Descriptor probe(::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(sign.port);
    if (::inet_pton(AF_INET, sign.host.c_str(), &address.sin_addr) != 1)
        return 0;
    if (::connect(probe.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno != EINPROGRESS)
        return errno;
    if (type == SOCK_DGRAM && ::send(probe.Number(), "", 0, MSG_NOSIGNAL) < 0)
        return errno;
    pollfd wait{probe.Number(), static_cast<short>(type == SOCK_STREAM ? POLLOUT : POLLIN), 0};
    if (::poll(&wait, 1, waitMs) < 1)
        return 0;
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(probe.Number(), SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

// As the library names the devices of serial lines.
std::string DeviceOf(const std::string& name)
{
    constexpr std::string_view kPort = "COM";
    if (name.starts_with('/'))
        return name;
    const std::uint32_t number = name.starts_with(kPort) ? ParseNumber(name.substr(kPort.size())).value_or(0) : 0;
    return number > 0 ? "/dev/ttyS" + std::to_string(number - 1) : "/dev/" + name;
}

int SerialError(const std::string& device)
{
    const Descriptor probe(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (probe.Number() < 0)
        return errno;
    return ::isatty(probe.Number()) != 0 ? 0 : ENOTTY;
}

// The sign, or its end of the line, as people know it.
std::string PlaceOf(const SignUrl& sign)
{
    return sign.kind == VX_CHANNEL_SERIAL ? DeviceOf(sign.serialName) : sign.host + ":" + std::to_string(sign.port);
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
    case EHOSTDOWN:
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
    const bool isSerial = typed.kind == VX_CHANNEL_SERIAL;
    return FaultOf(isSerial ? SerialError(place) : NetworkError(Resolve(typed), waitMs), place);
}

LineFault FindLineFault(const Options& options, int waitMs)
{
    LineFault fault = LookAtLine(options, waitMs);
    return fault.reason.empty() ? Silence(options) : fault;
}

} // namespace vxctl
