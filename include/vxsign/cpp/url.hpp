// Where the sign is, from one text into a configuration.
#ifndef VXSIGN_CPP_URL_HPP
#define VXSIGN_CPP_URL_HPP

#include <vxsign/api.h>
#include <vxsign/cpp/bytes.hpp>
#include <vxsign/cpp/result.hpp>

#include <filesystem>
#include <memory>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#endif

namespace vxsign::detail {

[[noreturn]] inline void RefuseUrl(std::string_view url, const std::string& reason)
{
    Refuse("'" + std::string(url) + "' names no sign: " + reason);
}

// Whether text starts with prefix, without regard to case; if so it loses it.
inline bool TakePrefix(std::string_view& text, std::string_view prefix)
{
    if (Upper(text.substr(0, prefix.size())) != Upper(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

// A host of digits and dots alone is meant as an address: nobody but the sign itself should ever get its traffic.
inline std::string DottedAddress(std::string_view url, const std::string& host)
{
    const bool isAddress = host.find_first_not_of("0123456789.") == std::string::npos;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    hints.ai_flags = isAddress ? AI_NUMERICHOST : 0;
    addrinfo* found = nullptr;
    const int error = ::getaddrinfo(host.c_str(), nullptr, &hints, &found);
    const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(found, [](addrinfo* list) {
        if (list != nullptr)
            ::freeaddrinfo(list);
    });
    char text[32] = {};
    if (error != 0 || found == nullptr ||
        ::getnameinfo(found->ai_addr, static_cast<socklen_t>(found->ai_addrlen), text, sizeof text, nullptr, 0,
                      NI_NUMERICHOST) != 0)
        RefuseUrl(url, host + (isAddress ? " is no IPv4 address" : " is unknown"));
    if (isAddress && host != text) // "10.1" is one for some resolvers
        RefuseUrl(url, host + " is no IPv4 address");
    return text;
}

inline void ParseNetwork(std::string_view url, std::string_view place, vxApiConfig& config)
{
    constexpr std::uint32_t kUsualPort = 9520;
    if (EndsWith(place, "/"))
        place.remove_suffix(1);
    const std::size_t colon = place.find(':');
    const std::string host(place.substr(0, colon));
    const auto isLetter = [](char c) { return Upper(c) >= 'A' && Upper(c) <= 'Z'; };
    for (const char c : host)
        if (!isLetter(c) && std::string_view("0123456789.-_").find(c) == std::string_view::npos)
            RefuseUrl(url, "the host is an IPv4 address such as 192.168.1.50, or a name");
    if (host.empty())
        RefuseUrl(url, "it has no host");
    const auto port = colon == std::string_view::npos ? kUsualPort : Number(place.substr(colon + 1)).value_or(0);
    if (port < 1 || port > 65535)
        RefuseUrl(url, "the port is a number from 1 to 65535");
    config.port = port;
    DottedAddress(url, host).copy(config.host, sizeof config.host - 1);
}

// A long device path is followed to the device that it is a link to.
inline void ParseSerial(std::string_view url, std::string_view place, vxApiConfig& config)
{
    constexpr std::uint32_t kUsualSpeed = 9600;
    TakePrefix(place, "//");
    const std::size_t at = place.rfind('@');
    std::string name(place.substr(0, at));
    const auto speed = at == std::string_view::npos ? kUsualSpeed : Number(place.substr(at + 1)).value_or(0);
    if (speed == 0)
        RefuseUrl(url, "the speed is a number of bits per second, such as 115200");
    std::error_code error;
    if (name.size() >= sizeof config.serialName && name[0] == '/')
        if (const auto device = std::filesystem::canonical(name, error); !error)
            name = device.string();
    if (name.empty() || name.size() >= sizeof config.serialName)
        RefuseUrl(url, "a serial line has a name of up to " + std::to_string(sizeof config.serialName - 1) +
                           " characters, such as serial:/dev/ttyUSB0@115200");
    config.baudRate = speed;
    name.copy(config.serialName, sizeof config.serialName - 1);
}

// Takes "udp://HOST[:PORT]", "tcp://HOST[:PORT]" and "serial:NAME[@BAUD]".
inline void ParseUrl(std::string_view url, vxApiConfig& config)
{
    std::string_view place = url;
    if (TakePrefix(place, "udp://"))
        config.kind = VX_CHANNEL_UDP;
    else if (TakePrefix(place, "tcp://"))
        config.kind = VX_CHANNEL_TCP;
    else if (TakePrefix(place, "serial:"))
        config.kind = VX_CHANNEL_SERIAL;
    else
        RefuseUrl(url, "it is none of udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD");
    if (url.find('\0') != std::string_view::npos)
        RefuseUrl(url, "it has a NUL");
    config.kind == VX_CHANNEL_SERIAL ? ParseSerial(url, place, config) : ParseNetwork(url, place, config);
}

} // namespace vxsign::detail

#endif
