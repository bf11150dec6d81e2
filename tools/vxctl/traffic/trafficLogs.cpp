// What a traffic signal controller has counted and recorded.
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/collected.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/traffic/trafficBlocks.h"

#include <vxsign/traffic.h>

#include <algorithm>
#include <array>

namespace vxctl {

namespace {

using Query = std::array<std::uint8_t, VX_TRAFFIC_FLOW_QUERY>;

Query QueryOf(const Args& args)
{
    Query query{};
    const std::string& date = args.Text("--date");
    if (!date.empty()) {
        const auto day = ParseClockTime(date + " 00:00");
        if (!day)
            throw UsageError("'" + date + "' is no date such as 2026-11-21");
        query = {ToBcd(day->year % 100U), ToBcd(day->year / 100U), ToBcd(day->month), ToBcd(day->day)};
    }
    std::ranges::copy(args.Bytes("--query"), query.begin());
    return query;
}

std::uint32_t ShowFlow(Session& session, const Args& args)
{
    const Query query = QueryOf(args);
    const std::string& file = args.Text("--save");
    const TemporaryFolder folder;
    const std::string path = file.empty() ? folder.Path() + "flow" : file;
    // Without a channel the library says that it is not initialised.
    const std::uint32_t result = vxTrafficRFlow(query.data(), path.c_str());
    Check(result == VX_NOT_INITIALISED ? static_cast<std::uint32_t>(VX_COMMUNICATION) : result);
    ShowTrafficFlow(session.report, ReadWhole(path));
    if (!file.empty())
        session.report.Value("saved as", "local", file);
    return VX_OK;
}

// An address is one byte and no digit: it is printed as its number.
std::string WithAddress(const std::string& text)
{
    std::string readable;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        readable += byte < ' ' ? std::to_string(byte) : std::string(1, character);
    }
    return readable;
}

std::uint32_t Show(Report& report, const TextTable& table, const Args& args)
{
    table.ShowOr(report, "rows", "the log has no rows", args.Has("--csv") ? TableForm::kCsv : TableForm::kColumns);
    return VX_OK;
}

template <class Record, class Read>
std::vector<Record> Collected(const Session& session, const Args& args, const Read& read)
{
    if (args.Has("--csv") && session.report.IsJson())
        throw UsageError("--csv and --json exclude each other");
    const TemporaryFolder folder;
    std::string path = folder.Path() + "log";
    const ProgressBar bar("log", session.report.IsForPrograms());
    Check(read(path.data()));
    return TakeCollected<Record>();
}

std::uint32_t ShowErrors(Session& session, const Args& args)
{
    const std::size_t limit = args.Number("--limit", UINT32_MAX);
    const auto records = Collected<TrafficLogEntry>(
        session, args, [](char* path) { return vxReadTrafficErrLog(path, "", Collecting<TrafficLogEntry>()); });
    TextTable table({{"time", kTimes}, {"level", kNumbers}, {"text"}});
    for (std::size_t i = records.size() - std::min(limit, records.size()); i < records.size(); ++i)
        table.Add(
            {FieldText(records[i].time), std::to_string(+records[i].level), WithAddress(FieldText(records[i].text))});
    return Show(session.report, table, args);
}

// All hours of a day have the same sample.
std::uint32_t ShowTemperatures(Session& session, const Args& args)
{
    const bool hours = args.Has("--hours");
    constexpr std::size_t kDateSize = 10;
    const auto records = Collected<TrafficTempEntry>(
        session, args, [](char* path) { return vxReadTrafficTempLog(path, "", Collecting<TrafficTempEntry>()); });
    TextTable table(
        {{hours ? "time" : "date", hours ? kTimes : kTexts}, {"source", kNumbers}, {"temperatureC", kNumbers}});
    std::string former;
    for (const TrafficTempEntry& record : records) {
        const std::string time = FieldText(record.time).substr(0, hours ? std::string::npos : kDateSize);
        const std::string source = std::to_string(+record.sourceId);
        if (former != time + source)
            table.Add({time, source, std::to_string(static_cast<std::int8_t>(record.sample))});
        former = time + source;
    }
    return Show(session.report, table, args);
}

constexpr Argument kCsv = Flag("--csv", "comma-separated values, with a first line that names them");

const Command kCommands[] = {
    {
        .name = "traffic flow",
        .help = "Read the flow counters",
        .details =
            R"(The 8 bytes of a query are the controller's own. Usually they begin with a date, which --date fills in; without it
they ask for today.)",
        .examples = R"(vxctl traffic flow
vxctl traffic flow --date 2026-11-20 --json
vxctl traffic flow --query "01 00 00 00 00 00 00 00" --save flow.bin)",
        .arguments = {Text("--date", "the day: YYYY-MM-DD").In("DATE"),
                      Hex("--query", 0, VX_TRAFFIC_FLOW_QUERY, "up to 8 bytes in hexadecimal").Excludes("--date"),
                      WriteFile("--save", "keep what the controller sends")},
        .signs = Signs::kMany,
        .run = ShowFlow,
    },
    {
        .name = "traffic errors",
        .help = "Read the error log",
        .details = "Levels are 2, 3 and 4, and 0 for a code that is not known.",
        .examples = R"(vxctl traffic errors --limit 20
vxctl traffic errors --csv >errors.csv)",
        .arguments = {kCsv, Number("--limit", 1, UINT32_MAX, "the latest rows only, otherwise all").In("N")},
        .signs = Signs::kMany,
        .run = ShowErrors,
    },
    {
        .name = "traffic temperatures",
        .help = "Read the temperature log",
        .details =
            R"(A file of the controller has a month of one source. The library gives one sample for all hours of a day: that of the
hour which is the place of the file in its folder, the first one being that of midnight. get reads a file with all
that is in it.)",
        .examples = R"(vxctl traffic temperatures
vxctl traffic temperatures --hours --csv >temperatures.csv
vxctl get E:/TEP_REC/CTL11.TEP .)",
        .arguments = {kCsv, Flag("--hours", "a row for each hour")},
        .signs = Signs::kMany,
        .run = ShowTemperatures,
    },
};

} // namespace

const CommandTable kTrafficLogCommands{"Traffic controllers", kCommands};

} // namespace vxctl
