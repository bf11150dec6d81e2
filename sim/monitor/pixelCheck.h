#pragma once

#include "sim/files/drives.h"
#include "sim/logs/database.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/state/condition.h"
#include "sim/state/signClock.h"
#include "sim/state/tiles.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {

// Major 16: the check of all pixels. It lasts a few seconds and ends with its results in the files D:\PXL.CSV,
// D:\SIGNAL.CSV and C:\PIXEL.SYS and in the tables PixelStatus and PixelSignalErr.
class PixelCheck
{
public:
    static constexpr std::uint64_t kDurationMs = 4000;

    PixelCheck(const Drives& drives, SignDatabase& database, int width, int height);

    Reply Execute(const Frame& request, const Condition& condition, const SignClock& clock, std::uint64_t nowMs);

    // Ends the check when its time is over, with what is bad then.
    void KeepUp(const Condition& condition, const SignClock& clock, std::uint64_t nowMs);

    // A restart ends it without results.
    void Stop() { startedMs.reset(); }

private:
    std::uint8_t Percent(std::uint64_t nowMs) const;
    void WriteResults(const Condition& condition, const std::string& time);
    void WriteFile(const char* signPath, const std::string& text) const;
    std::string Summary(const Condition& condition) const;

    const Drives& drives;
    SignDatabase& database;
    Tiles tiles;
    std::size_t lamps;
    std::optional<std::uint64_t> startedMs;
};

} // namespace vxsim
