// Makes and opens the channel that the settings name.
#include "channels/CommLink.h"

#include "channels/VXClientTCP.h"
#include "channels/VXClientUDP.h"
#include "channels/VXSerialPort.h"
#include "util/text.h"

#include <vxsign/api.h>

#include <exception>

namespace vxsign {

void CommLink::Initialise(std::uint32_t channelKind, const char* hostText, std::uint32_t port, const char* serialPort,
                          std::uint32_t baud)
{
    remotePort = port;
    baudRate = baud;
    kind = channelKind;
    CopyToField(host.data(), host.size(), FieldText(hostText, host.size()));
    CopyToField(serialName.data(), serialName.size(), FieldText(serialPort, serialName.size()));
    if (kind == VX_CHANNEL_UDP)
        channel = std::make_unique<VXClientUDP>();
    else if (kind == VX_CHANNEL_TCP)
        channel = std::make_unique<VXClientTCP>();
    else if (kind == VX_CHANNEL_SERIAL)
        channel = std::make_unique<VXSerialPort>();
}

bool CommLink::OpenChannel(std::uint32_t timeoutMs)
{
    if (!channel)
        return false;
    const Route route{static_cast<std::uint16_t>(localPort), host.data(), static_cast<std::uint16_t>(remotePort),
                      FieldText(serialName.data(), serialName.size()), baudRate};
    try {
        return channel->Open(route, timeoutMs);
    } catch (const std::exception&) { // a serial port: the caller sees what a refused connection gives
        return false;
    }
}

} // namespace vxsign
