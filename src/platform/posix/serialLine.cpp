// Serial lines through termios2, which are open once in a process however many use them.
#include "platform/serialLine.h"

#include "platform/clock.h"
#include "platform/posix/waiting.h"

#include <algorithm>
#include <asm/termbits.h> // termios2, which takes any baud rate; it excludes <termios.h>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace vxsign::platform {
namespace {

[[noreturn]] void Fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

void MakeRaw(int descriptor, std::uint32_t baudRate)
{
    termios2 former{};
    if (::ioctl(descriptor, TCGETS2, &former) != 0)
        Fail("serial settings");
    termios2 line = former;
    line.c_iflag = 0;
    line.c_oflag = 0;
    line.c_lflag = 0;
    line.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CIBAUD | CSIZE | CSTOPB | PARENB | CRTSCTS);
    line.c_cflag |= CS8 | CREAD | CLOCAL | BOTHER | (BOTHER << IBSHIFT);
    line.c_ispeed = baudRate;
    line.c_ospeed = baudRate;
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    // Every call opens the line anew, mostly with the settings that it left: setting them again takes its time.
    if (std::memcmp(&line, &former, sizeof line) != 0 && ::ioctl(descriptor, TCSETS2, &line) != 0)
        Fail("serial settings");
}

// The time that is left of a span that began at `start`.
std::uint32_t Left(std::uint64_t start, std::uint32_t spanMs)
{
    const std::uint64_t gone = kSystemClock.monotonicMs() - start;
    return gone < spanMs ? static_cast<std::uint32_t>(spanMs - gone) : 0;
}

bool Passing(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

// An open port, closed with its last user.
class SerialLine::Port
{
public:
    explicit Port(const std::string& device)
        : descriptor(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        if (descriptor < 0)
            Fail("serial port");
        // The lock holds among those who ask for it, the exclusive mode against all but a superuser.
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(descriptor);
            errno = error;
            Fail("serial port in use");
        }
        ::ioctl(descriptor, TIOCEXCL);
    }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port()
    {
        ::ioctl(descriptor, TIOCNXCL);
        ::flock(descriptor, LOCK_UN); // closing leaves it to a child that was forked meanwhile
        ::close(descriptor);
    }

    int Descriptor() const { return descriptor; }

private:
    int descriptor;
};

std::string SerialDevicePath(std::string_view name)
{
    if (name.starts_with('/'))
        return std::string(name);
    unsigned number = 0;
    if (name.starts_with("COM")) {
        const auto [end, error] = std::from_chars(name.data() + 3, name.data() + name.size(), number);
        if (error == std::errc() && end == name.data() + name.size() && number > 0)
            return "/dev/ttyS" + std::to_string(number - 1);
    }
    return "/dev/" + std::string(name);
}

void SerialLine::Open(std::string_view name, std::uint32_t baudRate)
{
    thread_local std::map<std::string, std::weak_ptr<const Port>> ports; // that this thread has opened
    Close();
    const std::string device = SerialDevicePath(name);
    auto opened = ports[device].lock();
    if (opened == nullptr)
        ports[device] = opened = std::make_shared<const Port>(device);
    MakeRaw(opened->Descriptor(), baudRate);
    port = std::move(opened);
}

std::uint32_t SerialLine::Write(const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    const std::uint64_t start = kSystemClock.monotonicMs();
    std::uint32_t written = 0;
    while (written < length) {
        const ssize_t count = ::write(port->Descriptor(), static_cast<const char*>(data) + written, length - written);
        if (count > 0)
            written += static_cast<std::uint32_t>(count);
        else if (count < 0 && !Passing(errno))
            Fail("serial write");
        else if (!WaitReady(port->Descriptor(), POLLOUT, Left(start, timeoutMs)))
            break;
    }
    return written;
}

std::uint32_t SerialLine::Read(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, std::uint32_t gapMs)
{
    const std::uint64_t start = kSystemClock.monotonicMs();
    std::uint32_t got = 0;
    while (got < capacity) {
        const std::uint32_t left = Left(start, timeoutMs);
        if (!WaitReady(port->Descriptor(), POLLIN, got == 0 ? left : std::min(left, gapMs)))
            break;
        const ssize_t count = ::read(port->Descriptor(), static_cast<char*>(buffer) + got, capacity - got);
        if (count > 0)
            got += static_cast<std::uint32_t>(count);
        else if (count == 0) // the other end has gone
            break;
        else if (!Passing(errno))
            Fail("serial read");
    }
    return got;
}

} // namespace vxsign::platform
