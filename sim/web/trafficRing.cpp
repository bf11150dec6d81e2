#include "sim/web/trafficRing.h"

#include <algorithm>
#include <utility>

namespace vxsim {

void TrafficRing::Add(CarriedPacket packet)
{
    packet.id = ++lastId;
    bytes += packet.Size();
    packets.push_back(std::make_shared<const CarriedPacket>(std::move(packet)));
    while (packets.size() > kMost || bytes > kMostBytes) {
        bytes -= packets.front()->Size();
        packets.pop_front();
    }
}

std::shared_ptr<const CarriedPacket> TrafficRing::Find(std::uint64_t id) const
{
    const std::uint64_t back = lastId - id; // how many came later
    return id == 0 || id > lastId || back >= packets.size() ? nullptr : packets[packets.size() - 1 - back];
}

PacketList TrafficRing::Before(std::uint64_t id, std::size_t most) const
{
    const std::uint64_t later = lastId - std::min(id == 0 ? 0 : id - 1, lastId);
    const std::size_t end = packets.size() - std::min<std::uint64_t>(later, packets.size());
    const std::size_t begin = end - std::min(most, end);
    return {packets.begin() + static_cast<std::ptrdiff_t>(begin), packets.begin() + static_cast<std::ptrdiff_t>(end)};
}

} // namespace vxsim
