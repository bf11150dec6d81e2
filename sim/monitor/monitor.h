// Who watches over the sign, and measures.
#pragma once

#include "sim/files/drives.h"
#include "sim/logs/database.h"
#include "sim/logs/sampleFiles.h"
#include "sim/logs/signLog.h"
#include "sim/logs/warningFiles.h"
#include "sim/monitor/tileMoment.h"
#include "sim/state/climate.h"
#include "sim/state/condition.h"
#include "sim/state/faceLight.h"
#include "sim/state/signClock.h"
#include "sim/state/tiles.h"
#include "sim/state/timeCommands.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace vxsim {

inline constexpr std::size_t kStateWordSize = 8;
inline constexpr std::size_t kStateRecordSize = 96;

struct SignState
{
    std::array<std::uint8_t, kStateWordSize> word{};
    std::array<std::uint8_t, kStateRecordSize> record{};
};

// Watches over the sign: notices faults that come and go, measures, and puts both into logs and files.
class Monitor
{
public:
    // Bits of byte 0 of the state word.
    enum : std::uint8_t
    {
        kBadPixels = 1,
        kHotTiles = 2,
        kDoorOpen = 4,
        kNoPower = 8,
        kFaceDark = 16
    };

    // Measures what `light` and the weather of `time` make of the face.
    Monitor(const std::filesystem::path& signFolder, const Drives& drives, SignDatabase& database,
            const TimeCommands& time, const FaceLight& light, int width, int height);

    // Looks for changes of the condition, a few times a second, and measures when it is time.
    void KeepUp(std::uint64_t nowMs);

    const Condition& Now() const { return condition; }
    const Tiles& FaceTiles() const { return tiles; }
    SignState StateAt(std::uint64_t nowMs) const;
    TileMoment TilesAt(std::uint64_t nowMs) const;

    // Whether the sign wants service at once; the condition alone may have many a lamp dark.
    bool IsAlarmed() const { return !condition.hotTiles.empty(); }

private:
    ClockTime TimeAt(std::uint64_t nowMs) const { return time.Clock().At(nowMs); }
    Climate Measure(std::uint64_t nowMs) const;
    std::uint32_t RunSeconds(std::uint64_t nowMs) const;
    Condition OnFace(Condition told) const;
    void NoteChanges(const Condition& next, const ClockTime& now);
    void Read(std::uint64_t nowMs);
    void WriteTiles(const Climate& climate, std::uint64_t nowMs);

    ConditionFile file;
    SignDatabase& database;
    const TimeCommands& time;
    const FaceLight& light;
    SignLog log;
    WarningFiles warnings;
    SampleFiles samples;
    Tiles tiles;
    int width;
    int height;
    Condition condition;
    std::optional<std::uint64_t> startedMs;
    std::uint64_t nextLookMs = 0;
    std::uint64_t nextReadingMs = 0;
    ClimateSpan span; // since spanBegin
    ClockTime spanBegin;
    bool boxWasHot = false;
};

} // namespace vxsim
