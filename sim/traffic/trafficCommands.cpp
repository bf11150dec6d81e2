#include "sim/traffic/trafficCommands.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr std::size_t kFlagAt = 31;
constexpr std::uint8_t kUsualSeconds = 10;
constexpr std::uint8_t kKnownMonitor = 4;

} // namespace

TrafficCommands::TrafficCommands(const Drives& drives, TimeCommands& signTime, const Monitor& watch, bool isController)
    : time(signTime), monitor(watch), controller(isController), clock(signTime.Clock()), program(clock), files(drives)
{
}

std::span<const CommandRow> TrafficCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {10, 2, "manual", 4, 0, kLogged, Run<&TrafficCommands::SetMode>,
         "mode in byte 0: 0 automatic, 1 to 3 hold that phase, 4 all red, 5 flashing yellow. It ends with a restart"},
        {5, 2, "set controller's clock", 12, 0, kLogged, Run<&TrafficCommands::SetClock>,
         "sets the clock as 5, 4 does; byte 8 is kept, and the day of the week follows from the date"},
        {10, 5, "controller's monitor", 4, 0, kUnlogged, Run<&TrafficCommands::TellMonitor>,
         "kind in byte 0, which is 4: the monitor block"},
        {10, 6, "controller's status", 0, 0, kUnlogged, Run<&TrafficCommands::TellStatus>, "the status block"},
        {10, 8, "lamp test JKB", 4, 0, kLogged, Run<&TrafficCommands::TestLamps, false>,
         "lights lamps for 10 seconds, a byte for each group in the data: red 1, yellow 2, green 4; groups without one "
         "are dark. Byte 0 is how many bytes there are for the groups from 1 on. None at all end the test"},
        {10, 9, "lamp test JKC", 4, 0, kLogged, Run<&TrafficCommands::TestLamps, true>,
         "likewise; byte 0 is up to 4, and byte 1 is how many there are for the groups from 5 on"},
        {10, 13, "flow", 8, 0, kUnlogged, Run<&TrafficCommands::TellFlow>,
         "date in BCD in the first four bytes, in the order of the clock, or 0 for today: the flow"},
        {10, 16, "temporary phase", 32, 0, kLogged, Run<&TrafficCommands::RunPhase>,
         "groups in byte 0, bit 0 being group 1, seconds of green in byte 1, 10 for 0: they get green once, then the "
         "mode goes on. Flag 0 (byte 31) ends that. Groups that would be in each other's way are refused, and noted as "
         "a green conflict"},
        {10, 17, "controller's real status", 4, 0, kUnlogged, Run<&TrafficCommands::TellRealStatus>,
         "part in byte 0, which is 0: the real-time block"},
    };
    // Where there is no controller, the first one is the end of a login, whatever comes with it.
    return std::span(kRows).subspan(controller ? 0 : 1);
}

Reply TrafficCommands::Execute(const Call& call)
{
    return controller ? CommandFamily::Execute(call) : Reply::WithCode(Code::kUnknownMinor);
}

Reply TrafficCommands::SetClock(const Call& call)
{
    return time.Adjust(call);
}

Reply TrafficCommands::SetMode(const Call& call)
{
    return program.SetMode(call.payload[0], call.nowMs) ? Reply::Done() : Reply::WithCode(Code::kNotSupported);
}

Reply TrafficCommands::TellMonitor(const Call& call)
{
    return call.payload[0] == kKnownMonitor ? Reply::WithExtended(MonitorBlock(MomentAt(call.nowMs)))
                                            : Reply::WithCode(Code::kNotSupported);
}

Reply TrafficCommands::TellStatus(const Call& call)
{
    return Reply::WithExtended(StatusBlock(MomentAt(call.nowMs)));
}

Reply TrafficCommands::TellRealStatus(const Call& call)
{
    return call.payload[0] == 0 ? Reply::WithExtended(RealBlock(MomentAt(call.nowMs)))
                                : Reply::WithCode(Code::kNotSupported);
}

Reply TrafficCommands::TellFlow(const Call& call)
{
    return FlowOf(call.payload, clock.At(call.nowMs)).value_or(Reply::WithCode(Code::kNotSupported));
}

// A byte of lamps for each group. JKB has them in the order of the groups, JKC the vehicles apart from the crossings.
// No lamps at all end the test.
Reply TrafficCommands::TestLamps(const Call& call, bool byKind)
{
    const std::size_t first = call.payload[0];
    const std::size_t second = byKind ? call.payload[1] : 0;
    if (call.extended.size() != first + second)
        return Reply::WithCode(Code::kBadLength);
    if (call.extended.empty()) {
        program.EndTest();
        return Reply::Done();
    }
    SignalLamps lit{};
    const auto put = [](std::span<const std::uint8_t> lamps, std::span<std::uint8_t> groups) {
        std::copy_n(lamps.begin(), std::min(lamps.size(), groups.size()), groups.begin());
    };
    put(call.extended.first(first), std::span(lit).first(byKind ? kVehicleGroups : kSignalGroups));
    put(call.extended.subspan(first), std::span(lit).subspan(kVehicleGroups));
    program.TestLamps(lit, call.nowMs);
    return Reply::Done();
}

// Byte 0 has the groups, byte 1 the seconds; the flag 0 ends the phase.
Reply TrafficCommands::RunPhase(const Call& call)
{
    if (call.payload[kFlagAt] == 0) {
        program.EndPhase(call.nowMs);
        return Reply::Done();
    }
    const std::uint8_t seconds = call.payload[1] != 0 ? call.payload[1] : kUsualSeconds;
    const std::uint8_t groups = call.payload[0];
    if (program.RunPhase(groups, seconds, call.nowMs))
        return Reply::Done();
    if (groups != 0)
        files.AddError(TrafficError::kGreenConflict, clock.At(call.nowMs));
    return Reply::WithCode(Code::kNotSupported);
}

void TrafficCommands::Restart(std::uint64_t nowMs, bool)
{
    if (!controller)
        return;
    program.Reset();
    files.AddError(TrafficError::kReset, clock.At(nowMs));
}

void TrafficCommands::KeepUp(std::uint64_t nowMs)
{
    if (!controller)
        return;
    const SignState state = monitor.StateAt(nowMs);
    climate = {static_cast<std::int8_t>(state.word[1]), static_cast<std::int8_t>(state.word[2])};
    const ClockTime now = clock.At(nowMs);
    if (!startedMs) {
        startedMs = nowMs;
        files.AddError(TrafficError::kReset, now);
    }
    if (monitor.IsAlarmed() && !wasHot)
        files.AddError(TrafficError::kTemperature, now);
    wasHot = monitor.IsAlarmed();
    const ClockTime hour{now.year, now.month, now.day, now.hour};
    if (recordedHour != hour) {
        files.AddTemperatures(climate, now);
        recordedHour = hour;
    }
}

TrafficMoment TrafficCommands::MomentAt(std::uint64_t nowMs) const
{
    const std::uint64_t began = std::min(startedMs.value_or(nowMs), nowMs);
    return {program.At(nowMs), clock.At(nowMs), climate, static_cast<std::uint32_t>((nowMs - began) / 1000)};
}

} // namespace vxsim
