#include "sim/traffic/trafficCommands.h"

#include <algorithm>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kManual = 2, // log out without a payload
    kMonitor = 5,
    kStatus = 6,
    kTestGroups = 8,
    kTestByKind = 9,
    kFlow = 13,
    kTemporaryPhase = 16,
    kRealStatus = 17
};

constexpr std::size_t kWord = 4;
constexpr std::size_t kQuerySize = 8;
constexpr std::size_t kPhaseSize = 32;
constexpr std::size_t kFlagAt = 31;
constexpr std::uint8_t kUsualSeconds = 10;
constexpr std::uint8_t kKnownMonitor = 4;

} // namespace

bool TrafficCommands::Takes(const Frame& request)
{
    switch (request.minor) {
    case kManual:
        return !request.payload.empty();
    case kMonitor:
    case kStatus:
    case kTestGroups:
    case kTestByKind:
    case kFlow:
    case kTemporaryPhase:
    case kRealStatus:
        return true;
    default:
        return false;
    }
}

Reply TrafficCommands::Execute(const Frame& request, std::uint64_t nowMs)
{
    if (request.minor == kStatus)
        return Reply::WithExtended(StatusBlock(MomentAt(nowMs)));
    if (request.payload.size() < kWord)
        return Reply::WithCode(Code::kBadLength);
    const std::uint8_t first = request.payload[0];
    switch (request.minor) {
    case kManual:
        return program.SetMode(first, nowMs) ? Reply::Done() : Reply::WithCode(Code::kNotSupported);
    case kMonitor:
        return first == kKnownMonitor ? Reply::WithExtended(MonitorBlock(MomentAt(nowMs)))
                                      : Reply::WithCode(Code::kNotSupported);
    case kRealStatus:
        return first == 0 ? Reply::WithExtended(RealBlock(MomentAt(nowMs))) : Reply::WithCode(Code::kNotSupported);
    case kTestGroups:
    case kTestByKind:
        return TestLamps(request, nowMs);
    case kFlow:
        if (request.payload.size() < kQuerySize)
            return Reply::WithCode(Code::kBadLength);
        return FlowOf(request.payload, clock.At(nowMs)).value_or(Reply::WithCode(Code::kNotSupported));
    case kTemporaryPhase:
        return RunPhase(request, nowMs);
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

// A byte of lamps for each group. JKB has them in the order of the groups, JKC the vehicles apart from the crossings.
// No lamps at all end the test.
Reply TrafficCommands::TestLamps(const Frame& request, std::uint64_t nowMs)
{
    const bool byKind = request.minor == kTestByKind;
    const std::size_t first = request.payload[0];
    const std::size_t second = byKind ? request.payload[1] : 0;
    if (request.extended.size() != first + second)
        return Reply::WithCode(Code::kBadLength);
    if (request.extended.empty()) {
        program.EndTest();
        return Reply::Done();
    }
    SignalLamps lit{};
    const auto put = [](std::span<const std::uint8_t> lamps, std::span<std::uint8_t> groups) {
        std::copy_n(lamps.begin(), std::min(lamps.size(), groups.size()), groups.begin());
    };
    put(request.extended.first(first), std::span(lit).first(byKind ? kVehicleGroups : kSignalGroups));
    put(request.extended.subspan(first), std::span(lit).subspan(kVehicleGroups));
    program.TestLamps(lit, nowMs);
    return Reply::Done();
}

// Byte 0 has the groups, byte 1 the seconds; the flag 0 ends the phase.
Reply TrafficCommands::RunPhase(const Frame& request, std::uint64_t nowMs)
{
    if (request.payload.size() < kPhaseSize)
        return Reply::WithCode(Code::kBadLength);
    if (request.payload[kFlagAt] == 0) {
        program.EndPhase(nowMs);
        return Reply::Done();
    }
    const std::uint8_t seconds = request.payload[1] != 0 ? request.payload[1] : kUsualSeconds;
    const std::uint8_t groups = request.payload[0];
    if (program.RunPhase(groups, seconds, nowMs))
        return Reply::Done();
    if (groups != 0)
        files.AddError(TrafficError::kGreenConflict, clock.At(nowMs));
    return Reply::WithCode(Code::kNotSupported);
}

void TrafficCommands::Restart(std::uint64_t nowMs)
{
    program.Reset();
    files.AddError(TrafficError::kReset, clock.At(nowMs));
}

void TrafficCommands::KeepUp(const TrafficClimate& measured, bool isHot, std::uint64_t nowMs)
{
    climate = measured;
    const ClockTime time = clock.At(nowMs);
    if (!startedMs) {
        startedMs = nowMs;
        files.AddError(TrafficError::kReset, time);
    }
    if (isHot && !wasHot)
        files.AddError(TrafficError::kTemperature, time);
    wasHot = isHot;
    const ClockTime hour{time.year, time.month, time.day, time.hour};
    if (recordedHour != hour) {
        files.AddTemperatures(climate, time);
        recordedHour = hour;
    }
}

TrafficMoment TrafficCommands::MomentAt(std::uint64_t nowMs) const
{
    const std::uint64_t began = std::min(startedMs.value_or(nowMs), nowMs);
    return {program.At(nowMs), clock.At(nowMs), climate, static_cast<std::uint32_t>((nowMs - began) / 1000)};
}

} // namespace vxsim
