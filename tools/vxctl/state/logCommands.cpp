// log: the logs of the sign.
#include "vxctl/cli/collected.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/state/signTable.h"

#include <vxsign/log.h>

#include <algorithm>

namespace vxctl {

namespace {

struct Wanted
{
    std::string log;
    std::string from;
    std::uint32_t limit;
};

// A log that is a table of the sign's database.
struct TableLog
{
    std::string log;
    std::string table;
    std::string selection;
    std::vector<TextColumn> columns;
};

constexpr std::string_view kEvents[] = {"", "door", "pixel", "signal", "tile"};
constexpr std::string_view kEventStates[] = {"went", "came"};
constexpr std::string_view kTileStates[] = {"good", "hot"};

// Those of the usual table.
std::vector<TextColumn> TileColumns()
{
    return {{"address", kNumbers},
            {"x", kNumbers},
            {"y", kNumbers},
            {"width", kNumbers},
            {"height", kNumbers},
            {"temperatureC", kNumbers},
            {"voltageMv", kNumbers},
            {"hardware"},
            {"firmware"},
            {"runSeconds", kNumbers},
            {"lamps"},
            {"badLamps", kNumbers},
            {"signalErrors", kNumbers},
            {"state", kNumbers, kTileStates},
            {"serial"},
            {"limitsC", kNumbers},
            {"note"},
            {"lightEighths", kNumbers}};
}

std::vector<TableLog> TableLogs()
{
    return {
        {"play",
         "PlayLog",
         "Time,FileName,GroupName,WinID,PlayTimes,TotalSeconds",
         {{"time", kTimes}, {"file"}, {"group"}, {"window", kNumbers}, {"times", kNumbers}, {"seconds", kNumbers}}},
        {"system",
         "SysLog",
         "DateTime,Type,Operate,Author,Result",
         {{"time", kTimes}, {"type", kNumbers}, {"operation"}, {"user"}, {"outcome"}}},
        {"temperature",
         "TempLog",
         "BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,BoxHightTemp,BoxLowTemp,"
         "BoxAvgTemp",
         {{"from", kTimes},
          {"to", kTimes},
          {"outHighC", kNumbers},
          {"outLowC", kNumbers},
          {"outAvgC", kNumbers},
          {"inHighC", kNumbers},
          {"inLowC", kNumbers},
          {"inAvgC", kNumbers},
          {"boxHighC", kNumbers},
          {"boxLowC", kNumbers},
          {"boxAvgC", kNumbers}}},
        {"tile", "TileInfo", "*", TileColumns()},
        {"event",
         "EventLog",
         "DateTime,EventType,Status,Note",
         {{"time", kTimes}, {"event", kNumbers, kEvents}, {"status", kNumbers, kEventStates}, {"note"}}},
    };
}

// The latest rows of a log file, oldest first.
template <class Record, class ToRow>
void AddLatest(TextTable& table, std::uint32_t limit, const ToRow& toRow)
{
    const std::vector<Record> records = TakeCollected<Record>();
    for (std::size_t i = records.size() - std::min<std::size_t>(limit, records.size()); i < records.size(); ++i)
        table.Add(toRow(records[i]));
}

TextTable ReadRadar(const Wanted& wanted, const std::string& folder)
{
    if (wanted.from == "lanes") {
        Check(vxReadTJRadarLog(folder.c_str(), 0, 0, CollectingForUser<TJRadarLogRecord>()));
        std::vector<TextColumn> columns{
            {"time", kTimes}, {"lane", kNumbers}, {"vehicles", kNumbers}, {"speedKmh", kNumbers}};
        for (int i = 2; i < 8; ++i)
            columns.push_back({"byte" + std::to_string(i), kNumbers});
        TextTable table(std::move(columns));
        AddLatest<TJRadarLogRecord>(table, wanted.limit, [](const TJRadarLogRecord& record) {
            TextRow row{FieldText(record.Time), std::to_string(record.Lane)};
            for (const std::int32_t value : {record.Byte0, record.Byte1, record.Byte2, record.Byte3, record.Byte4,
                                             record.Byte5, record.Byte6, record.Byte7})
                row.push_back(std::to_string(value));
            return row;
        });
        return table;
    }
    const auto read = wanted.from == "new" ? vxReadNewRadarLog : vxReadRadarLog;
    Check(read(folder.c_str(), 0, 0, CollectingForUser<RadarLogRecord>()));
    TextTable table({{"time", kTimes}, {"vehicles", kNumbers}, {"speedKmh", kNumbers}});
    AddLatest<RadarLogRecord>(table, wanted.limit, [](const RadarLogRecord& record) {
        return TextRow{FieldText(record.Time), std::to_string(record.First), std::to_string(record.Second)};
    });
    return table;
}

TextTable ReadBattery(const Wanted& wanted, const std::string& folder)
{
    const auto kind = static_cast<std::int8_t>(wanted.from == "second" ? VX_BATTERY_SECOND_LOG : 0);
    Check(vxReadBatInfoLog(folder.c_str(), 0, 0, kind, CollectingForUser<BatInfoLogRecord>()));
    std::vector<TextColumn> columns{{"time", kTimes},          {"voltageMv", kNumbers}, {"currentMa", kNumbers},
                                    {"value3", kNumbers},      {"value4", kNumbers},    {"chargePercent", kNumbers},
                                    {"temperatureC", kNumbers}};
    for (int i = 7; i <= 12; ++i)
        columns.push_back({"value" + std::to_string(i), kNumbers});
    TextTable table(std::move(columns));
    AddLatest<BatInfoLogRecord>(table, wanted.limit, [](const BatInfoLogRecord& record) {
        TextRow row{FieldText(record.Time)};
        // A current flows in or out, and it freezes in winter.
        for (const std::int64_t value :
             {std::int64_t{record.Value1}, std::int64_t{static_cast<std::int32_t>(record.Value2)},
              std::int64_t{record.Value3}, std::int64_t{record.Value4}, std::int64_t{record.Value5},
              std::int64_t{static_cast<std::int8_t>(record.Value6)}})
            row.push_back(std::to_string(value));
        // The members of the packed record are copied, never referred to.
        for (std::size_t i = 0; i < std::size(record.Value7To12); ++i)
            row.push_back(std::to_string(+record.Value7To12[i]));
        return row;
    });
    return table;
}

TextTable ReadDatabase(const TableLog& log, const Wanted& wanted)
{
    TextTable table(log.columns);
    const auto progress = [](std::uint32_t percent) { ProgressBar::OnProgress(nullptr, 0, percent); };
    for (TextRow& row : ReadRows({log.table, log.selection, log.columns.size()}, wanted.limit, progress))
        table.Add(std::move(row));
    return table;
}

// Which sources a log has besides its first.
void CheckSource(const Wanted& wanted)
{
    const bool radar =
        wanted.log == "radar" && (wanted.from == "old" || wanted.from == "new" || wanted.from == "lanes");
    const bool battery = wanted.log == "battery" && (wanted.from == "first" || wanted.from == "second");
    if (!wanted.from.empty() && !radar && !battery)
        throw UsageError("--from is old, new or lanes for radar, first or second for battery");
}

TextTable ReadLog(const Wanted& wanted)
{
    const std::vector<TableLog> logs = TableLogs();
    const auto log = std::ranges::find(logs, wanted.log, &TableLog::log);
    if (log != logs.end())
        return ReadDatabase(*log, wanted);
    const TemporaryFolder folder;
    return wanted.log == "radar" ? ReadRadar(wanted, folder.Path()) : ReadBattery(wanted, folder.Path());
}

// Pages of a table count on the bar themselves; of a file the library tells how much of it has come.
TextTable ReadWithBar(const Session& session, const Wanted& wanted)
{
    const ProgressBar bar(wanted.log, session.report.IsForPrograms());
    const bool isFile = wanted.log == "radar" || wanted.log == "battery";
    session.Connect(isFile ? ProgressBar::OnProgress : nullptr);
    return ReadLog(wanted);
}

std::uint32_t ShowLog(Session& session, const Args& args)
{
    const Wanted wanted{args.Text("LOG"), args.Text("--from"), args.Number("--limit", UINT32_MAX)};
    const bool csv = args.Has("--csv");
    CheckSource(wanted);
    if (csv && session.report.IsJson())
        throw UsageError("--csv and --json exclude each other");
    const TextTable table = ReadWithBar(session, wanted);
    table.ShowOr(session.report, "rows", "the log has no rows", csv ? TableForm::kCsv : TableForm::kColumns);
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "log",
        .help = "Read a log of plays, system, temperatures, tiles, events, radar or batteries",
        .details =
            R"(play, system, temperature, tile and event are tables of the sign's database, radar and battery are files. The sign
keeps them all, except for the radar logs new and lanes, which it deletes as soon as they are read. The columns have their
usual names; those of tiles, radar and battery mean what the sign means by them.)",
        .examples = R"(vxctl log play --limit 20
vxctl log temperature --csv >temperatures.csv
vxctl log event --json | jq '.rows[] | select(.status == "came")'
vxctl log radar --from lanes --csv >>lanes.csv)",
        .arguments = {Choice("LOG", "play|system|temperature|tile|event|radar|battery", "which one"),
                      Flag("--csv", "comma-separated values, with a first line that names them"),
                      Number("--limit", 1, UINT32_MAX, "the latest rows only, otherwise all").In("N"),
                      Text("--from", "radar: old, new or lanes; battery: first or second").In("SOURCE")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = ShowLog,
    },
};

} // namespace

const CommandTable kLogCommands{"State", kCommands};

} // namespace vxctl
