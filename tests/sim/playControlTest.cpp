#include "stageFixture.h"

#include "sim/content/picture.h"

namespace vxsim_tests {
namespace {

class PlayControl : public StageTest
{
protected:
    // What the sign names as playing, up to the terminator; "" if nothing plays.
    std::string Name(std::uint64_t nowMs, unsigned minor = 7)
    {
        const Bytes reply = AskAt(nowMs, 6, minor, {1, 0, 0, 0});
        if (CodeOf(reply) == 26369)
            return "";
        return reinterpret_cast<const char*>(PayloadOf(reply).data());
    }
};

TEST_F(PlayControl, NextAndPreviousGoThroughTheList)
{
    EXPECT_EQ(Name(0), "");
    EXPECT_EQ(Name(0, 8), "");
    PlayThree();
    EXPECT_EQ(Name(0), "D:\\T\\RED.BMP");
    EXPECT_EQ(Name(0, 8), "D:\\T\\GREEN.BMP");
    EXPECT_EQ(CodeOf(AskAt(1000, 6, 5)), 0U);
    EXPECT_EQ(Name(1000), "D:\\T\\GREEN.BMP");
    EXPECT_EQ(At(3999), kGreen) << "its whole turn";
    EXPECT_EQ(At(4000), kBlue);
    EXPECT_EQ(CodeOf(AskAt(4500, 6, 5)), 0U);
    EXPECT_EQ(At(4500), kRed) << "from the end to the start";
    EXPECT_EQ(CodeOf(AskAt(5000, 6, 9)), 0U);
    EXPECT_EQ(At(5000), kBlue);
    std::filesystem::remove(folder.path / "D/T/GREEN.BMP");
    EXPECT_EQ(CodeOf(AskAt(5500, 6, 9)), 0U);
    EXPECT_EQ(At(5500), kRed) << "past what is gone";
    EXPECT_EQ(Name(5500, 8), "D:\\T\\BLUE.BMP");
    EXPECT_EQ(CodeOf(AskAt(7000, 6, 1)), 0U);
    EXPECT_EQ(At(9999), kRed) << "the list from its start";
}

TEST_F(PlayControl, APauseHoldsTheTurn)
{
    PlayThree();
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(CodeOf(AskAt(2000, 6, 3)), 0U);
    EXPECT_EQ(CodeOf(AskAt(3000, 6, 3)), 0U) << "once more: a copy of a request";
    EXPECT_EQ(At(100000), kRed);
    EXPECT_EQ(CodeOf(AskAt(100000, 6, 4)), 0U);
    EXPECT_EQ(CodeOf(AskAt(100500, 6, 4)), 0U);
    EXPECT_EQ(At(100999), kRed);
    EXPECT_EQ(At(101000), kGreen);
    EXPECT_EQ(CodeOf(AskAt(102000, 6, 2)), 0U);
    EXPECT_EQ(At(104999), kGreen) << "the file from its start";
    EXPECT_EQ(At(105000), kBlue);
    EXPECT_EQ(CodeOf(AskAt(106000, 6, 3)), 0U);
    EXPECT_EQ(CodeOf(AskAt(107000, 6, 5)), 0U);
    EXPECT_EQ(At(109999), kRed);
    EXPECT_EQ(At(110000), kGreen) << "the pause is over";
}

TEST_F(PlayControl, MovesWithinATurnAndFromPageToPage)
{
    PutFile("D:\\T\\A.NMG", Text("QZ00SAX\x1C"
                                 "1\x0E"
                                 "20008A\fB\fC"));
    PutFile("D:\\T\\RED.BMP", Dot(255, 0, 0));
    PutFile("C:\\SEQUENT.SYS", List({"A.NMG", "RED.BMP"}));
    At(100000);                                  // 24 seconds of A, B and C
    EXPECT_EQ(CodeOf(AskAt(101000, 6, 12)), 0U); // at 8
    EXPECT_EQ(CodeOf(AskAt(102000, 6, 12)), 0U); // from 9 to 16
    EXPECT_EQ(CodeOf(AskAt(103000, 6, 11)), 0U); // from 17 back to 12
    EXPECT_EQ(CodeOf(AskAt(103500, 6, 10)), 0U); // from 12.5 to 17.5
    EXPECT_EQ(Name(109999), "D:\\T\\A.NMG");
    EXPECT_EQ(Name(110000), "D:\\T\\RED.BMP");
    EXPECT_EQ(CodeOf(AskAt(111000, 6, 11)), 0U); // not before its start
    EXPECT_EQ(Name(113999), "D:\\T\\RED.BMP");
    EXPECT_EQ(Name(114000), "D:\\T\\A.NMG");
}

TEST_F(PlayControl, APriorityFilePlaysOnceWhereverItIs)
{
    PlayThree();
    PutFile("E:\\P\\WHITE.BMP", Dot(255, 255, 255));
    PutFile("E:\\P\\BAD.BMP", Text("no picture"));
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(CodeOf(AskAt(1000, 6, 6, Bytes{'E', 'P'} + Text("WHITE.BMP") + Bytes(5, 0))), 0U);
    EXPECT_EQ(Name(1000), "E:\\P\\WHITE.BMP");
    EXPECT_EQ(At(3999), kWhite);
    EXPECT_EQ(At(4000), kGreen) << "on with the list";
    EXPECT_EQ(CodeOf(AskAt(5000, 6, 6, Bytes{0, 1} + Text("white.bmp") + Bytes(5, 0))), 0U);
    EXPECT_EQ(At(5000), kWhite);
    EXPECT_EQ(CodeOf(AskAt(5500, 6, 6, Bytes{'D', 'T'} + Text("WHITE.BMP") + Bytes(5, 0))), 36872U);
    EXPECT_EQ(CodeOf(AskAt(5500, 6, 6, Bytes{0, 0} + Text("BAD.BMP") + Bytes(7, 0))), 36880U);
    EXPECT_EQ(CodeOf(AskAt(5500, 6, 6, Bytes{0, 0} + Text("..\\..\\x") + Bytes(7, 0))), 36872U);
    EXPECT_EQ(At(7999), kWhite);
    std::filesystem::remove(folder.path / "C/SEQUENT.SYS");
    EXPECT_EQ(CodeOf(AskAt(9000, 6, 1)), 0U);
    EXPECT_EQ(CodeOf(AskAt(9000, 6, 6, Bytes{0, 0} + Text("WHITE.BMP") + Bytes(5, 0))), 0U);
    EXPECT_EQ(At(11999), kWhite);
    EXPECT_EQ(At(12000), kDark) << "there is no list to go on with";
}

TEST_F(PlayControl, ListsByNumberAndBackToTheMainOne)
{
    PlayThree();
    PutFile("C:\\PLAYLIST\\SEQUENT3.SYS", List({"BLUE.BMP"}));
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(PayloadOf(Ask(6, 29)), (Bytes{255, 0, 0, 0}));
    EXPECT_EQ(CodeOf(AskAt(500, 6, 24, {3, 0, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(6, 29)), (Bytes{3, 0, 0, 0}));
    EXPECT_EQ(At(4000), kBlue);
    EXPECT_EQ(CodeOf(AskAt(4000, 6, 24, {4, 0, 0, 0})), 36872U);
    EXPECT_EQ(CodeOf(AskAt(4000, 6, 1)), 0U);
    EXPECT_EQ(At(4000), kBlue) << "from the start of the same list";
    EXPECT_EQ(CodeOf(AskAt(5000, 6, 24, {255, 0, 0, 0})), 0U);
    EXPECT_EQ(At(5000), kRed);
    EXPECT_EQ(CodeOf(AskAt(6000, 6, 24, {3, 0, 0, 0})), 0U);
    PutFile("C:\\playlist\\sequent3.sys", List({"RED.BMP"}));
    EXPECT_EQ(At(6500), kRed) << "a new file of the list that plays";
    PutFile("C:\\PLAYLIST\\SEQUENT4.SYS", List({"BLUE.BMP"}));
    EXPECT_EQ(At(6600), kRed);
    PutFile("C:\\SEQUENT.SYS", List({"GREEN.BMP"}));
    EXPECT_EQ(At(6700), kGreen);
    EXPECT_EQ(PayloadOf(Ask(6, 29)), (Bytes{255, 0, 0, 0}));
}

TEST_F(PlayControl, SchedulesFollowTheClockOfTheSign)
{
    PutFile("D:\\T\\RED.BMP", Dot(255, 0, 0));
    PutFile("D:\\T\\BLUE.BMP", Dot(0, 0, 255));
    // Red: Fridays in December 1999 from 23:59 to 23:59; blue: from the year 2000 on, weekends.
    Bytes list = List({"RED.BMP", "BLUE.BMP"});
    const Bytes red{0x20, 0x99, 0x19, 0x12, 0x01, 0x23, 0x59, 1, 1, 0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 1, 1};
    const Bytes blue{0x41, 0x00, 0x20, 0x01, 0x01, 0, 0, 1, 0};
    std::copy(red.begin(), red.end(), list.begin() + 8 + 3);
    std::copy(blue.begin(), blue.end(), list.begin() + 44 + 3);
    PutFile("C:\\SEQUENT.SYS", list);
    EXPECT_EQ(At(0), kDark);
    EXPECT_EQ(Name(0), "");
    EXPECT_EQ(Name(0, 8), "");
    EXPECT_EQ(CodeOf(AskAt(1000, 5, 4, {0x99, 0x19, 0x12, 0x31, 0x23, 0x58, 0x55, 5, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(5999), kDark);
    EXPECT_EQ(At(7000), kRed) << "23:59:01 of a Friday";
    EXPECT_EQ(Name(7000), "D:\\T\\RED.BMP");
    EXPECT_EQ(At(65999), kRed);
    EXPECT_EQ(At(66000), kBlue) << "midnight; Saturday";
    EXPECT_EQ(Name(66000, 8), "D:\\T\\BLUE.BMP");
    EXPECT_EQ(CodeOf(AskAt(66500, 5, 4, {0x00, 0x20, 0x01, 0x03, 0x12, 0x00, 0x00, 1, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(66500), kDark) << "Monday";
}

TEST_F(PlayControl, TheScreenshotIsAJpegOfTheFace)
{
    Ask(3, 11, Bytes{255, 0, 0} + Bytes(13, 0));
    EXPECT_EQ(CodeOf(Ask(6, 25, {0, 0, 0, 0})), 0U);
    const Bytes jpeg = FileBytes(folder.path / "E/screenshot.jpeg");
    const auto picture = vxsim::DecodePicture(jpeg, 16, 16);
    ASSERT_TRUE(picture);
    EXPECT_GE(picture->At(0, 0).red, 250);
    EXPECT_GE(picture->At(15, 15).red, 250);
    EXPECT_LE(picture->At(8, 8).blue, 5);
    Restart("CD");
    EXPECT_EQ(CodeOf(Ask(6, 25, {0, 0, 0, 0})), 36881U);
}

TEST_F(PlayControl, SoundTimingAndVolumeAreKept)
{
    EXPECT_EQ(CodeOf(Ask(6, 27, {77, 0, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(6, 28)), (Bytes{77, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(6, 26, Bytes(8, 1) + Text("D:\\BELL.WAV"))), 0U);
    EXPECT_EQ(sign->Play().SoundFile(), "D:\\BELL.WAV");
    EXPECT_EQ(CodeOf(Ask(6, 26, Bytes(8, 1))), 36870U);
    EXPECT_EQ(CodeOf(Ask(6, 15, {1, 2, 3, 0, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(sign->Play().Sound()[2], 3);
    const std::pair<unsigned, vxsim::TimingRun> runs[] = {{20, vxsim::TimingRun::kStopped},
                                                          {17, vxsim::TimingRun::kRunning},
                                                          {19, vxsim::TimingRun::kPaused},
                                                          {20, vxsim::TimingRun::kRunning},
                                                          {18, vxsim::TimingRun::kStopped}};
    for (const auto& [minor, state] : runs) {
        EXPECT_EQ(CodeOf(Ask(6, minor, {1, 2, 3, 4})), 0U);
        EXPECT_EQ(sign->Play().Timing(), state) << minor;
    }
}

TEST_F(PlayControl, TheRadarLogIsReadInPagesOfWholeRecords)
{
    EXPECT_EQ(ExtendedOf(Ask(6, 23, {5, 0, 0, 0})), Bytes{});
    const Bytes log = Pattern(16 * 7 + 3);
    std::ofstream(folder.path / "sign/radar.log", std::ios::binary)
        .write(reinterpret_cast<const char*>(log.data()), static_cast<std::streamsize>(log.size()));
    EXPECT_EQ(ExtendedOf(Ask(6, 23, {5, 0, 0, 0})), Bytes(log.begin(), log.begin() + 80));
    EXPECT_EQ(ExtendedOf(Ask(6, 23, {5, 0, 5, 0})), Bytes(log.begin() + 80, log.begin() + 112));
    EXPECT_EQ(ExtendedOf(Ask(6, 23, {255, 255, 7, 0})), Bytes{});
    EXPECT_EQ(CodeOf(Ask(6, 22)), 0U);
    EXPECT_EQ(ExtendedOf(Ask(6, 23, {5, 0, 0, 0})), Bytes{});
}

} // namespace
} // namespace vxsim_tests
