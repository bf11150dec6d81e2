// A page of zones, and its file.
#pragma once

#include "sim/zones/faceArea.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kMostZones = 20;         // of a page
inline constexpr std::size_t kMostZoneContent = 2048; // bytes of text, or of a path

// How a zone shows its content: codes as in messages, 0 for the sign's own. As records have it: entry and exit mode,
// seconds that a page of text or a picture stays (16 bits), font, colour, and red, green, blue for the colour '/'.
struct ZoneStyle
{
    static constexpr std::size_t kSize = 9;

    std::uint8_t entryMode = 0;
    std::uint8_t exitMode = 0;
    std::uint16_t staySeconds = 0;
    std::uint8_t font = 0;
    std::uint8_t colour = 0;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const ZoneStyle&) const = default;
};

enum class ZoneContentKind : std::uint8_t
{
    kNone = 0,
    kText = 1, // UTF-8
    kFile = 2  // a path on the drives
};

struct Zone
{
    FaceArea area;
    ZoneStyle style = {};
    ZoneContentKind kind = ZoneContentKind::kNone;
    std::string content = {};

    bool operator==(const Zone&) const = default;
};

struct ZonePage
{
    std::uint16_t staySeconds = 0; // 0 for the sign's own time
    std::vector<Zone> zones;

    bool operator==(const ZonePage&) const = default;
};

// The fields of a style from `at` on.
ZoneStyle LoadStyle(std::span<const std::uint8_t> block, std::size_t at);

// A page as the sign keeps it in a file. Parsing gives nothing for bytes that are no page.
std::vector<std::uint8_t> PackPage(const ZonePage& page);
std::optional<ZonePage> ParsePage(std::span<const std::uint8_t> bytes);

// Longest file of a page.
inline constexpr std::size_t kPageHeadSize = 4;
inline constexpr std::size_t kZoneRecordSize = kFaceAreaSize + ZoneStyle::kSize + 3;
inline constexpr std::size_t kMostPageBytes = kPageHeadSize + kMostZones * (kZoneRecordSize + kMostZoneContent);

} // namespace vxsim
