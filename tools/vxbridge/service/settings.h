// How a bridge is to run.
#pragma once

#include "vxbridge/mqtt/brokerAddress.h"
#include "vxbridge/sign/sharedFolder.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vxbridge {

struct Settings
{
    std::string bookFile; // "" for the usual one
    std::string id;       // of this bridge
    BrokerAddress broker;
    std::string metrics; // HOST:PORT, "" for none
    std::size_t threads = 32;
    std::uint32_t sessionSeconds = 600;
    SharedFolder folder;
    bool allowsRaw = false;
    std::string homeAssistant; // prefix of its topics, "" for none
};

} // namespace vxbridge
