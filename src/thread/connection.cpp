// Puts a connection in the place of the thread's configuration.
#include "thread/connection.h"

#include "util/text.h"

namespace vxsign {

std::uint32_t Connection::Install() const
{
    vxApiConfig config{};
    config.kind = kind;
    CopyToField(config.host, sizeof config.host, FieldText(host, sizeof config.host));
    if (serialName != nullptr)
        CopyToField(config.serialName, sizeof config.serialName, FieldText(serialName, sizeof config.serialName));
    config.port = port;
    config.baudRate = baudRate;
    config.destinationAddress = destinationAddress;
    config.retries = retries;
    config.timeoutMs = timeoutMs;
    config.progressTotal = 1;
    config.progressPos = 1;
    return vxInitAPI(&config);
}

} // namespace vxsign
