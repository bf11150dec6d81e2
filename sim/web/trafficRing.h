// The traffic of the sign, kept for those who look on.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace vxsim {

// A request and its reply, as they went over a line.
struct CarriedPacket
{
    std::uint64_t id = 0;
    std::int64_t timeMs = 0; // since 1970, UTC
    std::uint32_t host = 0;  // IPv4, first octet in the top byte; 0 for a serial line
    std::uint64_t line = 0;  // as Arrival::line
    std::string name;        // of the command
    std::uint16_t code = 0;  // of the refusal
    std::string remark;
    std::int64_t tookUs = 0;
    std::vector<std::uint8_t> request;
    std::vector<std::uint8_t> reply; // as it went out; empty if nothing did

    std::size_t Size() const { return sizeof *this + name.size() + remark.size() + request.size() + reply.size(); }
};

using PacketList = std::vector<std::shared_ptr<const CarriedPacket>>;

// The latest of them, whose ids follow each other.
class TrafficRing
{
public:
    static constexpr std::size_t kMost = 10000;
    static constexpr std::size_t kMostBytes = 64U << 20;

    // Gives it its id, from 1 on. The oldest make room.
    void Add(CarriedPacket packet);

    std::uint64_t LastId() const { return lastId; }
    std::size_t Bytes() const { return bytes; }

    // Null if it is no longer there, or not yet.
    std::shared_ptr<const CarriedPacket> Find(std::uint64_t id) const;

    // Up to `most` of those before `id`, the latest of them, oldest first; all of them for the highest number.
    PacketList Before(std::uint64_t id, std::size_t most) const;

private:
    std::deque<std::shared_ptr<const CarriedPacket>> packets;
    std::uint64_t lastId = 0;
    std::size_t bytes = 0;
};

} // namespace vxsim
