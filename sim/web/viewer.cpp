#include "sim/web/viewer.h"

#include "sim/web/bell.h"

#include <array>
#include <poll.h>
#include <utility>

namespace vxsim {

Viewer::Viewer() : bell(MakeBell())
{
}

void Viewer::Put(const Sight& sight)
{
    const std::unique_ptr<Sight> missed(latest.exchange(new Sight(sight), std::memory_order_acq_rel));
    Ring(bell);
}

std::optional<Sight> Viewer::Wait(std::chrono::milliseconds longest, const Descriptor& stop)
{
    std::array<pollfd, 2> watched{{{bell.Get(), POLLIN, 0}, {stop.Get(), POLLIN, 0}}};
    ::poll(watched.data(), watched.size(), static_cast<int>(longest.count()));
    if (watched[0].revents == 0 || watched[1].revents != 0)
        return std::nullopt;
    Silence(bell);
    const std::unique_ptr<Sight> sight(latest.exchange(nullptr, std::memory_order_acq_rel));
    return sight ? std::optional(std::move(*sight)) : std::nullopt;
}

} // namespace vxsim
