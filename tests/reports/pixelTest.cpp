// The pixel check and its findings.
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

class PixelCheck : public ReportTest
{
protected:
    PixelCheck() { Done(); }

    // A sign that needs no time for its check.
    void Done() { sign.answers["16/3"] = {Good(Hex("64000000"))}; }

    std::uint32_t Read(std::uint32_t source)
    {
        Taken::records.clear();
        sign.asked.clear();
        return vxReadPixelInfo(folder.Path().c_str(), 7, source, Taken::WithUser);
    }
    // "kind number x,y status @time" of each row.
    static std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (std::size_t i = 0; i < Taken::records.size(); ++i) {
            const auto row = Taken::As<vxPixelRow>(i);
            rows.push_back(std::to_string(row.Kind) + " " + std::to_string(row.Number) + " " + std::to_string(row.X) +
                           "," + std::to_string(row.Y) + " " + std::string(row.Status, strnlen(row.Status, 100)) +
                           " @" + std::string(row.Time, strnlen(row.Time, 20)));
        }
        return rows;
    }
};

TEST_F(PixelCheck, PollsEachSecond)
{
    const std::string pixels = folder.Path("p");
    const std::string signals = folder.Path("s");
    const auto check = [&] { return vxPxlChk(pixels.c_str(), signals.c_str()); };
    sign.files = {{"D:\\PXL.CSV", "pixels"}, {"D:\\SIGNAL.CSV", "signals"}};
    const auto percent = [](const char* digits) { return Good(Hex(digits)); };
    sign.answers["16/3"] = {percent("05000000"), percent("0A000000"), percent("63000000"), percent("64000000")};
    EXPECT_EQ(check(), 0u);
    EXPECT_EQ(sign.asked, (Asked{"16/1", "16/3", "16/3", "16/3", "16/3", "read D:\\PXL.CSV", "read D:\\SIGNAL.CSV"}));
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{10, 99}));
    EXPECT_EQ(FakeClock::SleptMs(), 2000u);
    EXPECT_EQ(folder.Read("p"), "pixels");
    EXPECT_EQ(folder.Read("s"), "signals");
    EXPECT_EQ(sign.Config().progressTotal, 4);
    EXPECT_EQ(sign.Config().progressPos, 3);

    // All done at once still costs a second poll; results that are not there do not count.
    sign.asked.clear();
    sign.files.clear();
    EXPECT_EQ(check(), 0u);
    EXPECT_EQ(sign.asked, (Asked{"16/1", "16/3", "16/3", "read D:\\PXL.CSV", "read D:\\SIGNAL.CSV"}));

    sign.asked.clear();
    sign.answers["16/3"] = {percent("05000000"), Refusal(36912)};
    EXPECT_EQ(check(), 36912u);
    EXPECT_EQ(sign.Config().progressPos, 1);
    sign.answers["16/3"] = {percent("64000000"), Refusal(36913)};
    EXPECT_EQ(check(), 36913u);
    sign.answers["16/1"] = {Refusal(36869)};
    EXPECT_EQ(check(), 36869u);
    EXPECT_EQ(sign.Config().progressPos, 0);
    EXPECT_EQ(sign.asked, (Asked{"16/1", "16/3", "16/3", "16/1", "16/3", "16/3", "16/1"}));

    // A check that never ends is aborted.
    sign.answers = {{"16/3", {percent("05000000")}}};
    sign.Config().onProgress = [](vxApiConfig* config, std::uint32_t, std::uint32_t) { config->abortFlag = 1; };
    EXPECT_EQ(check(), 20497u);
}

TEST_F(PixelCheck, CsvFilesAndTheirFailures)
{
    EXPECT_EQ(Read(0), 0u) << "no results on the sign, empty files here";
    EXPECT_TRUE(Taken::records.empty());
    for (const auto& [code, result] : {std::pair{36872, 0u}, std::pair{36912, 36912u}}) {
        sign.answers["16/1"] = {Refusal(static_cast<std::uint16_t>(code))};
        EXPECT_EQ(Read(0), result);
        EXPECT_EQ(sign.asked, Asked{"16/1"});
    }
    sign.answers.erase("16/1");
    std::filesystem::remove(folder.Path("SIGNAL.CSV"));
    std::filesystem::create_directory(folder.Path("SIGNAL.CSV"));
    EXPECT_EQ(Read(0), 20737u);
    EXPECT_EQ(sign.asked.back(), "delete D:\\SIGNAL.CSV");
    EXPECT_EQ(vxReadPixelInfo(folder.Path("no/such/").c_str(), 7, 0, Taken::WithUser), 20737u);
    EXPECT_EQ(sign.asked.back(), "delete D:\\PXL.CSV");
    std::filesystem::remove(folder.Path("SIGNAL.CSV"));

    const std::string longText(80, 's');
    // Lines end in CR LF; behind a bare line feed one byte is passed over.
    sign.files["D:\\PXL.CSV"] = "1,20,3,9,\"red\",\"2020-05-13 10:20:30\"\r\n"
                                "2,70000,65537,9,8,\"\",\"t\"\r\nno row\r\n"
                                "3,1,2,x,\"a\",unquoted,and long beyond 20\n"
                                "44,5,6,x,\"b\",\"t\"\r\n"
                                "5,1,2,w,\"" +
                                longText + longText +
                                "\",\"t\"\r\n"
                                "6,1,2,w,\"last\",\"t\"";
    sign.files["D:\\SIGNAL.CSV"] = "7,1,2,\"" + longText + "\",\"t\"\r\n8,,,\"\",\r\n";
    const std::vector<std::string> rows = {
        "2 1 20,3 red @2020-05-13 10:20:30",
        "2 2 70000,1  @t",
        "2 3 1,2 a @unquoted,and long be",
        "2 4 5,6 b @t",
        "2 6 1,2 last @t",
        "3 7 1,2 " + longText + " @t",
        "3 8 0,0  @\n",
    };
    for (const std::uint32_t source : {0, 7, 8, 10, 4000000}) {
        Done();
        EXPECT_EQ(Read(source), 0u);
        EXPECT_EQ(sign.asked, (Asked{"16/1", "16/3", "16/3", "read D:\\PXL.CSV", "read D:\\SIGNAL.CSV",
                                     "delete D:\\PXL.CSV", "delete D:\\SIGNAL.CSV"}));
        EXPECT_EQ(Rows(), rows);
    }
    EXPECT_EQ(Taken::user, 7u);
    EXPECT_EQ(folder.Read("PXL.CSV"), sign.files["D:\\PXL.CSV"]);
}

TEST_F(PixelCheck, TextFile)
{
    const std::string filler(120, 'f');
    using Row = std::tuple<std::string, std::vector<std::string>>;
    const std::string at = " @2020-05-13 10:20:30";
    for (const auto& [file, rows] : {
             Row{"all ok\r\nPort:1 Signal Error\r\n", {"0 0 0,0 all ok" + at}},
             Row{"x\nPort:12 Signal Error\nsee Board(3,4) have 12 pixel bad!\r\nToo many bad pixels\nALL OK\n",
                 {"0 0 12,0 Port:12 Signal Error" + at, "0 0 3,4 Board(3,4) have 12 pixel bad" + at,
                  "0 0 0,0 Too many bad" + at}},
             Row{"Port:1 Signal Error", {}}, // a last line without its end is not looked at
             Row{filler + "ALL OK\nPort:3 Signal Error\n", {"0 0 0,0 ALL OK" + at}},
             Row{filler + "fffALL OK\nPort:3 Signal Error\n", {"0 0 3,0 Port:3 Signal Error" + at}}, // cut in two
             Row{"Board(" + std::string(100, '1') + ",2) have 1 pixel bad\n",
                 {"0 0 4294967295,2 Board(" + std::string(94, '1') + at}},
             Row{"\r\r\n\n", {}},
         }) {
        sign.files["C:\\PIXEL.SYS"] = file;
        for (const std::uint32_t source : {2, 6, 9}) {
            EXPECT_EQ(Read(source), 0u);
            EXPECT_EQ(sign.asked, (Asked{"read C:\\PIXEL.SYS", "delete C:\\PIXEL.SYS"}));
            EXPECT_EQ(Rows(), rows) << file;
        }
    }
    sign.files.clear();
    EXPECT_EQ(Read(3), 0u);
    EXPECT_EQ(sign.asked, Asked{"read C:\\PIXEL.SYS"});
    sign.answers["read C:\\PIXEL.SYS"] = {Refusal(36880)};
    EXPECT_EQ(Read(4), 36880u);
    EXPECT_EQ(vxReadPixelInfo(folder.Path("no/such/").c_str(), 7, 5, Taken::WithUser), 20737u);
}

TEST_F(PixelCheck, Tables)
{
    const Answer two = ReportSign::Rows(1, "<2>");
    const std::string pixelPage = "sql select X,Y,Status,DateTime from PixelStatus limit 10 offset 0";
    const std::string signalPage = "sql select X,Y,Status,DateTime from PixelSignalErr limit 10 offset 0";
    const Asked all = {"sql select count(*) from PixelStatus", pixelPage, "sql select count(*) from PixelSignalErr",
                       signalPage};
    sign.answers[all[0]] = sign.answers[all[2]] = {two};
    sign.answers[pixelPage] = sign.answers[signalPage] = {ReportSign::Rows(2, "<><><><>")};
    const auto report = [&] {
        Taken::records.clear();
        sign.asked.clear();
        return vxReadPixelErrorReport(Taken::Plain);
    };
    EXPECT_EQ(report(), 0u);
    EXPECT_EQ(sign.asked, all) << "nothing is cleared";
    EXPECT_EQ(Rows(), (std::vector<std::string>{"2 0 0,0  @", "3 0 0,0  @"}));
    sign.answers[pixelPage] = {Refusal(36912)};
    EXPECT_EQ(report(), 36912u);
    EXPECT_EQ(sign.asked, all) << "the other table is read";
    sign.answers[all[2]] = {Refusal(36913)};
    sign.answers[pixelPage] = {ReportSign::Rows(0, "")};
    EXPECT_EQ(report(), 36913u);
    sign.answers[all[0]] = {Refusal(36869)};
    EXPECT_EQ(report(), 36869u);
    EXPECT_EQ(sign.asked, Asked{all[0]});
}

TEST_F(PixelCheck, TestPattern)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(vxTestPattern(), 0u) << "without the file";
    folder.Write("F:\\PL\\SIGNAL.CSV", "1,2,3,\"a\",\"t\"\r\nno row\r\n");
    EXPECT_EQ(vxTestPattern(), 0u);
    std::filesystem::current_path(before);
    EXPECT_TRUE(sign.asked.empty());
}

} // namespace
} // namespace vxsign::test
