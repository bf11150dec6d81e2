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

bool CommLink::OpenChannel(const Patience& patience)
{
    const auto local = static_cast<std::uint16_t>(localPort);
    const auto remote = static_cast<std::uint16_t>(remotePort);
    try {
        if (auto* udp = dynamic_cast<VXClientUDP*>(channel.get()))
            return udp->Open(local, host.data(), remote);
        if (auto* tcp = dynamic_cast<VXClientTCP*>(channel.get()))
            return tcp->Open(local, host.data(), remote, patience);
        if (auto* serial = dynamic_cast<VXSerialPort*>(channel.get())) {
            serial->Open(FieldText(serialName.data(), serialName.size()), baudRate);
            return true;
        }
    } catch (
        const std::exception&) { // a serial port that cannot be opened; the caller sees what a refused connection gives
    }
    return false;
}

} // namespace vxsign
