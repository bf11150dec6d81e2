// Where the sign is, as one text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vxctl {

inline constexpr const char* kDefaultUrl = "udp://127.0.0.1:9520";
inline constexpr std::uint16_t kDefaultPort = 9520;
inline constexpr std::uint32_t kDefaultBaudRate = 9600;

// The connection in the terms of vxApiConfig. For a serial line host is empty, otherwise serialName is.
struct SignUrl
{
    std::uint32_t kind = 0; // vxChannelKind
    std::string host;
    std::uint16_t port = 0;
    std::string serialName;
    std::uint32_t baudRate = 0;
};

// Takes "udp://HOST[:PORT]", "tcp://HOST[:PORT]" or "serial:NAME[@BAUD]" apart; HOST is an IPv4 address or a name,
// still to be resolved. Throws UsageError for anything else.
SignUrl ParseSignUrl(std::string_view text);

// The same with what the library needs: the host as dotted address, the serial name short enough for its field (a long
// device path is followed to the device that it is a link to). Throws UsageError when there is none.
SignUrl Resolve(SignUrl url);

} // namespace vxctl
