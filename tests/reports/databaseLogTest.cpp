// The tables of the sign's database.
#include "reports/logTables.h"
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

struct Reader
{
    const char* table;
    std::function<std::uint32_t(int mode)> read;
    const char* firstPage;
    Asked clearing;
};

using DatabaseLogs = ReportTest;

const std::vector<Reader>& Readers()
{
    static const std::vector<Reader> readers = {
        {"PlayLog",
         [](int mode) { return vxReadPlayLogExt(0, 7, mode, Taken::WithUser); },
         "sql select WinID,GroupName,FileName,Time,PlayTimes,TotalSeconds from PlayLog limit 10 offset 0",
         {"delete C:\\LOGFILE.LOG", "delete F:\\LOGFILE.LOG"}},
        {"SysLog",
         [](int mode) { return vxReadSignLog(0, 7, mode, Taken::WithUser); },
         "sql select Type,DateTime,Operate,Author,Result from SysLog limit 5 offset 0",
         {"sql delete from SysLog"}},
        {"TempLog",
         [](int mode) { return vxReadTempLog(0, 7, mode, Taken::WithUser); },
         "sql select BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,"
         "BoxHightTemp,BoxLowTemp,BoxAvgTemp from TempLog limit 10 offset 0",
         {"sql delete from TempLog"}},
        {"TileInfo",
         [](int mode) { return vxReadTileInfo(0, 7, mode, Taken::WithUser); },
         "sql select * from TileInfo limit 5 offset 0;",
         {"sql delete from TileInfo"}},
        {"EventLog",
         [](int mode) { return vxReadEventLog(0, 7, mode, Taken::WithUser); },
         "sql select EventType,DateTime,Status,Note from EventLog limit 5 offset 0",
         {}},
        {"PixelStatus",
         [](int) { return vxReadPixelInfo("", 7, 1, Taken::WithUser); },
         "sql select X,Y,Status,DateTime from PixelStatus limit 10 offset 0",
         {"sql delete from PixelStatus"}},
    };
    return readers;
}

Asked operator+(Asked left, const Asked& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

TEST_F(DatabaseLogs, OrderOfQueriesAndClearing)
{
    for (const Reader& reader : Readers()) {
        SCOPED_TRACE(reader.table);
        const std::string count = std::string("sql select count(*) from ") + reader.table;
        const Asked firstPage = {count, reader.firstPage};

        sign.Renew();
        sign.answers[count] = {ReportSign::Rows(1, "<0>")};
        EXPECT_EQ(reader.read(1), 0u);
        EXPECT_EQ(sign.asked, Asked{count} + reader.clearing);

        // A row that does not match ends its page, not the reading.
        sign.asked.clear();
        sign.answers[count] = {ReportSign::Rows(1, "<3>")};
        sign.onSql = [](const std::string&) { return ReportSign::Rows(2, "<1><2><3><4><5>"); };
        EXPECT_EQ(reader.read(1), 0u);
        std::string second = reader.firstPage;
        second.replace(second.find("offset 0") + 7, 1, second.find("limit 5") != second.npos ? "5" : "10");
        EXPECT_EQ(sign.asked, firstPage + Asked{second} + reader.clearing);

        // A page that fails, or brings no rows, is the last; the table is cleared.
        for (const auto& [page, result] : {std::pair{Refusal(36912), 36912u}, std::pair{ReportSign::Rows(0, ""), 0u}}) {
            sign.asked.clear();
            sign.answers[reader.firstPage] = {page};
            EXPECT_EQ(reader.read(1), result);
            EXPECT_EQ(sign.asked, firstPage + reader.clearing);
        }
        // Without a count nothing is read and nothing cleared.
        sign.asked.clear();
        sign.answers[count] = {Refusal(36869)};
        EXPECT_EQ(reader.read(1), 36869u);
        EXPECT_EQ(sign.asked, Asked{count});
        EXPECT_TRUE(Taken::records.empty());
    }
    sign.Renew();
    for (std::size_t i = 0; i + 1 < Readers().size(); ++i)
        for (const int mode : {0, 2, -1})
            EXPECT_EQ(Readers()[i].read(mode), 0u);
    EXPECT_EQ(vxReadSignLog(0, 0, 0, nullptr), 0u);
    EXPECT_TRUE(sign.asked.empty());
}

TEST_F(DatabaseLogs, EightBytesOfAPageArrive)
{
    Taken::result = 5; // not looked at
    sign.answers["sql select count(*) from EventLog"] = {ReportSign::Rows(1, "<2>")};
    sign.onSql = [](const std::string&) { return ReportSign::Rows(2, "<><><><><><><><>"); };
    EXPECT_EQ(vxReadEventLog(0, 7, 1, Taken::WithUser), 0u);
    EXPECT_EQ(Taken::records, std::vector<Bytes>{Bytes(128)});
    EXPECT_EQ(Taken::user, 7u);
    // Of a count seven digits arrive.
    sign.answers["sql select count(*) from EventLog"] = {ReportSign::Rows(1, "<123456789>")};
    int pages = 0;
    sign.onSql = [&](const std::string&) { return ReportSign::Rows(++pages < 20 ? 65535 : 0, "<1><2><3><4>"); };
    EXPECT_EQ(vxReadEventLog(0, 7, 1, Taken::WithUser), 0u);
    EXPECT_EQ(pages, 19) << "1234567 rows, 65535 at a time";
    EXPECT_EQ(Taken::records.size(), 1u);
}

// A record of so many bytes with texts at their offsets, and numbers behind theirs: offset, number, offset ...
Bytes Record(std::size_t size, const std::map<std::size_t, std::string>& texts, const Bytes& numbers)
{
    Bytes record(size);
    for (const auto& [offset, text] : texts)
        std::copy(text.begin(), text.end(), record.begin() + static_cast<std::ptrdiff_t>(offset));
    for (std::size_t i = 0; i < numbers.size(); i += 2)
        record[numbers[i]] = numbers[i + 1];
    return record;
}

TEST_F(DatabaseLogs, ColumnsOfARow)
{
    const auto x = [](std::size_t count) { return std::string(count, 'x'); };
    using Row = std::tuple<const Table&, std::string, Bytes>;
    for (const auto& [table, text, record] : {
             Row{kPlayLogTable, "<1><g><f><t><2><3>",
                 Record(388, {{288, "g"}, {12, "f"}, {268, "t"}}, {8, 1, 0, 2, 4, 3})},
             Row{kPlayLogTable, "<><><><><x>< 9y>", Record(388, {}, {4, 9})},
             Row{kSignLogTable, "<1><" + x(300) + "><" + x(300) + "><" + x(300) + "><" + x(300) + ">",
                 Record(376, {{4, x(372)}}, {0, 1})},
             Row{kTempLogTable, "<a><b><1><2><3><4><5><6><7><8><9>",
                 Record(76, {{0, "a"}, {20, "b"}}, {40, 1, 44, 2, 48, 3, 52, 4, 56, 5, 60, 6, 64, 7, 68, 8, 72, 9})},
             Row{kEventLogTable, "<1><t><2><n>", Record(128, {{8, "t"}, {28, "n"}}, {0, 1, 4, 2})},
             Row{kTileInfoTable, "<1><2><3><4><5><6><7><h><i><10><elev><12><13><14><o><16><q><18>",
                 Record(
                     332, {{28, "h"}, {44, "i"}, {64, "elev"}, {80, "o"}, {136, "q"}},
                     {0, 1, 4, 2, 8, 3, 12, 4, 16, 5, 20, 6, 24, 7, 60, 10, 68, 12, 72, 13, 76, 14, 132, 16, 188, 18})},
         }) {
        SCOPED_TRACE(text);
        const Pattern pattern(RowExpression(table.columns.size()).c_str());
        std::vector<Bytes> records;
        TakeRows(pattern, (text + text + "<1>").c_str(), 3,
                 [&, &table = table, &record = record](const Groups& groups) {
                     records.emplace_back(record.size());
                     for (std::size_t i = 0; i < table.columns.size(); ++i)
                         table.columns[i].Put(records.back().data(), groups[i + 1]);
                 });
        EXPECT_EQ(records, (std::vector{record, record}));
    }
}

} // namespace
} // namespace vxsign::test
