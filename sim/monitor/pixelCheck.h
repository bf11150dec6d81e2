// Commands for the check of all pixels.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/drives.h"
#include "sim/logs/database.h"
#include "sim/monitor/monitor.h"
#include "sim/state/signClock.h"
#include "sim/state/tiles.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {

// Major 16: the check of all pixels. It lasts a few seconds and ends with its results in the files D:\PXL.CSV,
// D:\SIGNAL.CSV and C:\PIXEL.SYS and in the tables PixelStatus and PixelSignalErr.
class PixelCheck : public CommandFamily
{
public:
    static constexpr std::uint64_t kDurationMs = 4000;

    PixelCheck(const Drives& drives, SignDatabase& database, const Monitor& monitor, const SignClock& clock, int width,
               int height);

    std::span<const CommandRow> Commands() const override;
    Reply Execute(const Call& call) override;

    // Ends the check when its time is over, with what is bad then.
    void KeepUp(std::uint64_t nowMs) override;

    // Ends it without results.
    void Restart(std::uint64_t, bool) override { startedMs.reset(); }

private:
    Reply Begin(const Call& call);
    Reply TellProgress(const Call& call);
    std::uint8_t Percent(std::uint64_t nowMs) const;
    void WriteResults(const Condition& condition, const std::string& time);
    void WriteFile(const char* signPath, const std::string& text) const;
    std::string Summary(const Condition& condition) const;

    const Drives& drives;
    SignDatabase& database;
    const Monitor& monitor;
    const SignClock& clock;
    Tiles tiles;
    std::size_t lamps;
    std::optional<std::uint64_t> startedMs;
};

} // namespace vxsim
