// Which channel a command uses, and how it is opened.
#pragma once

#include "channels/VXCommBase.h"

#include <array>
#include <cstdint>
#include <memory>

namespace vxsign {

/// The settings of one channel, and the channel.
class CommLink
{
public:
    /// Takes over the settings and makes the channel of that kind (vxChannelKind); an unknown kind makes none. Texts
    /// are cut to their fields. Nothing is opened yet.
    void Initialise(std::uint32_t channelKind, const char* hostText, std::uint32_t port, const char* serialPort,
                    std::uint32_t baud);

    /// False when there is no channel or it could not be opened, whatever the reason.
    bool OpenChannel(std::uint32_t timeoutMs);

    std::array<char, 32> host{"169.254.10.49"};
    std::array<char, 16> serialName{"COM1"};
    std::uint32_t remotePort = 9520;
    std::uint32_t localPort = 0; // any
    std::uint32_t baudRate = 9600;
    std::uint32_t kind = 0;
    std::unique_ptr<VXCommBase> channel;
};

} // namespace vxsign
