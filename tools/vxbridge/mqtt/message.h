// What comes from the broker, and what goes there.
#pragma once

#include "vxbridge/mqtt/unanswered.h"

#include <string>

namespace vxbridge {

struct Message
{
    std::string topic;
    std::string payload;
    std::string responseTopic;
    std::string correlation;
    bool isRedelivered = false; // it went out before, and may have been begun
    Receipt receipt = nullptr;  // null when nobody waits for it
};

struct Publication
{
    std::string topic;
    std::string payload;
    bool isRetained = true;
    std::string correlation = {};
    bool isRedelivered = false;
};

} // namespace vxbridge
