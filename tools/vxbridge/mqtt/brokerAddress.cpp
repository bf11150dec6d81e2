#include "vxbridge/mqtt/brokerAddress.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/login.h"
#include "vxctl/cli/numbers.h"

#include <optional>
#include <string_view>
#include <utility>

namespace vxbridge {

namespace {

constexpr std::uint16_t kPlainPort = 1883;
constexpr std::uint16_t kSecretPort = 8883;

} // namespace

void ParseBrokerUrl(const std::string& url, BrokerAddress& address)
{
    const vxctl::UsageError wrong("'" + url + "' names no broker: mqtt://HOST[:PORT] or mqtts://HOST[:PORT]");
    std::string_view rest = url;
    address.isSecret = rest.starts_with("mqtts://");
    if (!address.isSecret && !rest.starts_with("mqtt://"))
        throw wrong;
    rest.remove_prefix(rest.find("//") + 2);
    const std::size_t colon = rest.rfind(':');
    address.host = rest.substr(0, colon);
    address.port = address.isSecret ? kSecretPort : kPlainPort;
    if (colon != std::string_view::npos) {
        const auto port = vxctl::ParseNumber(rest.substr(colon + 1));
        if (!port || *port == 0 || *port > UINT16_MAX)
            throw wrong;
        address.port = static_cast<std::uint16_t>(*port);
    }
    if (address.host.empty() || address.host.find_first_of("/@?") != std::string::npos)
        throw wrong;
}

std::string ReadSecret(const std::string& file)
{
    std::optional<std::string> line = vxctl::FirstLineOf(file);
    if (!line)
        throw vxctl::UsageError("cannot read " + file);
    return std::move(*line);
}

} // namespace vxbridge
