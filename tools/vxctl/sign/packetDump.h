// A packet, taken apart for reading.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vxctl {

// Room for any request with a payload and an extended part of 255 bytes, and for any reply.
inline constexpr std::size_t kRequestRoom = 16 + 256 + 255;
inline constexpr std::size_t kReplyRoom = 4608;

// The packet at the start of buffer, cut to what its own header says. Empty when the buffer holds none.
std::vector<std::uint8_t> PacketAt(const std::uint8_t* buffer, std::size_t room);

// One line for each field of a packet from PacketAt: offset, bytes, name and value. Long fields take several lines.
std::string DumpPacket(const std::vector<std::uint8_t>& packet);

// The same as an object: the whole packet as hexadecimal text, and its fields. Null for an empty packet.
nlohmann::ordered_json DescribePacket(const std::vector<std::uint8_t>& packet);

} // namespace vxctl
