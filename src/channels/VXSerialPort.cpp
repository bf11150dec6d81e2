// The channel over a serial line, which ends a reading where the line falls silent.
#include "channels/VXSerialPort.h"

namespace vxsign {

void VXSerialPort::Open(std::string_view serialName, std::uint32_t baudRate)
{
    line.Open(serialName, baudRate);
}

std::uint32_t VXSerialPort::Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs)
{
    return line.IsOpen() && buffer != nullptr ? line.Write(buffer, length, timeoutMs) : 0;
}

std::uint32_t VXSerialPort::Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    constexpr std::uint32_t kGapMs = 50;
    return line.IsOpen() && buffer != nullptr ? line.Read(buffer, capacity, timeoutMs, kGapMs) : 0;
}

void VXSerialPort::Close()
{
    line.Close();
}

} // namespace vxsign
