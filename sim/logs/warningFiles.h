// The files that warn of what is wrong.
#pragma once

#include "sim/files/drives.h"
#include "sim/state/climate.h"
#include "sim/state/condition.h"
#include "sim/state/signClock.h"
#include "sim/state/tiles.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>

namespace vxsim {

enum class WarningType : std::uint8_t
{
    kInside = 1,
    kOutside = 2,
    kTile = 3,
    kLamp = 4
};

// One warning: the record of the ring but for its time.
struct Warning
{
    WarningType type = WarningType::kInside;
    std::array<std::uint8_t, 4> values{};

    static Warning Temperature(WarningType type, int degrees, int limit);
    static Warning HotTile(int address);
    static Warning BadLamp(const LampPlace& place, LampFault fault);
};

// The files that tell hosts what is wrong: the ring E:\STATUS.SYS and D:\log\vxspeapp.log have what happened, the
// report E:\errors.xml what is. Hosts may delete them; a sign that lacks the drive goes without.
class WarningFiles
{
public:
    static constexpr std::size_t kRingPairs = 256; // of time stamp and warning
    static constexpr std::size_t kLogRows = 255;

    WarningFiles(const Drives& signDrives, Tiles signTiles) : drives(signDrives), tiles(signTiles) {}

    void Add(std::span<const Warning> warnings, const ClockTime& time) const;
    void Report(const Condition& condition, const Climate& climate, const ClockTime& time) const;

private:
    void AddToRing(std::span<const Warning> warnings, const ClockTime& time) const;
    void AddToLog(std::span<const Warning> warnings, const ClockTime& time) const;

    const Drives& drives;
    Tiles tiles;
};

} // namespace vxsim
