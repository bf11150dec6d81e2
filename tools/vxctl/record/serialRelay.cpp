// A relay on a serial line: the library gets a pseudo terminal.
#include "vxctl/record/relay.h"

#include "vxctl/cli/failure.h"
#include "vxctl/platform/network.h"

#include <array>
#include <asm/termbits.h> // termios2, which takes any speed; it excludes <termios.h>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <system_error>

namespace vxctl {

namespace {

// A line has no addresses; the port is that by which a packet is known as one of a sign.
constexpr Endpoint kHost{0x7F000001, 49152};
constexpr Endpoint kSign{0x7F000002, kDefaultPort};

// As the library has its lines: raw, 8 data bits, no parity, one stop bit.
bool MakeRaw(int line, std::uint32_t baudRate)
{
    termios2 settings{};
    if (::ioctl(line, TCGETS2, &settings) != 0)
        return false;
    settings.c_iflag = 0;
    settings.c_oflag = 0;
    settings.c_lflag = 0;
    settings.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CIBAUD | CSIZE | CSTOPB | PARENB | CRTSCTS);
    settings.c_cflag |= CS8 | CREAD | CLOCAL | BOTHER | (BOTHER << IBSHIFT);
    settings.c_ispeed = baudRate;
    settings.c_ospeed = baudRate;
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 0;
    return ::ioctl(line, TCSETS2, &settings) == 0;
}

// Nobody else gets it meanwhile. Empty where it cannot be opened so.
Descriptor OpenLine(const SignUrl& sign)
{
    Descriptor line(::open(platform::DeviceOf(sign.serialName).c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!line || ::flock(line.Get(), LOCK_EX | LOCK_NB) != 0 || !MakeRaw(line.Get(), sign.baudRate))
        return {};
    ::ioctl(line.Get(), TIOCEXCL);
    return line;
}

void PutDatagram(RecordedLine& line, Way way, Recording::Time time, RecordedLine::Bytes bytes)
{
    line.Datagram(way, time, bytes);
}

class SerialRelay : public Relay
{
public:
    SerialRelay(const SignUrl& sign, Descriptor opened, Recording& recording)
        : device(std::move(opened)), master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)),
          line(recording, recording.AddLine("serial:" + sign.serialName, CommentOf(sign)), kHost, kSign)
    {
        std::array<char, 64> name{};
        if (!master || ::grantpt(master.Get()) != 0 || ::unlockpt(master.Get()) != 0 ||
            ::ptsname_r(master.Get(), name.data(), name.size()) != 0)
            throw SignFailure(VX_CALL, "no relay for the recording: " + std::generic_category().message(errno));
        terminal = Descriptor(::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
        MakeRaw(terminal.Get(), sign.baudRate);
        place = sign;
        place.serialName = name.data();
        Begin();
    }
    ~SerialRelay() override
    {
        End();
        if (device)
            ::ioctl(device.Get(), TIOCNXCL);
    }

private:
    static std::string CommentOf(const SignUrl& sign)
    {
        return "serial line " + platform::DeviceOf(sign.serialName) + " at " + std::to_string(sign.baudRate) +
               " bits/s, whose bytes stand in UDP datagrams made for them";
    }

    std::vector<pollfd> Awaited() const override { return {{device.Get(), POLLIN, 0}, {master.Get(), POLLIN, 0}}; }

    void Take(std::span<const pollfd> ready) override
    {
        if (ready[1].revents != 0)
            HandOn(master.Get(), device.Get(), out, in);
        if (ready[0].revents != 0 && !HandOn(device.Get(), master.Get(), in, out))
            HangUp();
    }

    // What goes one way ends what came the other.
    bool HandOn(int from, int towards, RecordedStream& stream, RecordedStream& other)
    {
        const std::vector<std::uint8_t> bytes = TakeBytes(from);
        if (bytes.empty())
            return errno == EAGAIN || errno == EINTR;
        other.Rest(line);
        stream.Add(line, bytes);
        return SendAll(towards, bytes);
    }

    // The device has gone: the library finds its line gone as well.
    void HangUp()
    {
        Finish();
        terminal.Close();
        master.Close();
        device.Close();
    }

    void Idle() override
    {
        out.Rest(line);
        in.Rest(line);
    }

    void Finish() override
    {
        out.End(line);
        in.End(line);
    }

    Descriptor device;
    Descriptor master;
    Descriptor terminal; // the library's, kept open so that nothing is lost between two of its calls
    RecordedLine line;
    RecordedStream out{Way::kOut, PutDatagram};
    RecordedStream in{Way::kIn, PutDatagram};
};

} // namespace

std::unique_ptr<Relay> MakeSerialRelay(const SignUrl& sign, Recording& recording)
{
    Descriptor device = OpenLine(sign);
    return device ? std::make_unique<SerialRelay>(sign, std::move(device), recording) : nullptr;
}

} // namespace vxctl
