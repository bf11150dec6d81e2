// The condition of the sign, its warnings and measurements, the pixel check, and bad lamps on its face.
#include "sim/logs/warningFiles.h"
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using Status = LogTest;

TEST(Condition, TextsAreReadAndWritten)
{
    vxsim::Condition condition =
        vxsim::ParseCondition("bad 3,4,red\nnonsense\r\n\nbad 5,6,all,stuck\r\nbad 7,8,blue,signal"
                              "\nhot 2\nhot 9\ncool 9\ndoor open\ngood 5,6\nbad 1,2");
    EXPECT_EQ(vxsim::ConditionText(condition), "door open\nhot 2\nbad 3,4,red,dark\nbad 7,8,blue,signal\n");
    EXPECT_EQ(vxsim::ParseCondition(vxsim::ConditionText(condition)), condition);
    using Row = std::pair<const char*, const char*>;
    for (const auto& [what, value] : {Row{"bad", "1,2"},
                                      Row{"bad", "1,2,pink"},
                                      Row{"bad", "1,2,red,odd"},
                                      Row{"bad", "-1,2,red"},
                                      Row{"bad", "1,65536,red"},
                                      Row{"bad", ""},
                                      Row{"bad", "1,2,red,dark,5"},
                                      Row{"good", "1"},
                                      Row{"good", "x,1"},
                                      Row{"tile-error", "1"},
                                      Row{"tile-error", "1,"},
                                      Row{"tile-error", "1,silly"},
                                      Row{"tile-error", "0,bus"},
                                      Row{"tile-error", "x,bus"},
                                      Row{"tile-error", "1,bus,2"},
                                      Row{"hot", "0"},
                                      Row{"hot", "all"},
                                      Row{"hot", "2x"},
                                      Row{"door", "ajar"},
                                      Row{"paint", "red"}})
        EXPECT_THROW(vxsim::Change(condition, what, value), std::invalid_argument) << what << ' ' << value;
    vxsim::Change(condition, "good", "all");
    vxsim::Change(condition, "cool", "all");
    vxsim::Change(condition, "door", "closed");
    EXPECT_EQ(condition, vxsim::Condition());
    const std::string text = "door closed\nhot 2\nlock 3\ntile-error 1,bus\ntile-error 4,full\n";
    EXPECT_EQ(vxsim::ConditionText(vxsim::ParseCondition(text)), text);
    EXPECT_EQ(vxsim::ParseCondition(text + "tile-good all\nunlock all\ncool all"), condition);
}

TEST_F(Status, StateWordAndRecordTellTheCondition)
{
    sign->KeepUp(0); // ten o'clock: 22 outside, full light
    Bytes reply = Ask(1, 11);
    EXPECT_EQ(PayloadOf(reply), (Bytes{0, 38, 22, 0, 43, 0, 55, 0}));
    ASSERT_EQ(ExtendedOf(reply).size(), 96U);
    EXPECT_EQ(ExtendedOf(Ask(1, 26, {9})), Bytes{0});
    Ask(5, 3, {80, 0xF0, 0x0F}); // a degree below 0
    Tell(1000, "bad 3,4,all\nbad 5,4,red,signal\nhot 2\nhot 5\ndoor open");
    AskAt(9000, 4, 1);
    reply = Ask(1, 11);
    EXPECT_EQ(PayloadOf(reply), (Bytes{0x17, 25, 0xFF, 0, 85, 0, 80, 0})) << "tile 5 is none of this face";
    const Bytes record = ExtendedOf(reply);
    EXPECT_EQ(Part(record, 0, 16), (Bytes{0, 0, 0, 0, 3, 0, 1, 0, 1, 0, 4, 0, 1, 1, 1, 8}));
    EXPECT_EQ(record[80], 9);
    EXPECT_EQ(ExtendedOf(Ask(1, 26, {9})), Bytes{1});
    std::filesystem::remove(folder.path / "sign/condition.txt");
    sign->KeepUp(10000);
    EXPECT_EQ(PayloadOf(Ask(1, 11))[0], 0x10) << "but for the dark face all is well";
}

TEST_F(Status, FaultsAreEventsAsTheyComeAndGo)
{
    sign->KeepUp(0);
    Tell(1000, "bad 3,4,red\nhot 2\ndoor open");
    Tell(1100, "hot 2\ndoor open");
    EXPECT_EQ(RowsOf("select count(*) from EventLog"), "<3>") << "looks a few times a second only";
    sign->KeepUp(2000);
    Tell(3000, "");
    EXPECT_EQ(RowsOf("select EventType,DateTime,Status,Note from EventLog"),
              "<1><2020-05-13 10:20:31><1><Door open>"
              "<2><2020-05-13 10:20:31><1><(3,4) Red Pixel Bad>"
              "<4><2020-05-13 10:20:31><1><Tile 2 hot>"
              "<2><2020-05-13 10:20:32><0><(3,4) Red Pixel Bad>"
              "<1><2020-05-13 10:20:33><0><Door closed>"
              "<4><2020-05-13 10:20:33><0><Tile 2 cool>");
}

TEST_F(Status, TheRingHasATimeStampBeforeEachWarning)
{
    sign->KeepUp(0);
    EXPECT_FALSE(std::filesystem::exists(folder.path / "E/STATUS.SYS"));
    Tell(1000, "hot 3");
    Tell(3000, "hot 3\nbad 5,20,green\nbad 5,21,blue,signal");
    const Bytes stamp31{5, 0xAD, 0x50, 0x8F, 0x52, 0, 0, 0};
    const Bytes stamp33{5, 0xAD, 0x50, 0x90, 0x52, 0, 0, 0};
    EXPECT_EQ(OnSign("E/STATUS.SYS"),
              (Bytes{'S', 'T', 0, 0, 0, 0, 0, 0, 5, 0} + Bytes(22, 0) + stamp31 + Bytes{3, 1, 3, 0, 0, 0, 0, 0} +
               stamp33 + Bytes{4, 2, 0, 20, 0, 0, 0, 0} + stamp33 + Bytes{4, 6, 0, 21, 0, 0, 0, 0}));
    const Bytes log = OnSign("D/log/vxspeapp.log");
    ASSERT_EQ(log.size(), 16U + 3 * 32);
    EXPECT_EQ(Part(log, 0, 25),
              (Bytes{'G', 'L', 32, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xAD, 0x50, 0x90, 0x52, 4, 6, 0, 21, 0}));
}

TEST(WarningFiles, AFullRingGoesRoundAndAForeignFileIsReplaced)
{
    const TempFolder folder;
    const vxsim::Drives drives(folder.path, "CDE");
    const vxsim::WarningFiles files(drives, vxsim::Tiles(32, 32));
    std::ofstream(folder.path / "E/STATUS.SYS") << std::string(100, 'x');
    for (int i = 0; i < 258; ++i) {
        const auto warning = vxsim::Warning::HotTile(i);
        files.Add({&warning, 1}, {});
    }
    const Bytes ring = FromText(folder.Read("E/STATUS.SYS"));
    ASSERT_EQ(ring.size(), 32U + 256 * 16);
    EXPECT_EQ(ring[8], 3) << "the latest is the second pair's";
    EXPECT_EQ(Part(ring, 56, 4), (Bytes{3, 1, 1, 1}));
    EXPECT_EQ(Part(ring, 72, 4), (Bytes{3, 1, 2, 0}));
    EXPECT_EQ(std::filesystem::file_size(folder.path / "D/log/vxspeapp.log"), 16U + 255 * 32);
}

TEST_F(Status, TheReportTellsWhatIsWrongNow)
{
    Tell(0, "bad 3,4,all\nbad 5,4,red,signal\nhot 2\ndoor open");
    EXPECT_EQ(
        folder.Read("E/errors.xml"),
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Errors>\n"
        "<MainboardStatus><DT>2020-05-13 10:20:30</DT>\n<Waring><Door>open</Door>\n</Waring>\n</MainboardStatus>\n"
        "<TileStatus><DT>2020-05-13 10:20:30</DT>\n<Tile><Position>X=1,Y=0</Position>\n"
        "<Waring><Temperature>85</Temperature>\n</Waring>\n</Tile>\n</TileStatus>\n"
        "<PixelCheckResult><DT>2020-05-13 10:20:30</DT>\n<PixelErrorNum>3</PixelErrorNum>\n"
        "<SignalErrorNum>1</SignalErrorNum>\n</PixelCheckResult>\n</Errors>\n");
    Tell(1000, "hot 1\nhot 2\nhot 3");
    EXPECT_NE(folder.Read("E/errors.xml").find("<Waring><Temperature>74</Temperature>"), std::string::npos);
    sign->KeepUp(6000); // the box is warned of with its measurement
    EXPECT_EQ(folder.Read("E/STATUS.SYS").substr(32 + 15 * 8, 3), "\x01\x45\x3C");
    Rebuild(32, 32);
    Restart("C"); // a sign without the drives goes without the files
    Tell(7000, "door open");
    EXPECT_EQ(PayloadOf(Ask(1, 11))[0], 4);
}

TEST_F(Status, MeasuresATileTableAndTemperatures)
{
    Tell(0, "hot 2\nbad 3,4,all");
    Ask(5, 3, {80, 0x90, 0x01}); // 25 degrees
    for (std::uint64_t ms = 6000; ms <= 60000; ms += 6000)
        sign->KeepUp(ms);
    const std::string columns = "OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,BoxHightTemp,"
                                "BoxLowTemp,BoxAvgTemp from TempLog limit 10 offset 0";
    EXPECT_EQ(RowsOf("select BeginTime,EndTime," + columns),
              "<2020-05-13 10:20:30><2020-05-13 10:20:30><22><22><22><48><48><48><53><53><53>"
              "<2020-05-13 10:20:36><2020-05-13 10:21:30><25><25><25><50><50><50><55><55><55>");
    const std::string tiles = "select * from TileInfo limit 2 offset 0;";
    EXPECT_EQ(RowsOf(tiles), "<1><0><0><16><16><46><5000><VT16><1.0><60><RGB><3><0><0><VXTILE1><70><good><8>"
                             "<2><1><0><16><16><85><5000><VT16><1.0><60><RGB><0><0><1><VXTILE2><70><hot><8>");
    EXPECT_EQ(RowsOf("delete from TileInfo"), "");
    for (std::uint64_t ms = 66000; ms <= 120000; ms += 6000)
        sign->KeepUp(ms);
    EXPECT_EQ(RowsOf("select count(*) from TileInfo"), "<4>") << "measured anew";
}

using Pixels = LogTest;

TEST_F(Pixels, ACheckRunsAndLeavesItsResults)
{
    Tell(0, "bad 3,4,red\nbad 17,4,all,stuck\nbad 5,20,green,signal");
    EXPECT_EQ(PayloadOf(Ask(16, 3, Bytes(4, 0))), (Bytes{100, 0, 0, 0})) << "none runs";
    EXPECT_EQ(CodeOf(AskAt(1000, 16, 1)), 0U);
    EXPECT_EQ(PayloadOf(AskAt(1000, 16, 3))[0], 0);
    EXPECT_EQ(PayloadOf(AskAt(3000, 16, 3))[0], 50);
    EXPECT_EQ(CodeOf(AskAt(4000, 16, 1)), 0U) << "goes on";
    EXPECT_EQ(PayloadOf(AskAt(4999, 16, 3))[0], 99);
    EXPECT_FALSE(std::filesystem::exists(folder.path / "D/PXL.CSV"));
    EXPECT_EQ(PayloadOf(AskAt(5000, 16, 3))[0], 100);
    EXPECT_EQ(folder.Read("D/PXL.CSV"), "No,X,Y,Lamp,Status,Time\n"
                                        "1,3,4,1,\"Red Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "2,17,4,1,\"Red Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "3,17,4,2,\"Green Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "4,17,4,3,\"Blue Pixel Bad\",\"2020-05-13 10:20:35\"\n");
    EXPECT_EQ(folder.Read("D/SIGNAL.CSV"), "No,X,Y,Status,Time\n1,5,20,\"Green Signal Bad\",\"2020-05-13 10:20:35\"\n");
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"),
              "Port:2 Signal Error\nBoard(0,0) have 1 pixel bad\nBoard(1,0) have 3 pixel bad\n");
    EXPECT_EQ(RowsOf("select X,Y,Status,DateTime from PixelStatus limit 1 offset 0"),
              "<3><4><Red Pixel Bad><2020-05-13 10:20:35>");
    EXPECT_EQ(RowsOf("select count(*) from PixelStatus"), "<4>");
    EXPECT_EQ(RowsOf("select X,Y,Status,DateTime from PixelSignalErr"),
              "<5><20><Green Signal Bad><2020-05-13 10:20:35>");
}

TEST_F(Pixels, ACheckEndsWithoutPollsToo)
{
    Ask(16, 1);
    AskAt(3000, 4, 0);
    sign->KeepUp(5000);
    EXPECT_FALSE(std::filesystem::exists(folder.path / "C/PIXEL.SYS")) << "the restart has ended it";
    Ask(16, 1);
    sign->KeepUp(9000);
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"), "ALL OK\n");
    EXPECT_EQ(folder.Read("D/SIGNAL.CSV"), "No,X,Y,Status,Time\n");
    std::string many;
    for (int i = 0; i < 103; ++i)
        many += "bad " + std::to_string(i % 32) + "," + std::to_string(i / 32) + ",all\n";
    Tell(10000, many);
    AskAt(10000, 16, 1);
    sign->KeepUp(14000);
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"), "Too many bad\n");
    EXPECT_EQ(RowsOf("select count(*) from PixelStatus"), "<309>");
}

TEST_F(Pixels, TheFaceShowsWhatIsWrong)
{
    Tell(0, "bad 3,4,red\nbad 40,4,red\nbad 4,4,all\nbad 5,4,green,signal\nbad 6,4,red,stuck\nhot 4");
    Ask(3, 11, Bytes{0, 200, 100} + Bytes(13, 0));
    EXPECT_EQ(At(0, 2, 4), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 3, 4), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 4, 4), kDark);
    EXPECT_EQ(At(0, 5, 4), (vxsim::Rgb{0, 0, 100}));
    EXPECT_EQ(At(0, 6, 4), (vxsim::Rgb{255, 200, 100}));
    EXPECT_EQ(At(0, 15, 16), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 16, 16), (vxsim::Rgb{0, 107, 53})) << "a hot tile saves power";
    Ask(4, 1);
    EXPECT_EQ(At(0, 6, 4), kRed) << "a stuck lamp shines in the dark";
    Ask(4, 3);
    EXPECT_EQ(At(0, 6, 4), kDark);
    Ask(4, 4);
    Ask(4, 2);
    Tell(1000, "");
    EXPECT_EQ(At(1000, 4, 4), (vxsim::Rgb{0, 200, 100}));
}

} // namespace
} // namespace vxsign::test
