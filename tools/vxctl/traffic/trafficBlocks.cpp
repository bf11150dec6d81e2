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

// A word of a list; the number for what has none.
template <std::size_t size>
std::string WordOf(const std::array<const char*, size>& words, std::uint8_t number)
{
    return number < size ? words[number] : std::to_string(number);
}

std::string LampText(std::uint8_t lamps)
{
    static constexpr std::array kWords = {"dark",  "red",       "yellow",       "red+yellow",
                                          "green", "red+green", "yellow+green", "all"};
    return WordOf(kWords, lamps);
}

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
    static constexpr std::array kRuns = {"automatic", "manual", "temporary phase", "lamp test"};
    static constexpr std::array kIntervals = {"green", "yellow", "all red"};
    const std::string run = WordOf(kRuns, signals[0]);
    const std::string interval = WordOf(kIntervals, signals[3]);
    const std::string left = signals[4] == kNoEnd ? "no end" : std::to_string(signals[4]) + " s left";
    report.Value("running", "run", run, run + ", mode " + std::to_string(signals[1]));
    report.Put("mode", signals[1]);
    report.Value("phase", "phase", signals[2],
                 std::to_string(signals[2]) + " of " + std::to_string(signals[5]) + ", " + interval + ", " + left);
    report.Put("interval", interval);
    report.Put("secondsLeft", signals[4]);
    Report::Json groups = Report::Json::array();
    std::string text;
    for (std::size_t i = 0; i < signals[kGroupsAt]; ++i) {
        const std::string lamps = LampText(signals[kSignalsHead + i]);
        groups.push_back(lamps);
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
        report.Value("measured", "degrees", {cabinet, outside},
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
        report.Value("clock", "clock",
                     pair(1) + pair(0) + "-" + pair(2) + "-" + pair(3) + " " + pair(4) + ":" + pair(5) + ":" + pair(6));
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
    TextTable table({{"group", true}, {"lamps"}, {"vehicles", true}, {"wholeHour", true}});
    for (std::size_t at = kMonitorHead; at < block.size(); at += kMonitorRecord)
        table.Add({std::to_string(block[at]), LampText(block[at + 1]), std::to_string(Load16(block, at + 2)),
                   std::to_string(Load32(block, at + 4))});
    table.Show(report, "detectors");
}

void ShowTrafficFlow(Report& report, TrafficBytes flow)
{
    if (flow.size() < kFlowHead || flow[4] == 0 || flow.size() != kFlowHead + std::size_t{2} * flow[4] * flow[5])
        return ShowBytes(report, flow);
    const auto pair = [flow](std::size_t at) { return FormatHex(&flow[at], 1); };
    report.Value("date", "date", pair(1) + pair(0) + "-" + pair(2) + "-" + pair(3));
    std::vector<TextColumn> columns{{"hour", true}};
    for (unsigned group = 1; group <= flow[4]; ++group)
        columns.push_back({"group" + std::to_string(group), true});
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
