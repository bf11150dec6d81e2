// traffic: steering a traffic signal controller.
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/tables.h"
#include "vxctl/traffic/trafficBlocks.h"

#include <vxsign/traffic.h>

#include <array>

namespace vxctl {

namespace {

constexpr std::size_t kRealStatusSize = 102;
constexpr std::size_t kBlockSize = 2048;
constexpr std::uint32_t kMostLamps = 255;

std::uint32_t SavedAs(Report& report, const std::string& file, std::uint32_t result)
{
    Check(result);
    report.Value("saved as", "local", file);
    return VX_OK;
}

std::uint32_t ShowRealStatus(Report& report)
{
    std::array<std::uint8_t, kRealStatusSize> block{};
    Check(vxTCGetRealStatus(block.data(), kRealStatusSize, 0));
    ShowTrafficRealStatus(report, block);
    return VX_OK;
}

std::uint32_t ShowStatus(Session& session, const Args& args)
{
    const std::string& file = args.Text("--save");
    const bool real = args.Has("--real");
    if (!file.empty())
        return SavedAs(session.report, file,
                       real ? vxReadTrafficRealStatus(file.c_str()) : vxReadTrafficStatus(file.c_str()));
    if (real)
        return ShowRealStatus(session.report);
    std::array<std::uint8_t, kBlockSize> block{};
    std::uint32_t size = block.size();
    Check(vxReadTCStatus(block.data(), &size));
    ShowTrafficStatus(session.report, TrafficBytes(block).first(size));
    return VX_OK;
}

std::uint32_t ShowMonitor(Session& session, const Args& args)
{
    const std::string& file = args.Text("--save");
    const std::uint32_t kind = args.Number("--kind");
    if (!file.empty() && kind != VX_TRAFFIC_MONITOR)
        throw UsageError("--save takes the block of kind 4 alone");
    if (!file.empty())
        return SavedAs(session.report, file, vxReadTrafficMonitor(file.c_str()));
    std::array<std::uint8_t, kBlockSize> block{};
    std::uint32_t size = block.size();
    Check(vxReadTCMonitor(kind, block.data(), &size));
    ShowTrafficMonitor(session.report, TrafficBytes(block).first(size));
    return VX_OK;
}

std::uint32_t SetClock(Report& report, const ClockTime& time, const Args& args)
{
    Check(vxAjustTrafficTime(time.year, time.month, time.day, time.hour, time.minute, time.second,
                             args.Number<std::uint8_t>("--field7", Weekday(time)),
                             args.Number<std::uint8_t>("--field8")));
    report.Time("set to", "set", time, FormatTime(time, ' '));
    return VX_OK;
}

std::uint32_t Clock(Session& session, const Args& args)
{
    if (args.Has("--set"))
        return SetClock(session.report, ReadTime(args.Text("--set")), args);
    ClockTime time;
    std::uint8_t field7 = 0;
    std::uint8_t field8 = 0;
    Check(vxReadTrafficTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &time.second, &field7,
                            &field8));
    session.report.Time("clock", "clock", time, FormatTime(time, ' '));
    session.report.Value("field 7", "field7", field7);
    session.report.Value("field 8", "field8", field8);
    return VX_OK;
}

std::uint32_t TestLamps(Session& /*session*/, const Args& args)
{
    std::vector<std::uint8_t> lamps = args.Bytes("LAMPS");
    const std::vector<std::uint8_t> second = args.Bytes("SECOND");
    const bool first = args.Text("TEST") == "jkb";
    if (first && !second.empty())
        throw UsageError("jkb takes one list of lamps");
    const auto firstCount = static_cast<std::uint8_t>(lamps.size());
    lamps.insert(lamps.end(), second.begin(), second.end());
    return first ? vxTCJKBLightTest(lamps.data(), firstCount)
                 : vxTCJKCLightTest(lamps.data(), firstCount, static_cast<std::uint8_t>(second.size()));
}

std::uint32_t RunPhase(Session& /*session*/, const Args& args)
{
    std::vector<std::uint8_t> phase = args.Bytes("BYTES");
    phase.resize(VX_TRAFFIC_PHASE);
    return vxTrafficTempPhaseRun(phase.data(), args.Number("--flag"));
}

const Command kCommands[] = {
    {
        .name = "traffic",
        .help = "Watch and steer a traffic signal controller",
        .examples = R"(vxctl traffic status
vxctl traffic manual 2
vxctl traffic errors)",
    },
    {
        .name = "traffic status",
        .help = "Show what the controller does",
        .details =
            R"(What a block means is the controller's own; it shows in words as far as it has the usual layout. --save makes a dump
file: 12 bytes of header, then the block.)",
        .examples = R"(vxctl traffic status
vxctl traffic status --real --json
vxctl traffic status --save status.bin)",
        .arguments = {Flag("--real", "the real-time status"), WriteFile("--save", "a dump file in place of words")},
        .signs = Signs::kMany,
        .run = ShowStatus,
    },
    {
        .name = "traffic monitor",
        .help = "Read a monitor block",
        .details =
            R"(What a kind and its block mean is the controller's own; usual is kind 4, with the vehicles that each group has
counted since the hour began, and those that are expected in the whole hour.)",
        .examples = R"(vxctl traffic monitor
vxctl traffic monitor --save monitor.bin)",
        .arguments = {Number("--kind", 0, 255, "which block").In("N").Default("4"),
                      WriteFile("--save", "a dump file in place of words")},
        .signs = Signs::kMany,
        .run = ShowMonitor,
    },
    {
        .name = "traffic clock",
        .help = "Show the controller's clock, or set it",
        .details = "Fields 7 and 8 are the controller's own; without --field7 it is the day of the week, 0 for Sunday.",
        .examples = R"(vxctl traffic clock
vxctl traffic clock --set now)",
        .arguments = {Of(kTimeOrNow, "--set", "now, or a time: YYYY-MM-DD HH:MM[:SS]"),
                      Number("--field7", 0, 99, "sent along").In("N").Needs("--set"),
                      Number("--field8", 0, 255, "sent along").In("N").Default("0").Needs("--set")},
        .signs = Signs::kMany,
        .run = Clock,
    },
    {
        .name = "traffic manual",
        .help = "Switch to manual",
        .details =
            R"(What a mode means is the controller's own. Usual are 0 automatic, 1 to 3 hold that phase, 4 all red, 5 flashing
yellow.)",
        .examples = R"(vxctl traffic manual 2
vxctl traffic manual 0)",
        .arguments = {Number("MODE", 0, 255, "the mode")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxTCManual(args.Number<std::uint8_t>("MODE")); },
    },
    {
        .name = "traffic lamps",
        .help = "Run a lamp test, JKB or JKC",
        .details =
            R"(What a byte means is the controller's own. Usual is one for each group, 1 red, 2 yellow and 4 green added up, which
shows for 10 seconds: jkb groups 1 to 6, jkc groups 1 to 4, then 5 and 6. Without bytes the test ends.)",
        .examples = R"(vxctl traffic lamps jkb 070707070707
vxctl traffic lamps jkc "01 02 04 07" "01 04"
vxctl traffic lamps jkb)",
        .arguments = {Choice("TEST", "jkb|jkc", "which one"), Hex("LAMPS", 0, kMostLamps, "up to 255 bytes").Optional(),
                      Hex("SECOND", 0, kMostLamps, "of jkc: up to 255 bytes").Optional()},
        .signs = Signs::kMany,
        .run = TestLamps,
    },
    {
        .name = "traffic phase",
        .help = "Run a temporary phase",
        .details =
            R"(31 bytes in hexadecimal; those left out are 0. What they mean is the controller's own. Usual are the groups that get
green, bit 0 being group 1, and the seconds of green, 10 for 0; flag 0 ends the phase.)",
        .examples = R"(vxctl traffic phase "05 14"
vxctl traffic phase 00 --flag 0)",
        .arguments = {Hex("BYTES", 0, VX_TRAFFIC_PHASE, "up to 31 bytes"),
                      Number("--flag", 0, 255, "sent along").In("N").Default("1")},
        .signs = Signs::kMany,
        .run = RunPhase,
    },
};

} // namespace

const CommandTable kTrafficCommands{"Traffic controllers", kCommands};

} // namespace vxctl
