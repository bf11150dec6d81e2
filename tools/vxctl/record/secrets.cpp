// Blanks what is nobody's business.
#include "vxctl/record/secrets.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/record/signPacket.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::size_t kToEnd = SIZE_MAX;

enum class Part : std::uint8_t
{
    kPayload,
    kExtended
};

struct Secret
{
    std::uint8_t major;
    std::uint8_t minor;
    bool ofReplies; // in what the sign answers
    Part part;
    std::size_t begin;
    std::size_t size;
};

constexpr Secret kSecrets[] = {
    {10, 1, false, Part::kPayload, 14, 6},        // log in: behind the user
    {10, 3, false, Part::kPayload, 14, 14},       // change password: the old and the new one
    {10, 48, true, Part::kExtended, 0, kToEnd},   // server table: only the sign knows what its records hold
    {96, 96, false, Part::kPayload, 0, kToEnd},   // unlock Wi-Fi
    {96, 96, false, Part::kExtended, 0, kToEnd},  //
    {96, 97, false, Part::kExtended, 24, kToEnd}, // set Wi-Fi: behind the name
    {96, 98, false, Part::kExtended, 24, kToEnd}, // get Wi-Fi: the block goes there and back
    {96, 98, true, Part::kExtended, 24, kToEnd},  //
};

// The packet at the start of the bytes, of which some may be missing.
void Blank(std::span<std::uint8_t> packet)
{
    const bool isReply = (packet[1] & 1U) == 0;
    const std::size_t payload = std::size_t{4} * packet[14];
    for (const Secret& secret : kSecrets) {
        if (secret.major != packet[12] || secret.minor != packet[13] || secret.ofReplies != isReply)
            continue;
        const std::size_t start = kPacketHeader + (secret.part == Part::kExtended ? payload : 0) + secret.begin;
        const std::size_t end =
            secret.part == Part::kExtended ? packet.size() : std::min(packet.size(), kPacketHeader + payload);
        if (start < end)
            std::ranges::fill(packet.subspan(start, std::min(secret.size, end - start)), std::uint8_t{'*'});
    }
}

} // namespace

void BlankSecrets(std::span<std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        if (!BeginsPacket(bytes) || bytes.size() < kPacketHeader) {
            bytes = bytes.subspan(1);
            continue;
        }
        const std::size_t size = std::min(DeclaredSize(bytes), bytes.size());
        const bool isGood = DeclaredSize(bytes) <= bytes.size() && SignPacket(bytes).IsGood();
        Blank(bytes.first(size));
        if (isGood)
            Store(bytes.subspan(2, 2), ChecksumOf(bytes.first(size)));
        bytes = bytes.subspan(isGood ? size : 1); // what looked like a packet may have one in it
    }
}

bool MayHoldSecret(std::span<const std::uint8_t> begun)
{
    return BeginsPacket(begun) &&
           (begun.size() < kPacketHeader || std::ranges::any_of(kSecrets, [begun](const Secret& secret) {
                return secret.major == begun[12] && secret.minor == begun[13];
            }));
}

} // namespace vxctl
