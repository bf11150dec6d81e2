// What one page is told while it looks on.
#pragma once

#include "sim/web/signDesk.h"
#include "sim/web/viewer.h"

#include <chrono>
#include <cstdint>
#include <httplib.h>
#include <memory>
#include <optional>
#include <string>

namespace vxsim {

// Server-sent events: "sign" first, then "face", "state" and "traffic" whenever there is news, and "alive" where there
// is none for long. Each tells what this page does not know yet.
class EventStream
{
public:
    // `sign` is what the event of that name says. Throws SignGone.
    EventStream(SignDesk& desk, const Descriptor& stop, const std::string& sign);
    ~EventStream();
    EventStream(const EventStream&) = delete;
    EventStream& operator=(const EventStream&) = delete;

    // Waits for news for a moment and writes it. False if the page has gone.
    bool Tell(httplib::DataSink& sink);

private:
    using Clock = std::chrono::steady_clock;

    std::string News(const Sight& sight);

    SignDesk& desk;
    const Descriptor& stop;
    std::shared_ptr<Viewer> viewer;
    std::string unsaid; // what is told at first
    std::optional<Canvas> face;
    std::shared_ptr<const SignMoment> moment;
    std::uint64_t lastPacket = 0;
    Clock::time_point lastTold = Clock::now();
};

} // namespace vxsim
