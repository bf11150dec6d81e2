// The ring of warnings, the report and the log of the sign's program.
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

class Warnings : public ReportTest
{
protected:
    std::uint32_t ReadRing(const std::string& position, const std::string& records)
    {
        Taken::records.clear();
        sign.files["E:\\STATUS.SYS"] =
            "ST" + HexText("FFFFFFFFFFFF" + position) + std::string(22, '\xFF') + HexText(records);
        return vxReadSignWaringLog(local.c_str(), reinterpret_cast<const std::uint8_t*>("sign"), Taken::Plain);
    }
    // "hour/current " of each row.
    static std::string Walk()
    {
        std::string rows;
        for (std::size_t i = 0; i < Taken::records.size(); ++i) {
            const auto row = Taken::As<vxWaringLogRow>(i);
            const std::string text = row.Text;
            rows += std::string(row.Time).substr(11, 2) + "/" + text.substr(text.find('=') + 1, 1) + " ";
        }
        return rows;
    }

    std::uint32_t ReadReport(const std::string& xml)
    {
        Taken::records.clear();
        sign.files["E:\\errors.xml"] = xml;
        return vxReadWaringReport(Taken::Plain);
    }

    const std::string local = folder.Path("ring");
};

// Records of a ring: time stamps of 10 and 11 o'clock, warnings with the current values 1 to 3.
const std::string t = "05 AD50 8F52 FFFFFF", u = "05 AD50 8F5A FFFFFF";
const std::string a = "01 01 FFFFFFFFFFFF", b = "01 02 FFFFFFFFFFFF", c = "01 03 FFFFFFFFFFFF";

TEST_F(Warnings, RingIsWalkedOnce)
{
    const std::tuple<const char*, std::string, std::string, const char*> rows[] = {
        {"stamp behind the position, over the end", "0100", u + a + t + b + c, "10/2 10/3 "},
        {"without the end between, the record at the position is last", "0200", t + a + b + c, "10/1 10/2 "},
        {"two stamps", "0000", a + t + b + u + c, "10/2 11/3 "},
        {"stamp at the position", "0100", a + t + b, ""},
        {"no stamp", "0100", a + b + c, ""},
        {"no stamp from the beginning", "0000", a + b + c, ""},
        {"position behind the end", "0900", a + t + b + c, "10/2 10/3 "},
        {"position far behind", "FFFF", t + b, "10/2 "},
        {"no record", "0000", "", ""},
        {"no record, position behind", "0500", "", ""},
        {"a record cut short", "0000", a + t + b + "0105FF", "10/2 "},
    };
    for (const auto& [name, position, records, walk] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(ReadRing(position, records), 0u);
        EXPECT_EQ(Walk(), walk);
    }
}

TEST_F(Warnings, RowsOfTheRing)
{
    std::string records = "FF00000000000000" + t + "01 28 46 0000000000 02 29 47 0000000000";
    for (const char* const code : {"00", "01", "02", "03", "04", "05", "06", "07", "08", "09", "0A"})
        records += std::string("03") + code + "3412 00000000";
    for (const char* const code : {"00", "01", "02", "03", "04", "05", "06", "07"})
        records += std::string("04") + code + "01 0203 000000";
    Taken::result = 5;
    EXPECT_EQ(ReadRing("0000", records), 5u);
    std::vector<std::string> texts = {"Inside Tempturature Waring,Current=40,Proect=70",
                                      "Outside Tempturature Waring,Current=41,Proect=71"};
    for (const char* const part : {"Temperature", "PowerI", "PowerII", "FAN", "PHY", "CABLE", "GAMMR", "CPU", "FPGA"})
        texts.push_back(std::string("Tile ") + part + " Waring, Address=4660");
    for (const char* const text : {"(257,770) Red Pixel", "(258,770) Green Pixel", "(259,770) Blue Pixel",
                                   "(260,770) Red Signal", "(261,770) Green Signal", "(262,770) Blue Signal"})
        texts.push_back(text + std::string(" Bad"));
    ASSERT_EQ(Taken::records.size(), texts.size()) << "a callback that fails does not end it";
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto row = Taken::As<vxWaringLogRow>(i);
        EXPECT_EQ(row.Text, texts[i]);
        EXPECT_EQ(row.Level, i < 2 ? 3u : 2u);
        EXPECT_STREQ(row.Time, "2020-05-13 10:20:30");
        EXPECT_STREQ(row.SignName, "sign");
    }
}

TEST_F(Warnings, FailuresOfTheRing)
{
    const std::string longName(200, 'n');
    const auto read = [&](const char* to) {
        return vxReadSignWaringLog(to, reinterpret_cast<const std::uint8_t*>(longName.c_str()), Taken::Plain);
    };
    EXPECT_EQ(read(local.c_str()), 0u) << "a sign without warnings";
    EXPECT_EQ(sign.asked, Asked{"read E:\\STATUS.SYS"});
    EXPECT_EQ(read(folder.Path("no/such").c_str()), 20737u);
    for (const std::string& bad : {std::string("ST"), "ST" + std::string(29, '\0'), "SU" + std::string(40, '\0')}) {
        sign.files["E:\\STATUS.SYS"] = bad;
        EXPECT_EQ(read(local.c_str()), 258u);
        EXPECT_EQ(sign.asked.back(), "delete E:\\STATUS.SYS");
        EXPECT_EQ(folder.Read("ring"), bad);
    }
    EXPECT_EQ(ReadRing("0000", a + t + b), 0u);
    EXPECT_EQ(read(local.c_str()), 0u);
    EXPECT_EQ(FromText(std::string(100, 'n')), Bytes(Taken::records[1].begin() + 24, Taken::records[1].begin() + 124));
    sign.answers["read E:\\STATUS.SYS"] = {Refusal(36880)};
    EXPECT_EQ(read(local.c_str()), 36880u);
}

// "kind X,Y name=value @time" of each row.
std::vector<std::string> Report()
{
    std::vector<std::string> rows;
    for (std::size_t i = 0; i < Taken::records.size(); ++i) {
        const auto row = Taken::As<vxWaringReportRow>(i);
        rows.push_back(std::to_string(row.Kind) + " " + std::to_string(row.X) + "," + std::to_string(row.Y) + " " +
                       row.Name + "=" + row.Value + " @" + row.Time);
    }
    return rows;
}

TEST_F(Warnings, RowsOfTheReportAndItsFailures)
{
    Taken::result = 5; // not looked at
    EXPECT_EQ(ReadReport(R"(<?xml version="1.0"?><any>
        <PixelCheckResult><DT>t3</DT><PixelErrorNum>12</PixelErrorNum><SignalErrorNum>1</SignalErrorNum></PixelCheckResult>
        <MainboardStatus><DT>t1</DT><Waring><Fan>stopped</Fan><Door/></Waring></MainboardStatus>
        <TileStatus><DT>t2<Waring><D>4</D></Waring></DT>
            <T1><Position>X=300,Y=5</Position><Waring><Temp>80</Temp><Power>low</Power></Waring></T1>
            <T2><Position>nowhere</Position><Waring><A>1</A></Waring></T2><T3><Waring><B>2</B></Waring></T3>
            <T4><Position>at x=1,y=-1</Position><Waring><C>3</C></Waring></T4><T5><Waring/></T5><T6/>
        </TileStatus></any>)"),
              0u);
    EXPECT_EQ(Report(), (std::vector<std::string>{"0 0,0 Fan=stopped @t1", "0 0,0 Door= @t1", "1 44,5 Temp=80 @t2",
                                                  "1 44,5 Power=low @t2", "1 255,255 A=1 @t2", "1 255,255 B=2 @t2",
                                                  "1 1,255 C=3 @t2", "2 0,0 PixelError=Num=12 @t3",
                                                  "3 0,0 SignalError=Num=1 @t3"}));
    const std::string much(1000, 'm');
    EXPECT_EQ(ReadReport("<a><MainboardStatus><DT>" + much + "</DT><Waring><" + much + ">" + much + "</" + much +
                         "></Waring></MainboardStatus></a>"),
              0u);
    EXPECT_EQ(Report(), std::vector<std::string>{"0 0,0 " + much.substr(0, 63) + "=" + much.substr(0, 255) + " @" +
                                                 much.substr(0, 65)});
    for (const char* const nothing :
         {"<a/>", "<!-- a -->", "<a><PixelCheckResult/><TileStatus/><MainboardStatus/></a>",
          "<a><PixelCheckResult><PixelErrorNum>0</PixelErrorNum><SignalErrorNum>-1</SignalErrorNum></"
          "PixelCheckResult></a>",
          "<a><PixelCheckResult><PixelErrorNum/><SignalErrorNum>x</SignalErrorNum></PixelCheckResult></a>"}) {
        EXPECT_EQ(ReadReport(nothing), 0u) << nothing;
        EXPECT_TRUE(Taken::records.empty());
    }
    EXPECT_TRUE(folder.IsEmpty());

    sign.files.clear();
    EXPECT_EQ(vxReadWaringReport(Taken::Plain), 36872u);
    EXPECT_EQ(ReadReport("<a><b></a>"), 14u) << "mismatched element";
    EXPECT_EQ(ReadReport(" "), 13u) << "empty document";
    std::string deep;
    for (int i = 0; i < 20000; ++i)
        deep += "<a>";
    EXPECT_NE(ReadReport(deep), 0u);
    EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(Warnings, LogOfTheProgram)
{
    Bytes head(16, 0xEE);
    Bytes rows(96, 0xEE);
    const auto read = [&](const std::string& file) {
        sign.files["D:\\log\\vxspeapp.log"] = file;
        return vxReadWarningLog(reinterpret_cast<std::uint16_t*>(head.data()), rows.data(), 2);
    };
    EXPECT_EQ(read("GL" + std::string(14, 'h') + std::string(40, 'r')), 0u);
    EXPECT_EQ(head, FromText("GL" + std::string(14, 'h')));
    EXPECT_EQ(rows, Bytes(40, 'r') + Bytes(24, 0) + Bytes(32, 0xEE)) << "two rows, the second cut short";
    rows.assign(96, 0xEE);
    EXPECT_EQ(read("LG" + std::string(100, 'x')), 0u);
    EXPECT_EQ(read("G"), 0u);
    EXPECT_EQ(head, Hex("47") + Bytes(15));
    EXPECT_EQ(rows, Bytes(96, 0xEE));
    EXPECT_TRUE(folder.IsEmpty());
    sign.answers["read D:\\log\\vxspeapp.log"] = {Refusal(36880)};
    EXPECT_EQ(read(""), 36880u);
    // Missing pointers are found where every command finds them: inside its frame.
    sign.Config().initialised = 0;
    EXPECT_EQ(vxReadWarningLog(nullptr, nullptr, 2), 20736u);
}

} // namespace
} // namespace vxsign::test
