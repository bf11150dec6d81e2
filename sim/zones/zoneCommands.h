#pragma once

#include "sim/files/drives.h"
#include "sim/files/storedRecord.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/zones/zonePage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

namespace vxsim {

inline constexpr std::size_t kMostZonePages = 12;

// Major 54: pages that are divided into zones, each with content of its own. While zones are enabled the configured
// pages up to the page count take turns on the face. All of it is kept over a restart.
class ZoneCommands
{
public:
    // A page that has its turn, from when on.
    struct Shown
    {
        const ZonePage& page;
        std::uint64_t beginMs;
    };

    // Keeps its files in the folder.
    ZoneCommands(const Drives& drives, std::filesystem::path folder, int faceWidth, int faceHeight);

    Reply Execute(const Frame& request, std::uint64_t nowMs);

    // Nothing while zones are not enabled, and without a configured page.
    std::optional<Shown> ShownAt(std::uint64_t nowMs) const;

private:
    Reply Divide(const Frame& request);
    Reply DivideSpecially(const Frame& request);
    Reply SetZones(std::uint8_t pageNumber, std::uint8_t zoneNumber, ZonePage wanted);
    Reply TellDivision(const Frame& request) const;
    Reply SetDisplay(const Frame& request);
    Reply SetContent(const Frame& request);
    Reply ChangeZones(const Frame& request, std::optional<ZoneStyle> style, bool takesContent, std::uint8_t kind,
                      std::span<const std::uint8_t> data);
    Reply SetPageCount(const Frame& request, std::uint64_t nowMs);
    Reply KeepPage(std::size_t index, std::optional<ZonePage> page);
    Reply KeepSettings(std::uint8_t enabled, std::uint8_t count, std::uint64_t nowMs);
    Code FindPage(std::uint8_t number) const;
    std::filesystem::path PageFile(std::size_t index) const;

    const Drives& drives;
    std::filesystem::path folder;
    int faceWidth;
    int faceHeight;
    StoredRecord settings; // whether zones are enabled, how many pages there are
    std::array<std::optional<ZonePage>, kMostZonePages> pages;
    std::uint64_t startedMs = 0; // when the first page had its first turn
};

} // namespace vxsim
