// blank, unblank, bright, power, reset, clock, beacon: the sign itself.
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"

#include <vxsign/control.h>
#include <vxsign/test.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace vxctl {

namespace {

std::uint32_t ShowPower(Report& report)
{
    std::uint8_t ordered = 0;
    std::uint8_t present = 0;
    Check(vxGetPowerState(&ordered, &present));
    report.Value("ordered", "ordered", ordered != 0, ordered != 0 ? "on" : "off");
    report.Value("power", "on", present != 0, present != 0 ? "on" : "off");
    return VX_OK;
}

std::uint32_t Power(Session& session, const Args& args)
{
    const std::string& action = args.Text("ACTION");
    return action == "status" ? ShowPower(session.report) : vxPowerOnOff(action == "on" ? 1 : 0);
}

std::uint32_t Reset(Session& session, const Args& args)
{
    const ProgressBar bar("reset", session.report.IsForPrograms());
    if (args.Has("--flash"))
        return vxResetSystemToDataFlash();
    return args.Has("--cold") ? vxResetSystemCool() : vxResetSystem();
}

std::uint32_t SetClock(Report& report, const ClockTime& time)
{
    Check(vxAjustLEDTimeEx(time.year, time.month, time.day, time.hour, time.minute, time.second, Weekday(time), 0));
    report.Time("set to", "set", time, FormatTime(time, ' '));
    return VX_OK;
}

std::uint32_t ShowClock(Report& report)
{
    ClockTime time;
    std::uint8_t unused = 0;
    std::uint8_t weekday = 0;
    std::uint8_t mark = 0;
    Check(vxReadLEDTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &unused, &weekday, &mark));
    report.Time("clock", "clock", time, FormatTime(time, ' ', false));
    report.Code("weekday", "weekday", kWeekdays, weekday);
    report.Put("mark", mark);
    return VX_OK;
}

std::uint32_t Clock(Session& session, const Args& args)
{
    return args.Has("--set") ? SetClock(session.report, ReadTime(args.Text("--set"))) : ShowClock(session.report);
}

std::uint32_t SetBeacon(const std::vector<std::uint8_t>& bytes)
{
    std::uint64_t value = 0;
    std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
    return vxSetBeacon(&value);
}

std::uint32_t Beacon(Session& session, const Args& args)
{
    if (args.Has("BYTES"))
        return SetBeacon(args.Bytes("BYTES"));
    std::array<std::uint8_t, sizeof(std::uint64_t)> beacon{};
    Check(vxGetBeacon(beacon.data()));
    session.report.Value("beacon", "beacon", FormatHex(beacon.data(), beacon.size(), ""),
                         FormatHex(beacon.data(), beacon.size()));
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "blank",
        .help = "Turn the face dark",
        .examples = "vxctl blank",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxBlackScreen(); },
    },
    {
        .name = "unblank",
        .help = "Let the face show again what the sign plays",
        .examples = "vxctl unblank",
        .signs = Signs::kMany,
        .run = [](Session&, const Args&) { return vxEndBlackScreen(); },
    },
    {
        .name = "bright",
        .help = "Set the brightness of the face",
        .details = "What a level looks like is the sign's own; many have 1 to 8, and 0 for their own choice.",
        .examples = "vxctl bright 4",
        .arguments = {Number("LEVEL", 0, 255, "the level")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxBrightAdjust(args.Number<std::uint8_t>("LEVEL")); },
    },
    {
        .name = "power",
        .help = "Switch the power of the face, or show its state",
        .examples = R"(vxctl power off
vxctl power status)",
        .arguments = {Choice("ACTION", "on|off|status", "on, off, or what was ordered and what is")},
        .signs = Signs::kMany,
        .run = Power,
    },
    {
        .name = "reset",
        .help = "Start the sign's controller again",
        .details = "--flash waits until the sign has reset itself to what its data flash holds.",
        .examples = R"(vxctl reset
vxctl reset --cold)",
        .arguments = {Flag("--cold", "a cold start"),
                      Flag("--flash", "back to what the data flash holds").Excludes("--cold")},
        .signs = Signs::kMany,
        .run = Reset,
    },
    {
        .name = "clock",
        .help = "Show the sign's clock, or set it",
        .details = "The sign tells no seconds. now is the local time of this PC.",
        .examples = R"(vxctl clock
vxctl clock --set now
vxctl clock --set "2026-11-21 14:05:30")",
        .arguments = {Of(kTimeOrNow, "--set", "now, or a time: YYYY-MM-DD HH:MM[:SS]")},
        .signs = Signs::kMany,
        .run = Clock,
    },
    {
        .name = "beacon",
        .help = "Show or set the 8 bytes of the sign's beacons",
        .details = "8 bytes in hexadecimal; those left out are 0. What they mean is the sign's own.",
        .examples = R"(vxctl beacon
vxctl beacon "01 00 ff")",
        .arguments = {Hex("BYTES", 1, 8, "up to 8 bytes").Optional()},
        .signs = Signs::kMany,
        .run = Beacon,
    },
};

} // namespace

const CommandTable kSignCommands{"Control", kCommands};

} // namespace vxctl
