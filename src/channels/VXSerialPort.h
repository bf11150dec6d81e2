// The channel over a serial line.
#pragma once

#include "channels/VXCommBase.h"
#include "platform/serialLine.h"

#include <string_view>

namespace vxsign {

/// A serial line. Its operations throw std::system_error when the port fails.
class VXSerialPort : public VXCommBase
{
public:
    /// Closes what is open first.
    void Open(std::string_view serialName, std::uint32_t baudRate);
    bool Open(const Route& route, std::uint32_t /*timeoutMs*/) override
    {
        Open(route.serialName, route.baudRate);
        return true;
    }

    std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs) override;
    /// Reads for at most timeoutMs, and ends 50 ms behind the last byte.
    std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) override;
    void Close() override;

private:
    platform::SerialLine line;
};

} // namespace vxsign
