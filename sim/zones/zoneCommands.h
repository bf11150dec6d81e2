// Commands for zones.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/drives.h"
#include "sim/files/storedRecord.h"
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
class ZoneCommands : public CommandFamily
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

    std::span<const CommandRow> Commands() const override;

    // Nothing while zones are not enabled, and without a configured page.
    std::optional<Shown> ShownAt(std::uint64_t nowMs) const;

private:
    Reply Divide(const Call& call);
    Reply DivideSpecially(const Call& call);
    Reply TellDivision(const Call& call);
    Reply SetDisplay(const Call& call);
    Reply SetContent(const Call& call);
    Reply Enable(const Call& call);
    Reply SetPageCount(const Call& call);
    Reply TellSettings(const Call& call);

    Reply SetZones(std::uint8_t pageNumber, std::uint8_t zoneNumber, ZonePage wanted);
    Reply ChangeZones(const Call& call, std::optional<ZoneStyle> style, bool takesContent, std::uint8_t kind,
                      std::span<const std::uint8_t> data);
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
