#include "sim/traffic/signalProgram.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr unsigned kYellowSeconds = 3;
constexpr unsigned kAllRedSeconds = 2;
constexpr std::uint64_t kYellowMs = std::uint64_t{1000} * kYellowSeconds;
constexpr std::uint64_t kClearMs = kYellowMs + std::uint64_t{1000} * kAllRedSeconds;
constexpr std::uint64_t kLampTestMs = 10000;
constexpr std::uint64_t kFlashMs = 500;

struct Phase
{
    std::uint8_t groups = 0; // bit 0 is group 1
    unsigned greenSeconds = 0;

    constexpr unsigned Seconds() const { return greenSeconds + kYellowSeconds + kAllRedSeconds; }
};

// 50 seconds, which go into a day without rest.
constexpr std::array<Phase, kSignalPhases> kPhases{{{0b000101, 16}, {0b001010, 12}, {0b110000, 7}}};
constexpr unsigned kCycle = 50;
static_assert(kPhases[0].Seconds() + kPhases[1].Seconds() + kPhases[2].Seconds() == kCycle);

bool IsVehicle(std::size_t group)
{
    return group < kVehicleGroups;
}

// Pedestrians have no yellow.
SignalLamps LampsFor(std::uint8_t groups, SignalInterval interval)
{
    SignalLamps lamps;
    for (std::size_t i = 0; i < lamps.size(); ++i) {
        const bool goes = (groups >> i & 1) != 0;
        if (goes && interval == SignalInterval::kGreen)
            lamps[i] = kGreenLamp;
        else
            lamps[i] = goes && interval == SignalInterval::kYellow && IsVehicle(i) ? kYellowLamp : kRedLamp;
    }
    return lamps;
}

SignalLamps Flashing(std::uint64_t nowMs)
{
    SignalLamps lamps{};
    if (nowMs / kFlashMs % 2 == 0)
        std::fill_n(lamps.begin(), kVehicleGroups, std::uint8_t{kYellowLamp});
    return lamps;
}

std::uint64_t Since(std::uint64_t beganMs, std::uint64_t nowMs)
{
    return nowMs - std::min(nowMs, beganMs);
}

std::uint8_t SecondsUntil(std::uint64_t endMs, std::uint64_t nowMs)
{
    const std::uint64_t seconds = (endMs - std::min(endMs, nowMs) + 999) / 1000;
    return static_cast<std::uint8_t>(std::min<std::uint64_t>(seconds, kNoEnd - 1));
}

} // namespace

bool SignalProgram::SetMode(std::uint8_t wanted, std::uint64_t nowMs)
{
    if (wanted > kFlashMode)
        return false;
    Begin(nowMs);
    mode = wanted;
    return true;
}

bool SignalProgram::RunPhase(std::uint8_t groups, std::uint8_t seconds, std::uint64_t nowMs)
{
    const auto isPartOf = [groups](const Phase& phase) { return (groups & ~phase.groups) == 0; };
    if (groups == 0 || std::ranges::none_of(kPhases, isPartOf))
        return false;
    Begin(nowMs);
    temporary = TemporaryPhase{groups, nowMs + kClearMs + std::uint64_t{1000} * seconds};
    return true;
}

void SignalProgram::EndPhase(std::uint64_t nowMs)
{
    if (temporary && nowMs < temporary->endMs)
        Begin(nowMs);
}

void SignalProgram::Reset()
{
    mode = kAutomaticMode;
    change.reset();
    temporary.reset();
    test.reset();
}

// Something else begins: what is lit now has to be cleared first.
void SignalProgram::Begin(std::uint64_t nowMs)
{
    change = Change{nowMs, Cleared(nowMs).lamps};
    temporary.reset();
}

SignalSituation SignalProgram::At(std::uint64_t nowMs) const
{
    SignalSituation now = Cleared(nowMs);
    if (test && Since(test->beganMs, nowMs) < kLampTestMs) {
        now.run = SignalRun::kLampTest;
        now.lamps = test->lamps;
    }
    return now;
}

// The cycle at the clock's time.
SignalSituation SignalProgram::Program(std::uint64_t nowMs) const
{
    const ClockTime time = clock.At(nowMs);
    unsigned second = (time.hour * 3600 + time.minute * 60 + time.second) % kCycle;
    std::size_t index = 0;
    while (second >= kPhases[index].Seconds())
        second -= kPhases[index++].Seconds();
    const Phase& phase = kPhases[index];
    SignalSituation now;
    now.phase = static_cast<std::uint8_t>(index + 1);
    unsigned end = phase.greenSeconds;
    if (second >= end) {
        end += kYellowSeconds;
        now.interval = SignalInterval::kYellow;
    }
    if (second >= end) {
        end += kAllRedSeconds;
        now.interval = SignalInterval::kAllRed;
    }
    now.secondsLeft = static_cast<std::uint8_t>(end - second);
    now.lamps = LampsFor(phase.groups, now.interval);
    return now;
}

// What is to be seen once all has been cleared.
SignalSituation SignalProgram::Wanted(std::uint64_t nowMs) const
{
    SignalSituation now;
    if (temporary && nowMs < temporary->endMs) {
        now.run = SignalRun::kTemporaryPhase;
        now.secondsLeft = SecondsUntil(temporary->endMs, nowMs);
        now.lamps = LampsFor(temporary->groups, SignalInterval::kGreen);
    } else if (mode == kAutomaticMode) {
        now = Program(nowMs);
    } else {
        const bool holds = mode <= kSignalPhases;
        now.run = SignalRun::kManual;
        now.phase = holds ? mode : std::uint8_t{0};
        now.interval = holds ? SignalInterval::kGreen : SignalInterval::kAllRed;
        now.secondsLeft = kNoEnd;
        now.lamps = mode == kFlashMode
                        ? Flashing(nowMs)
                        : LampsFor(holds ? kPhases[mode - 1U].groups : std::uint8_t{0}, SignalInterval::kGreen);
    }
    now.mode = mode;
    return now;
}

SignalSituation SignalProgram::Cleared(std::uint64_t nowMs) const
{
    SignalSituation now = Wanted(nowMs);
    std::optional<Change> last = change;
    if (temporary && nowMs >= temporary->endMs)
        last = Change{temporary->endMs, LampsFor(temporary->groups, SignalInterval::kGreen)};
    if (!last || Since(last->atMs, nowMs) >= kClearMs)
        return now;
    const bool yellow = Since(last->atMs, nowMs) < kYellowMs;
    for (std::size_t i = 0; i < now.lamps.size(); ++i) {
        const std::uint8_t before = last->before[i];
        if (before == kGreenLamp && now.lamps[i] == kGreenLamp) // goes on
            continue;
        const bool clears = yellow && IsVehicle(i) && (before == kGreenLamp || before == kYellowLamp);
        now.lamps[i] = clears ? kYellowLamp : kRedLamp;
    }
    now.interval = yellow ? SignalInterval::kYellow : SignalInterval::kAllRed;
    now.secondsLeft = SecondsUntil(last->atMs + (yellow ? kYellowMs : kClearMs), nowMs);
    return now;
}

} // namespace vxsim
