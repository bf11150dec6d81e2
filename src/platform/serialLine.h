// A serial line: raw, 8 data bits, no parity, one stop bit, no flow control, for this program alone.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vxsign::platform {

/// The device of a port name. POSIX: a leading '/' is a path as it stands, "COM<n>" is /dev/ttyS<n-1>, anything else is
/// a name below /dev. Windows: a leading '\' is a path as it stands, anything else is a name below \\.\.
std::string SerialDevicePath(std::string_view name);

class SerialLine
{
public:
    SerialLine() = default;
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;
    ~SerialLine() { Close(); }

    /// A port is open once: for others it is in use. Only a call inside a call, which the thread makes while the outer
    /// one keeps still, shares the outer one's. Throws std::system_error when the port cannot be opened or set.
    void Open(std::string_view name, std::uint32_t baudRate);
    bool IsOpen() const { return port != nullptr; }

    /// Writes all bytes, as far as timeoutMs allows. Returns the bytes written; throws std::system_error.
    std::uint32_t Write(const void* data, std::uint32_t length, std::uint32_t timeoutMs);

    /// Reads for at most timeoutMs, and for at most gapMs behind the last byte that came; ends when the buffer is full.
    /// Returns the bytes read; throws std::system_error.
    std::uint32_t Read(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, std::uint32_t gapMs);

    void Close() { port.reset(); }

    class Port;

private:
    std::shared_ptr<const Port> port;
};

} // namespace vxsign::platform
