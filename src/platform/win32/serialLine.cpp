// Serial lines of Windows, which are open once in a process however many use them.
#include "platform/serialLine.h"

#include "platform/win32/names.h"
#include "platform/win32/waiting.h"

#include <map>
#include <system_error>
#include <windows.h>

namespace vxsign::platform {
namespace {

[[noreturn]] void Fail(const char* what)
{
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

// The time that is left of a span that began at `start`.
std::uint32_t Left(std::uint64_t start, std::uint32_t spanMs)
{
    const std::uint64_t gone = kSystemClock.monotonicMs() - start;
    return gone < spanMs ? static_cast<std::uint32_t>(spanMs - gone) : 0;
}

class Handle
{
public:
    explicit Handle(HANDLE owned) : handle(owned)
    {
        if (handle == nullptr || handle == INVALID_HANDLE_VALUE)
            Fail("serial port");
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { ::CloseHandle(handle); }
    HANDLE Get() const { return handle; }

private:
    HANDLE handle;
};

} // namespace

// An open port, closed with its last user.
class SerialLine::Port
{
public:
    // Nobody else opens the port as long as it shares nothing.
    explicit Port(const std::string& device)
        : port(::CreateFileW(Wide(device).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                             FILE_FLAG_OVERLAPPED, nullptr)),
          done(::CreateEventW(nullptr, TRUE, FALSE, nullptr))
    {
        // A read ends with the first bytes; how long it waits for them is up to who asks.
        constexpr DWORD kLongMs = 24 * 60 * 60 * 1000;
        COMMTIMEOUTS timeouts{MAXDWORD, MAXDWORD, kLongMs, 0, 0};
        if (!::SetCommTimeouts(port.Get(), &timeouts))
            Fail("serial time-outs");
    }

    void MakeRaw(DWORD baudRate) const
    {
        DCB line{};
        line.DCBlength = sizeof line;
        if (!::GetCommState(port.Get(), &line))
            Fail("serial settings");
        DCB wanted{};
        wanted.DCBlength = sizeof wanted;
        wanted.XonLim = line.XonLim;
        wanted.XoffLim = line.XoffLim;
        wanted.XonChar = line.XonChar;
        wanted.XoffChar = line.XoffChar;
        wanted.BaudRate = baudRate;
        wanted.fBinary = TRUE;
        wanted.fDtrControl = DTR_CONTROL_ENABLE;
        wanted.fRtsControl = RTS_CONTROL_ENABLE;
        wanted.ByteSize = 8;
        wanted.Parity = NOPARITY;
        wanted.StopBits = ONESTOPBIT;
        if (!::SetCommState(port.Get(), &wanted))
            Fail("serial settings");
    }

    std::uint32_t Read(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) const
    {
        return Run("serial read", timeoutMs,
                   [&](OVERLAPPED& read) { return ::ReadFile(port.Get(), buffer, capacity, nullptr, &read); });
    }

    std::uint32_t Write(const void* data, std::uint32_t length, std::uint32_t timeoutMs) const
    {
        return Run("serial write", timeoutMs,
                   [&](OVERLAPPED& write) { return ::WriteFile(port.Get(), data, length, nullptr, &write); });
    }

private:
    // Runs an operation for as long as it may take. What it has done until then counts.
    template <class Start>
    std::uint32_t Run(const char* what, std::uint32_t timeoutMs, Start start) const
    {
        OVERLAPPED operation{};
        operation.hEvent = done.Get();
        if (!start(operation) && ::GetLastError() != ERROR_IO_PENDING)
            Fail(what);
        if (!WaitInSlices(timeoutMs, [&](DWORD ms) { return ::WaitForSingleObject(done.Get(), ms) == WAIT_OBJECT_0; }))
            ::CancelIoEx(port.Get(), &operation);
        // The buffers are the operation's until it has ended.
        DWORD count = 0;
        if (!::GetOverlappedResult(port.Get(), &operation, &count, TRUE) && ::GetLastError() != ERROR_OPERATION_ABORTED)
            Fail(what);
        return count;
    }

    const Handle port;
    const Handle done;
};

std::string SerialDevicePath(std::string_view name)
{
    return (name.starts_with('\\') ? "" : "\\\\.\\") + std::string(name);
}

void SerialLine::Open(std::string_view name, std::uint32_t baudRate)
{
    thread_local std::map<std::string, std::weak_ptr<const Port>> ports; // that this thread has opened
    Close();
    const std::string device = SerialDevicePath(name);
    auto opened = ports[device].lock();
    if (opened == nullptr)
        ports[device] = opened = std::make_shared<const Port>(device);
    opened->MakeRaw(baudRate);
    port = std::move(opened);
}

std::uint32_t SerialLine::Write(const void* data, std::uint32_t length, std::uint32_t timeoutMs)
{
    return port->Write(data, length, timeoutMs);
}

std::uint32_t SerialLine::Read(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, std::uint32_t gapMs)
{
    const std::uint64_t start = kSystemClock.monotonicMs();
    std::uint32_t got = 0;
    while (got < capacity) {
        const std::uint32_t left = Left(start, timeoutMs);
        const std::uint32_t count =
            port->Read(static_cast<char*>(buffer) + got, capacity - got, got == 0 ? left : std::min(left, gapMs));
        if (count == 0)
            break;
        got += count;
    }
    return got;
}

} // namespace vxsign::platform
