// What a traffic signal controller has counted and recorded.
#include "vxctl/traffic/trafficLogs.h"

#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/collected.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/traffic/trafficBlocks.h"

#include <vxsign/traffic.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

namespace vxctl {

namespace {

using Query = std::array<std::uint8_t, VX_TRAFFIC_FLOW_QUERY>;

struct FlowWanted
{
    std::string date;
    std::string query;
    std::string file;
};

Query QueryOf(const FlowWanted& wanted)
{
    Query query{};
    if (!wanted.date.empty()) {
        const auto day = ParseClockTime(wanted.date + " 00:00");
        if (!day)
            throw UsageError("'" + wanted.date + "' is no date such as 2026-11-21");
        query = {ToBcd(day->year % 100U), ToBcd(day->year / 100U), ToBcd(day->month), ToBcd(day->day)};
    }
    const auto bytes = ParseHex(wanted.query);
    if (!bytes || bytes->size() > query.size())
        throw UsageError("'" + wanted.query + "' is not up to 8 bytes in hexadecimal");
    std::copy(bytes->begin(), bytes->end(), query.begin());
    return query;
}

void ShowFlow(Session& session, const FlowWanted& wanted)
{
    const Query query = QueryOf(wanted);
    const TemporaryFolder folder;
    const std::string path = wanted.file.empty() ? folder.Path() + "flow" : wanted.file;
    session.Connect();
    // Without a channel the library says that it is not initialised.
    const std::uint32_t result = vxTrafficRFlow(query.data(), path.c_str());
    Check(result == VX_NOT_INITIALISED ? static_cast<std::uint32_t>(VX_COMMUNICATION) : result);
    ShowTrafficFlow(session.report, ReadWhole(path));
    if (!wanted.file.empty())
        session.report.Value("saved as", "file", wanted.file);
}

void AddFlow(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "flow", "Read the flow counters",
         R"(The 8 bytes of a query are the controller's own. Those of vxsim begin with a date, which --date fills in; without it
they ask for today.

Examples:
  vxctl traffic flow
  vxctl traffic flow --date 2026-11-20 --json
  vxctl traffic flow --query "01 00 00 00 00 00 00 00" --save flow.bin)"});
    const auto wanted = std::make_shared<FlowWanted>();
    CLI::Option* const date = command->add_option("--date", wanted->date, "the day: YYYY-MM-DD")->type_name("DATE");
    command->add_option("--query", wanted->query, "up to 8 bytes in hexadecimal")->type_name("HEX")->excludes(date);
    command->add_option("--save", wanted->file, "keep what the controller sends")->type_name("FILE");
    command->callback([&session, wanted] { ShowFlow(session, *wanted); });
}

struct LogWanted
{
    bool csv = false;
    bool hours = false;
    std::uint32_t limit = std::numeric_limits<std::uint32_t>::max();
};

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

void Show(Session& session, const TextTable& table, const LogWanted& wanted)
{
    if (table.Size() == 0 && !wanted.csv)
        session.report.Line("the log has no rows");
    if (table.Size() != 0 || wanted.csv || session.report.IsJson())
        table.Show(session.report, "rows", wanted.csv ? TableForm::kCsv : TableForm::kColumns);
}

template <class Record, class Read>
std::vector<Record> Collected(Session& session, const LogWanted& wanted, const Read& read)
{
    if (wanted.csv && session.report.IsJson())
        throw UsageError("--csv and --json exclude each other");
    const TemporaryFolder folder;
    std::string path = folder.Path() + "log";
    const ProgressBar bar("log", session.report.IsJson());
    session.Connect(ProgressBar::OnProgress);
    Check(read(path.data()));
    return TakeCollected<Record>();
}

void ShowErrors(Session& session, const LogWanted& wanted)
{
    const auto records = Collected<TrafficLogEntry>(
        session, wanted, [](char* path) { return vxReadTrafficErrLog(path, "", Collect<TrafficLogEntry>); });
    TextTable table({{"time"}, {"level", true}, {"text"}});
    for (std::size_t i = records.size() - std::min<std::size_t>(wanted.limit, records.size()); i < records.size(); ++i)
        table.Add(
            {FieldText(records[i].time), std::to_string(+records[i].level), WithAddress(FieldText(records[i].text))});
    Show(session, table, wanted);
}

// All hours of a day have the same sample.
void ShowTemperatures(Session& session, const LogWanted& wanted)
{
    constexpr std::size_t kDateSize = 10;
    const auto records = Collected<TrafficTempEntry>(
        session, wanted, [](char* path) { return vxReadTrafficTempLog(path, "", Collect<TrafficTempEntry>); });
    TextTable table({{wanted.hours ? "time" : "date"}, {"source", true}, {"sample", true}});
    std::string former;
    for (const TrafficTempEntry& record : records) {
        const std::string time = FieldText(record.time).substr(0, wanted.hours ? std::string::npos : kDateSize);
        const std::string source = std::to_string(+record.sourceId);
        if (former != time + source)
            table.Add({time, source, std::to_string(+record.sample)});
        former = time + source;
    }
    Show(session, table, wanted);
}

void AddErrors(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(traffic, {kTrafficGroup, "errors", "Read the error log",
                                                   R"(Levels are 2, 3 and 4, and 0 for a code that is not known.

Examples:
  vxctl traffic errors --limit 20
  vxctl traffic errors --csv >errors.csv)"});
    const auto wanted = std::make_shared<LogWanted>();
    command->add_flag("--csv", wanted->csv, "comma-separated values, with a first line that names them");
    AddNumber(*command, "--limit", wanted->limit, 1, std::numeric_limits<std::uint32_t>::max(), "the latest rows only")
        ->default_str("all");
    command->callback([&session, wanted] { ShowErrors(session, *wanted); });
}

void AddTemperatures(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "temperatures", "Read the temperature log",
         R"(A file of the controller has a month of one source. The library gives one sample for all hours of a day: that of the
hour which is the place of the file in its folder, the first one being that of midnight. get reads a file with all
that is in it.

Examples:
  vxctl traffic temperatures
  vxctl traffic temperatures --hours --csv >temperatures.csv
  vxctl get E:/TEP_REC/CTL11.TEP .)"});
    const auto wanted = std::make_shared<LogWanted>();
    command->add_flag("--csv", wanted->csv, "comma-separated values, with a first line that names them");
    command->add_flag("--hours", wanted->hours, "a row for each hour");
    command->callback([&session, wanted] { ShowTemperatures(session, *wanted); });
}

} // namespace

void AddTrafficLogs(CLI::App& traffic, Session& session)
{
    AddFlow(traffic, session);
    AddErrors(traffic, session);
    AddTemperatures(traffic, session);
}

} // namespace vxctl
