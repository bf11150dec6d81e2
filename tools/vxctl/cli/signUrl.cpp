// Takes URLs apart and finds hosts.
#include "vxctl/cli/signUrl.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/platform/network.h"

#include <vxsign/api.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace vxctl {

namespace {

constexpr std::string_view kForms = "udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD";

[[noreturn]] void Refuse(std::string_view url, const std::string& reason)
{
    throw UsageError("'" + std::string(url) + "' names no sign: " + reason);
}

// Whether text starts with prefix, without regard to case; if so it loses it.
bool TakePrefix(std::string_view& text, std::string_view prefix)
{
    const auto same = [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; };
    if (text.size() < prefix.size() || !std::equal(prefix.begin(), prefix.end(), text.begin(),
                                                   [&same](char lower, char given) { return same(given, lower); }))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool IsHostCharacter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '-' || c == '_';
}

SignUrl ParseNetwork(std::string_view url, std::string_view place, std::uint32_t kind)
{
    if (!place.empty() && place.back() == '/')
        place.remove_suffix(1);
    const std::size_t colon = std::min(place.find(':'), place.size());
    SignUrl parsed{kind, std::string(place.substr(0, colon)), kDefaultPort, {}, 0};
    if (parsed.host.empty() || !std::all_of(parsed.host.begin(), parsed.host.end(), IsHostCharacter))
        Refuse(url, "the host is an IPv4 address such as 192.168.1.50, or a name");
    // A host of digits and dots alone is meant as an address: nobody but the sign itself should ever get its traffic.
    const bool isAddress = parsed.host.find_first_not_of("0123456789.") == std::string::npos;
    if (isAddress && !platform::IsAddress(parsed.host))
        Refuse(url, parsed.host + " is no IPv4 address");
    if (colon == place.size())
        return parsed;
    const auto port = ParseNumber(place.substr(colon + 1));
    if (!port || *port < 1 || *port > 65535)
        Refuse(url, "the port is a number from 1 to 65535");
    parsed.port = static_cast<std::uint16_t>(*port);
    return parsed;
}

SignUrl ParseSerial(std::string_view url, std::string_view place)
{
    TakePrefix(place, "//");
    const std::size_t at = std::min(place.rfind('@'), place.size());
    SignUrl parsed{VX_CHANNEL_SERIAL, {}, 0, std::string(place.substr(0, at)), kDefaultBaudRate};
    if (parsed.serialName.empty())
        Refuse(url, "a serial line needs its name, such as serial:/dev/ttyUSB0@115200");
    if (at == place.size())
        return parsed;
    const auto baudRate = ParseNumber(place.substr(at + 1));
    if (!baudRate || *baudRate == 0)
        Refuse(url, "the speed is a number of bits per second, such as 115200");
    parsed.baudRate = *baudRate;
    return parsed;
}

} // namespace

SignUrl ParseSignUrl(std::string_view text)
{
    std::string_view place = text;
    if (TakePrefix(place, "udp://"))
        return ParseNetwork(text, place, VX_CHANNEL_UDP);
    if (TakePrefix(place, "tcp://"))
        return ParseNetwork(text, place, VX_CHANNEL_TCP);
    if (TakePrefix(place, "serial:"))
        return ParseSerial(text, place);
    Refuse(text, "it is none of " + std::string(kForms));
}

SignUrl Resolve(SignUrl url)
{
    if (url.kind != VX_CHANNEL_SERIAL) {
        url.host = platform::DottedAddress(url.host);
        return url;
    }
    constexpr std::size_t room = sizeof vxApiConfig::serialName;
    if (url.serialName.size() >= room && url.serialName.front() == '/') {
        std::error_code error;
        const std::filesystem::path device = std::filesystem::canonical(url.serialName, error);
        if (!error)
            url.serialName = device.string();
    }
    if (url.serialName.size() >= room)
        throw UsageError("the serial name '" + url.serialName + "' has more than " + std::to_string(room - 1) +
                         " characters");
    return url;
}

} // namespace vxctl
