// Hosts and lines, as the system knows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vxctl::platform {

// Whether the text is an IPv4 address of four decimal numbers.
bool IsAddress(const std::string& text);

// The IPv4 address of a host, dotted. Throws UsageError for a name that is unknown.
std::string DottedAddress(const std::string& host);

// The error, one of <cerrno>, of a way to an address; 0 when nothing speaks against it within that time.
int NetworkError(bool isTcp, const std::string& address, std::uint16_t port, int waitMs);

// The device of a serial name, as the library names it, and the error of opening it.
std::string DeviceOf(const std::string& name);
int SerialError(const std::string& device);

} // namespace vxctl::platform
