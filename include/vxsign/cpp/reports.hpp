// Logs out of the sign's database, and its check of its pixels.
#ifndef VXSIGN_CPP_REPORTS_HPP
#define VXSIGN_CPP_REPORTS_HPP

#include <vxsign/cpp/frame.hpp>
#include <vxsign/cpp/local.hpp>
#include <vxsign/pixel.h>
#include <vxsign/read.h>

namespace vxsign {

// Rows of a log, oldest first; each has a text for each column.
struct Table
{
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

// A pixel that is bad.
struct PixelRow
{
    std::uint32_t x = 0;
    std::uint32_t y = 0;
    std::string kind;   // "pixel", or "signal" when the pixel is well but its signal does not arrive
    std::string status; // names the lamp: "Red Pixel Bad"
    std::string time;
};

namespace detail {

using Row = std::vector<std::string>;

// A log, and the table of the sign that it is.
struct Log
{
    std::string_view name;
    std::string_view table;
    std::string_view selection;
    std::string_view columns; // blanks between
};

// A page of rows: each column in angle brackets, nothing between. What follows the last whole row is left out: the sign
// cuts a page that is too long.
inline std::vector<Row> ParseRows(std::string_view text, std::size_t columns)
{
    std::vector<Row> rows;
    for (Row row; !text.empty() && text[0] == '<';) {
        const std::size_t end = text.find('>');
        if (end == std::string_view::npos)
            break;
        row.emplace_back(text.substr(1, end - 1));
        text.remove_prefix(end + 1);
        if (row.size() == columns)
            rows.push_back(std::exchange(row, {}));
    }
    return rows;
}

// Gives the rows that the sign announces.
inline std::uint32_t AskRows(const std::string& sql, std::size_t columns, std::vector<Row>& rows)
{
    constexpr std::uint16_t kDatabase = 1;
    std::array<std::uint8_t, 64> head{};
    std::array<char, 4096> text{}; // more than any packet holds
    Check(vxReadDB(kDatabase, sql.c_str(), head.data(), static_cast<int>(head.size()), text.data(),
                   static_cast<std::uint32_t>(text.size())));
    rows = ParseRows(Field(text.data(), text.size()), columns);
    return Load16(head.data());
}

// The latest rows of a table. A page may have fewer rows than were asked for.
inline std::vector<Row> ReadRows(std::string_view table, std::string_view selection, std::size_t columns,
                                 std::uint32_t limit)
{
    constexpr std::uint32_t kPage = 10;
    const std::string from = " from " + std::string(table);
    std::vector<Row> page;
    AskRows("select count(*)" + from, 1, page);
    const auto count = page.empty() ? std::nullopt : Number(page[0][0]);
    if (!count)
        throw Failure(VX_FILE_FORMAT);
    const std::uint32_t wanted = std::min(*count, limit);
    std::vector<Row> rows;
    while (rows.size() < wanted) {
        const auto got = static_cast<std::uint32_t>(rows.size());
        const std::string sql = "select " + std::string(selection) + from + " limit " +
                                std::to_string(std::min(kPage, wanted - got)) + " offset " +
                                std::to_string(*count - wanted + got);
        if (AskRows(sql, columns, page) == 0)
            break; // somebody has cleared the table meanwhile
        if (page.empty())
            throw Failure(VX_FILE_FORMAT);
        page.resize(std::min<std::size_t>(page.size(), wanted - got));
        rows.insert(rows.end(), page.begin(), page.end());
    }
    return rows;
}

inline const Log& FindLog(std::string_view name)
{
    static constexpr Log kLogs[] = {
        {"play", "PlayLog", "Time,FileName,GroupName,WinID,PlayTimes,TotalSeconds",
         "time file group window times seconds"},
        {"system", "SysLog", "DateTime,Type,Operate,Author,Result", "time type operation user outcome"},
        {"temperature", "TempLog",
         "BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,BoxHightTemp,BoxLowTemp,"
         "BoxAvgTemp",
         "from to outHighC outLowC outAvgC inHighC inLowC inAvgC boxHighC boxLowC boxAvgC"},
        {"tile", "TileInfo", "*",
         "address x y width height temperatureC voltageMv hardware firmware runSeconds lamps badLamps signalErrors "
         "state serial limitsC note lightEighths"},
        {"event", "EventLog", "DateTime,EventType,Status,Note", "time event status note"},
    };
    for (const Log& log : kLogs)
        if (log.name == name)
            return log;
    Refuse("'" + std::string(name) + "' is no log: play, system, temperature, tile or event");
}

// The name of a code; what has none stays a number.
template <std::size_t size>
void NameCode(std::string& field, const char* const (&names)[size])
{
    const std::uint32_t code = Number(field).value_or(size);
    if (code < size && names[code][0] != '\0')
        field = names[code];
}

inline void NameCodes(std::string_view log, Row& row)
{
    static constexpr const char* kEvents[] = {"", "door", "pixel", "signal", "tile"};
    static constexpr const char* kEventStates[] = {"went", "came"};
    static constexpr const char* kTileStates[] = {"good", "hot"};
    if (log == "event") {
        NameCode(row[1], kEvents);
        NameCode(row[2], kEventStates);
    }
    if (log == "tile")
        NameCode(row[13], kTileStates);
}

inline Table ReadLog(const Frame& frame, std::string_view name, std::uint32_t limit)
{
    const Log& log = FindLog(name);
    Table table;
    for (std::string_view rest = log.columns; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        table.columns.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    table.rows = ReadRows(log.table, log.selection, table.columns.size(), limit);
    for (Row& row : table.rows) {
        NameCodes(name, row);
        for (std::string& field : row)
            field = frame.Decode(field);
    }
    return table;
}

// Lets the sign check its pixels, which takes as long as the sign takes.
inline std::vector<PixelRow> CheckPixels()
{
    const TempFolder folder;
    Collected<vxPixelRow> collected;
    Check(vxReadPixelInfo(folder.File("").c_str(), 0, VX_PIXELS_FROM_CSV, Collected<vxPixelRow>::TakeForUser));
    std::vector<PixelRow> pixels;
    for (const vxPixelRow& row : collected.records)
        pixels.push_back(
            {row.X, row.Y, row.Kind == VX_SIGNAL_BAD ? "signal" : "pixel", Field(row.Status), Field(row.Time)});
    return pixels;
}

// What the last check has found.
inline std::vector<PixelRow> LastPixels()
{
    std::vector<PixelRow> pixels;
    for (const bool isSignal : {false, true})
        for (const Row& row :
             ReadRows(isSignal ? "PixelSignalErr" : "PixelStatus", "X,Y,Status,DateTime", 4, UINT32_MAX))
            pixels.push_back({Number(row[0]).value_or(0), Number(row[1]).value_or(0), isSignal ? "signal" : "pixel",
                              row[2], row[3]});
    return pixels;
}

inline std::vector<PixelRow> ReadPixels(std::string_view source)
{
    if (source != "check" && source != "last")
        Refuse("pixels come from \"check\" or \"last\"");
    return source == "check" ? CheckPixels() : LastPixels();
}

} // namespace detail
} // namespace vxsign

#endif
