// What the channels to a sign have in common.
#pragma once

#include <cstdint>
#include <string_view>

namespace vxsign {

/// The way to a sign. Each kind of channel looks at its own part of it.
struct Route
{
    std::uint16_t localPort; // 0: any
    const char* host;
    std::uint16_t remotePort;
    std::string_view serialName;
    std::uint32_t baudRate;
};

/// A byte channel to one sign. It knows nothing of packets. Its waits end when the thread is to stop (platform/stop.h).
class VXCommBase
{
public:
    VXCommBase() = default;
    VXCommBase(const VXCommBase&) = delete;
    VXCommBase& operator=(const VXCommBase&) = delete;
    virtual ~VXCommBase() = default;

    /// False when it could not be opened; a serial line throws std::system_error.
    virtual bool Open(const Route& route, std::uint32_t timeoutMs) = 0;
    /// The bytes written, 0 on failure.
    virtual std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs) = 0;
    /// The bytes read, 0 for nothing or on failure.
    virtual std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) = 0;
    virtual void Close() = 0;
};

} // namespace vxsign
