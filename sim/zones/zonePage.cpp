#include "sim/zones/zonePage.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>

namespace vxsim {
namespace {

// A zone in the file: its area, its style, the kind of its content and how long that is, and then the content.
constexpr std::size_t kStyleAt = kFaceAreaSize;
constexpr std::size_t kKindAt = kStyleAt + ZoneStyle::kSize;
constexpr std::size_t kLengthAt = kKindAt + 1;

void StoreStyle(std::span<std::uint8_t> block, std::size_t at, const ZoneStyle& style)
{
    block[at] = style.entryMode;
    block[at + 1] = style.exitMode;
    Store16(block, at + 2, style.staySeconds);
    block[at + 4] = style.font;
    block[at + 5] = style.colour;
    block[at + 6] = style.red;
    block[at + 7] = style.green;
    block[at + 8] = style.blue;
}

} // namespace

ZoneStyle LoadStyle(std::span<const std::uint8_t> block, std::size_t at)
{
    const auto bytes = block.subspan(at, ZoneStyle::kSize);
    return {bytes[0], bytes[1], Load16(bytes, 2), bytes[4], bytes[5], bytes[6], bytes[7], bytes[8]};
}

std::vector<std::uint8_t> PackPage(const ZonePage& page)
{
    std::vector<std::uint8_t> bytes(kPageHeadSize);
    Store16(bytes, 0, page.staySeconds);
    Store16(bytes, 2, static_cast<std::uint16_t>(page.zones.size()));
    for (const Zone& zone : page.zones) {
        std::array<std::uint8_t, kZoneRecordSize> record{};
        StoreArea(record, 0, zone.area);
        StoreStyle(record, kStyleAt, zone.style);
        record[kKindAt] = static_cast<std::uint8_t>(zone.kind);
        Store16(record, kLengthAt, static_cast<std::uint16_t>(zone.content.size()));
        bytes.insert(bytes.end(), record.begin(), record.end());
        bytes.insert(bytes.end(), zone.content.begin(), zone.content.end());
    }
    return bytes;
}

std::optional<ZonePage> ParsePage(std::span<const std::uint8_t> bytes)
{
    const std::size_t count = Load16(bytes, 2);
    if (bytes.size() < kPageHeadSize || count == 0 || count > kMostZones)
        return std::nullopt;
    ZonePage page{Load16(bytes, 0), {}};
    auto rest = bytes.subspan(kPageHeadSize);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t length = Load16(rest, kLengthAt);
        if (rest.size() < kZoneRecordSize + length || length > kMostZoneContent ||
            rest[kKindAt] > static_cast<std::uint8_t>(ZoneContentKind::kFile))
            return std::nullopt;
        const auto content = rest.subspan(kZoneRecordSize, length);
        page.zones.push_back({LoadArea(rest, 0), LoadStyle(rest, kStyleAt), static_cast<ZoneContentKind>(rest[kKindAt]),
                              std::string(content.begin(), content.end())});
        rest = rest.subspan(kZoneRecordSize + length);
    }
    return page;
}

} // namespace vxsim
