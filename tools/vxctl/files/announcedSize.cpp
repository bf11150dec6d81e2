// Asks for the first packet of a file.
#include "vxctl/files/announcedSize.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/sign/packetDump.h"

#include <vxsign/result.h>
#include <vxsign/test.h>

#include <array>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint8_t kRead = 1;
constexpr std::uint8_t kSystemFile = 2;
constexpr std::uint8_t kPath = 17;
constexpr std::size_t kSystemNameSize = 12;

// What the request for a file says: with a name chunk size and packet number stand behind it, with a path ahead.
std::vector<std::uint8_t> FirstPacket(const std::string& path, bool isSystem, std::uint32_t chunk)
{
    const auto low = static_cast<std::uint8_t>(chunk);
    const auto high = static_cast<std::uint8_t>(chunk >> 8U);
    std::vector<std::uint8_t> record;
    if (isSystem) {
        record.assign(path.begin(), path.end());
        record.resize(kSystemNameSize);
        record.insert(record.end(), {low, high, 1, 0});
    } else {
        record = {low, high, 0, 0, 1, 0, 0, 0};
        record.insert(record.end(), path.begin(), path.end());
        record.push_back(0);
    }
    return record;
}

// The last 32 bits of a payload of two words, the first 16 of any other.
std::uint32_t SizeIn(const std::vector<std::uint8_t>& reply)
{
    const std::size_t words = reply[14];
    if (words == 0)
        return 0;
    return words == 2 ? Load32(reply, 20) : Load16(reply, 16);
}

} // namespace

std::uint32_t AskSize(const std::string& path, bool isSystem, std::uint32_t chunk, std::uint32_t& size)
{
    const auto record = FirstPacket(path, isSystem, chunk);
    std::array<std::uint8_t, kReplyRoom> replyOut{};
    const std::uint32_t result =
        vxCustomTest(kRead, isSystem ? kSystemFile : kPath, record.data(), static_cast<std::uint8_t>(record.size()),
                     nullptr, 0, 0, nullptr, nullptr, replyOut.data(), nullptr);
    const auto reply = PacketAt(replyOut.data(), replyOut.size());
    if (result == VX_OK && !reply.empty())
        size = SizeIn(reply);
    return result;
}

} // namespace vxctl
