// The blocks in words.
#include "vxctl/traffic/trafficBlocks.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/textTable.h"

#include <array>
#include <string>

namespace vxctl {

namespace {

constexpr std::size_t kSignalsHead = 7; // ahead of the lamps
constexpr std::size_t kGroupsAt = 6;
constexpr std::size_t kStatusSize = 20;
constexpr std::size_t kRealSignalsAt = 8;
constexpr std::size_t kMonitorHead = 4;
constexpr std::size_t kMonitorRecord = 8;
constexpr std::uint8_t kMonitorKind = 4;
constexpr std::size_t kFlowHead = 8;
constexpr std::uint8_t kNoEnd = 255;

constexpr std::string_view kLamps[] = {"dark",  "red",       "yellow",       "red+yellow",
                                       "green", "red+green", "yellow+green", "all"};

void ShowBytes(Report& report, TrafficBytes block)
{
    report.Value("block", "block", FormatHex(block.data(), block.size(), ""), FormatHex(block.data(), block.size()));
}

// Whether the signals of a block begin like the usual ones, and are whole.
bool HasSignals(TrafficBytes signals)
{
    return signals.size() >= kSignalsHead && signals[kGroupsAt] > 0 &&
           signals.size() - kSignalsHead >= signals[kGroupsAt];
}

void ShowSignals(Report& report, TrafficBytes signals)
{
    static constexpr std::string_view kRuns[] = {"automatic", "manual", "temporary-phase", "lamp-test"};
    static constexpr std::string_view kIntervals[] = {"green", "yellow", "all-red"};
    const std::string interval = NameOf(kIntervals, signals[3]);
    const bool ends = signals[4] != kNoEnd;
    const std::string left = ends ? std::to_string(signals[4]) + " s left" : "no end";
    report.Code("running", "run", kRuns, signals[0],
                Words(NameOf(kRuns, signals[0])) + ", mode " + std::to_string(signals[1]));
    report.Put("mode", signals[1]);
    report.Value("phase", "phase", signals[2],
                 std::to_string(signals[2]) + " of " + std::to_string(signals[5]) + ", " + Words(interval) + ", " +
                     left);
    report.Put("phases", signals[5]);
    report.Put("interval", interval);
    report.Put("intervalCode", signals[3]);
    report.Put("secondsLeft", ends ? Report::Json(signals[4]) : Report::Json());
    Report::Json groups = Report::Json::array();
    std::string text;
    for (std::size_t i = 0; i < signals[kGroupsAt]; ++i) {
        const std::uint8_t code = signals[kSignalsHead + i];
        const std::string lamps = NameOf(kLamps, code);
        groups.push_back({{"group", i + 1}, {"lamps", lamps}, {"lampsCode", code}});
        text += (i != 0 ? ", " : "") + std::to_string(i + 1) + " " + lamps;
    }
    report.Value("groups", "groups", std::move(groups), text);
}

} // namespace

void ShowTrafficStatus(Report& report, TrafficBytes block)
{
    if (HasSignals(block) && block.size() >= kStatusSize) {
        ShowSignals(report, block);
        const auto degrees = [](std::uint8_t value) { return value < 128 ? int{value} : value - 256; };
        const int cabinet = degrees(block[14]);
        const int outside = degrees(block[15]);
        report.Value("measured", "measured", {{"cabinetC", cabinet}, {"outsideC", outside}},
                     std::to_string(cabinet) + " C in the cabinet, " + std::to_string(outside) + " C outside");
        const std::uint32_t seconds = Load32(block, 16);
        report.Value("up", "runSeconds", seconds, std::to_string(seconds) + " s");
    }
    ShowBytes(report, block);
}

void ShowTrafficRealStatus(Report& report, TrafficBytes block)
{
    if (block.size() > kRealSignalsAt && HasSignals(block.subspan(kRealSignalsAt))) {
        const auto pair = [block](std::size_t at) { return FormatHex(&block[at], 1); }; // BCD reads as it stands
        const std::string text =
            pair(1) + pair(0) + "-" + pair(2) + "-" + pair(3) + " " + pair(4) + ":" + pair(5) + ":" + pair(6);
        report.Time("clock", "clock", ParseClockTime(text), text);
        ShowSignals(report, block.subspan(kRealSignalsAt));
    }
    ShowBytes(report, block);
}

void ShowTrafficMonitor(Report& report, TrafficBytes block)
{
    ShowBytes(report, block);
    if (block.size() < kMonitorHead || block[0] != kMonitorKind ||
        block.size() != kMonitorHead + kMonitorRecord * block[1])
        return;
    TextTable table(
        {{"group", kNumbers}, {"lamps", kNumbers, kLamps}, {"vehicles", kNumbers}, {"vehiclesPerHour", kNumbers}});
    for (std::size_t at = kMonitorHead; at < block.size(); at += kMonitorRecord)
        table.Add({std::to_string(block[at]), std::to_string(block[at + 1]), std::to_string(Load16(block, at + 2)),
                   std::to_string(Load32(block, at + 4))});
    table.Show(report, "detectors");
}

void ShowTrafficFlow(Report& report, TrafficBytes flow)
{
    if (flow.size() < kFlowHead || flow[4] == 0 || flow.size() != kFlowHead + std::size_t{2} * flow[4] * flow[5])
        return ShowBytes(report, flow);
    const auto pair = [flow](std::size_t at) { return FormatHex(&flow[at], 1); };
    report.Value("date", "date", pair(1) + pair(0) + "-" + pair(2) + "-" + pair(3));
    std::vector<TextColumn> columns{{"hour", kNumbers}};
    for (unsigned group = 1; group <= flow[4]; ++group)
        columns.push_back({"group" + std::to_string(group), kNumbers});
    TextTable table(std::move(columns));
    std::size_t at = kFlowHead;
    for (unsigned hour = 0; hour < flow[5]; ++hour) {
        TextRow row{std::to_string(hour)};
        for (unsigned group = 0; group < flow[4]; ++group, at += 2)
            row.push_back(std::to_string(Load16(flow, at)));
        table.Add(std::move(row));
    }
    table.Show(report, "hours");
}

} // namespace vxctl
