// Every reader against files and rows that no sign would make. What counts is that each reading ends, under the
// sanitizers.
#include "reports/logTables.h"
#include "support/reportSign.h"

#include <iterator>
#include <random>
#include <sstream>

namespace vxsign::test {
namespace {

using RandomReports = ReportTest;

TEST_F(RandomReports, EndCleanly)
{
    const std::string heads[] = {"", "<a>", "ST" + HexText("000000000000 0300") + std::string(22, '\0'),
                                 "RLOG" + HexText("01000000 0000000000000000"),
                                 HexText("FFFFFFFF01000000 0000000000000000")};
    std::istringstream words(
        R"(< > </ /> <1><t> <Waring> </Waring> <TileStatus> <MainboardStatus> <DT> &#x; &lt <!-- -->
        <![CDATA[ ]]> <Position>X=1,Y=2</Position> <PixelErrorNum> 9999999999 1,2,3, "a", ALL Port:7)");
    std::vector<std::string> pieces(std::istream_iterator<std::string>(words), {});
    for (const char* const digits : {"0D0A", "0A", "0D", "414C4C204F4B", "0501000000000000", "01FF0005"})
        pieces.push_back(HexText(digits));
    pieces.emplace_back(90, 'x');
    std::mt19937 random(6123);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    const std::string folderPath = folder.Path();
    const char* const where = folderPath.c_str();
    for (int round = 0; round < 60; ++round) {
        const auto make = [&] {
            std::string file = heads[below(std::size(heads))];
            for (std::size_t i = below(80); i > 0; --i)
                file += pieces[below(pieces.size())];
            return file;
        };
        sign.Renew();
        for (const char* const path :
             {"D:\\RADARLog.log", "E:\\RADAR.log", "D:\\batinfo.log", "E:\\STATUS.SYS", "E:\\errors.xml",
              "D:\\log\\vxspeapp.log", "D:\\PXL.CSV", "D:\\SIGNAL.CSV", "C:\\PIXEL.SYS"})
            sign.files[path] = make();
        sign.onSql = [&](const std::string& sql) {
            return ReportSign::Rows(static_cast<std::uint16_t>(below(3)),
                                    sql.find("count") != sql.npos ? "<9" : make());
        };
        sign.answers["16/3"] = {Good(Hex("64000000"))};
        sign.answers["6/23"] = {Good({}, FromText(make().substr(0, 79)))};
        sign.answers["1/11"] = {Good(Hex("00"), FromText(make()))};
        sign.answers["6/7"] = {Good(FromText(make().substr(0, 1000)))};

        std::uint16_t head[8];
        std::uint8_t rows[64] = {};
        std::uint8_t record[569];
        vxReadRadarLog(where, 0, 0, Taken::WithUser);
        vxReadNewRadarLog(where, 0, 0, Taken::WithUser);
        vxReadTJRadarLog(where, 0, 0, Taken::WithUser);
        vxReadBatInfoLog(where, 0, 0, 0, Taken::WithUser);
        vxReadPlayLogExt(0, 0, 1, Taken::WithUser);
        vxReadEventLog(0, 0, 1, Taken::WithUser);
        vxReadSignWaringLog(folder.Path("ring").c_str(), rows, Taken::Plain);
        vxReadWaringReport(Taken::Plain);
        vxReadWarningLog(head, rows, 2);
        for (const std::uint32_t source : {0, 1, 2})
            vxReadPixelInfo(where, 0, source, Taken::WithUser);
        vxReadPixelErrorReport(Taken::Plain);
        vxUpdate3Info(record);
        vxReadStatusInfo(
            where, 0, 0, [](auto...) { return 0u; }, 0x44FFF000 + static_cast<std::uint32_t>(round), 0x7F800000, 1);

        // Whole rows, as a reader of more than eight bytes would have them.
        for (const Table* const table : {&kPlayLogTable, &kSignLogTable, &kTempLogTable, &kTileInfoTable}) {
            const Pattern row(RowExpression(table->columns.size()).c_str());
            TakeRows(row, make().c_str(), 300, [&](const Groups& groups) {
                std::vector<std::uint8_t> bytes(400);
                for (std::size_t i = 0; i < table->columns.size(); ++i)
                    table->columns[i].Put(bytes.data(), groups[i + 1]);
            });
        }
    }
}

TEST_F(RandomReports, DeepXml)
{
    for (int i = 0; i < 20000; ++i)
        sign.files["E:\\errors.xml"] += "<a>";
    EXPECT_NE(vxReadWaringReport(Taken::Plain), 0u);
}

} // namespace
} // namespace vxsign::test
