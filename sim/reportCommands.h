// Commands that ask the sign about itself.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/files/drives.h"
#include "sim/logs/database.h"
#include "sim/logs/refusalLog.h"
#include "sim/monitor/monitor.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace vxsim {

struct SignCounters
{
    std::uint32_t answered = 0;  // requests, refused ones included
    std::uint32_t refused = 0;   // answered with a code that is no answer
    std::uint32_t malformed = 0; // left without an answer
    std::uint32_t filesWritten = 0;

    bool operator==(const SignCounters&) const = default;
};

class ReportCommands : public CommandFamily
{
public:
    // Lines about the face at that time.
    using FaceText = std::function<std::string(std::uint64_t nowMs)>;

    // Counts what the observers are told of.
    ReportCommands(const Drives& drives, const Monitor& monitor, SignDatabase& database, SignObservers& observers,
                   int faceWidth, int faceHeight, FaceText faceText);

    std::span<const CommandRow> Commands() const override;

    void CountMalformed() { ++counters.malformed; }
    const SignCounters& Counters() const { return counters; }

private:
    Reply TellSettings(const Call& call);
    Reply TellState(const Call& call);
    Reply TellSystem(const Call& call);
    Reply TellRefusals(const Call& call);
    Reply QueryDatabase(const Call& call);
    Reply TellStatistics(const Call& call);

    const Drives& drives;
    const Monitor& monitor;
    SignDatabase& database;
    int width;
    int height;
    FaceText face;
    SignCounters counters;
    RefusalLog refusals;
};

} // namespace vxsim
