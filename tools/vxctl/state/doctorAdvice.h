// What doctor may find, and what it tells to look at then.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vxctl {

enum class Trouble : std::uint8_t
{
    kNone,
    kDeadLine,
    kDeadSerialLine,
    kNoConnection,
    kNoise,
    kBadSums,
    kWrongIds,
    kLateAnswers,
    kLostPackets,
    kSlowLine,
    kLoginWanted,
    kNoState,
    kNoClock,
    kWrongClock,
    kNoSystemDrive,
    kScarceDrive,
    kNoPixelProgress,
    kPixelCheckRuns,
    kNoPixelTables,
    kNeverChecked,
    kBadLamps,
    kBadSignals,
    kNoWarningReport,
    kWarnings
};

struct DoctorAdvice
{
    Trouble trouble;
    std::string_view check;
    std::string_view cause; // empty where the sign tells it
    std::string_view next;  // a command that leaves the sign as it is, with @ for what the finding brings along
    std::string_view usual; // what stands for @ in a list of all
};

// All that doctor may tell.
std::span<const DoctorAdvice> AllDoctorAdvice();

const DoctorAdvice& AdviceFor(Trouble trouble);

// The command of the advice, with this in the place of its @.
std::string NextCommand(const DoctorAdvice& advice, std::string_view brought);

} // namespace vxctl
