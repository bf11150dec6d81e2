// Phases of an intersection.
#pragma once

#include "sim/state/signClock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace vxsim {

// Groups 1 to 4 are the traffic from north, east, south and west, 5 and 6 the two crossings.
inline constexpr std::size_t kVehicleGroups = 4;
inline constexpr std::size_t kSignalGroups = 6;
inline constexpr std::uint8_t kSignalPhases = 3;
inline constexpr std::uint8_t kNoEnd = 255; // seconds

enum SignalLamp : std::uint8_t
{
    kRedLamp = 1,
    kYellowLamp = 2,
    kGreenLamp = 4
};

// The lamps of each group that are lit.
using SignalLamps = std::array<std::uint8_t, kSignalGroups>;

enum class SignalRun : std::uint8_t
{
    kAutomatic,
    kManual,
    kTemporaryPhase,
    kLampTest
};

enum class SignalInterval : std::uint8_t
{
    kGreen,
    kYellow,
    kAllRed
};

// What the intersection does at one time.
struct SignalSituation
{
    SignalRun run = SignalRun::kAutomatic;
    std::uint8_t mode = 0;
    std::uint8_t phase = 0; // that has green or has just had it; 0 if none of the program
    SignalInterval interval = SignalInterval::kGreen;
    std::uint8_t secondsLeft = 0; // of the interval
    SignalLamps lamps{};
};

// The signals of an intersection: a cycle of phases that follows the clock of day, and what interrupts it. Whatever
// takes green away from a group gives it yellow first, and then red to all. Times are the caller's, in milliseconds.
class SignalProgram
{
public:
    enum Mode : std::uint8_t
    {
        kAutomaticMode = 0, // 1 to kSignalPhases hold that phase
        kAllRedMode = 4,
        kFlashMode = 5
    };

    explicit SignalProgram(const SignClock& signClock) : clock(signClock) {}

    // Ends a temporary phase too. False for an unknown mode.
    bool SetMode(std::uint8_t mode, std::uint64_t nowMs);

    // Green for these groups, bit 0 being group 1; the mode goes on afterwards. False for no group, and for groups that
    // would be in each other's way.
    bool RunPhase(std::uint8_t groups, std::uint8_t seconds, std::uint64_t nowMs);
    void EndPhase(std::uint64_t nowMs);

    // Lights exactly these lamps for ten seconds. The program goes on behind them.
    void TestLamps(const SignalLamps& lamps, std::uint64_t nowMs) { test = LampTest{lamps, nowMs}; }
    void EndTest() { test.reset(); }

    // As after a restart: automatic, no test.
    void Reset();

    SignalSituation At(std::uint64_t nowMs) const;

private:
    struct Change
    {
        std::uint64_t atMs = 0;
        SignalLamps before{};
    };
    struct TemporaryPhase
    {
        std::uint8_t groups = 0;
        std::uint64_t endMs = 0;
    };
    struct LampTest
    {
        SignalLamps lamps{};
        std::uint64_t beganMs = 0;
    };

    void Begin(std::uint64_t nowMs);
    SignalSituation Program(std::uint64_t nowMs) const;
    SignalSituation Wanted(std::uint64_t nowMs) const;
    SignalSituation Cleared(std::uint64_t nowMs) const;

    const SignClock& clock;
    std::uint8_t mode = kAutomaticMode;
    std::optional<Change> change;
    std::optional<TemporaryPhase> temporary;
    std::optional<LampTest> test;
};

} // namespace vxsim
