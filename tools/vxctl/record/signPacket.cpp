// Finds packets of signs.
#include "vxctl/record/signPacket.h"

#include "vxctl/cli/bytes.h"

#include <vxsign/result.h>

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::uint8_t kSync = 0x55;
constexpr std::uint8_t kSumRequest = 0xA7;
constexpr std::uint8_t kSumReply = 0xA8;
constexpr std::uint8_t kKinds[] = {kSumRequest, kSumReply, 0xA3, 0xA4, 0xB1, 0xB2}; // behind the sums those with CRC

} // namespace

bool BeginsPacket(std::span<const std::uint8_t> bytes)
{
    return !bytes.empty() && bytes[0] == kSync &&
           (bytes.size() == 1 || std::ranges::find(kKinds, bytes[1]) != std::end(kKinds));
}

std::size_t DeclaredSize(std::span<const std::uint8_t> bytes)
{
    return bytes.size() < kPacketHeader ? 0 : kPacketHeader + std::size_t{4} * bytes[14] + Load16(bytes, 4);
}

bool SignPacket::IsGood() const
{
    return Load16(bytes, 2) == ChecksumOf(bytes);
}

std::uint16_t SignPacket::Id() const
{
    return Load16(bytes, 10);
}

std::uint16_t ChecksumOf(std::span<const std::uint8_t> packet)
{
    const bool isSum = packet[1] == kSumRequest || packet[1] == kSumReply;
    return static_cast<std::uint16_t>(
        vxChkSum(packet.data(), 4, static_cast<std::uint32_t>(packet.size()), isSum ? 0 : 1));
}

Found LookAt(std::span<const std::uint8_t> bytes)
{
    if (!BeginsPacket(bytes)) {
        std::size_t size = 1;
        while (size < bytes.size() && !BeginsPacket(bytes.subspan(size)))
            ++size;
        return {Found::What::kNoise, size};
    }
    const std::size_t declared = DeclaredSize(bytes);
    return declared == 0 || declared > bytes.size() ? Found{Found::What::kBegun, bytes.size()}
                                                    : Found{Found::What::kPacket, declared};
}

} // namespace vxctl
