// What a page is shown, and the way from the sign's thread to the thread that tells it.
#pragma once

#include "sim/face/canvas.h"
#include "sim/platform/descriptor.h"
#include "sim/web/signMoment.h"
#include "sim/web/trafficRing.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace vxsim {

// All that is to be seen of a sign at one time. The parts are shared and never change.
struct Sight
{
    std::shared_ptr<const Canvas> face;
    std::shared_ptr<const SignMoment> moment;
    std::shared_ptr<const PacketList> traffic; // the latest, oldest first
};

// One page that looks on. The sign's thread puts sights into it, of which only the latest is kept: a page that reads
// slowly misses what was between. Neither side waits for the other.
class Viewer
{
public:
    Viewer();
    ~Viewer() { delete latest.load(); }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    void Put(const Sight& sight);

    // The latest sight, waited for that long; nothing if there is none or `stop` can be read.
    std::optional<Sight> Wait(std::chrono::milliseconds longest, const Descriptor& stop);

private:
    Descriptor bell;
    std::atomic<Sight*> latest = nullptr;
};

} // namespace vxsim
