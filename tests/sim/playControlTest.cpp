// What hosts do with the list that plays.
#include "sim/content/picture.h"
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

class PlayControl : public StageTest
{
protected:
    // What the sign names as playing, up to the terminator; "" if nothing plays.
    std::string Name(std::uint64_t nowMs, unsigned minor = 7)
    {
        const Bytes reply = AskAt(nowMs, 6, minor, {1});
        if (CodeOf(reply) == 26369)
            return "";
        return reinterpret_cast<const char*>(PayloadOf(reply).data());
    }

    static Request Priority(std::uint8_t drive, std::uint8_t kind, const char* name)
    {
        return {6, 6, Bytes{drive, kind} + Padded(name, 14)};
    }
};

TEST_F(PlayControl, MovesThroughTheListAndHoldsATurn)
{
    EXPECT_EQ(Name(0) + Name(0, 8), "");
    PlayThree();
    EXPECT_EQ(Name(0), "D:\\T\\RED.BMP");
    EXPECT_EQ(Name(0, 8), "D:\\T\\GREEN.BMP");
    Film({{1000, {6, 5}}});
    EXPECT_EQ(Name(1000), "D:\\T\\GREEN.BMP");
    Film({{3999, {}, "G", "its whole turn"}, {4000, {}, "B"}, {4500, {6, 5}, "R", "from the end to the start"}});
    Film({{5000, {6, 9}, "B"}});
    std::filesystem::remove(folder.path / "D/T/GREEN.BMP");
    Film({{5500, {6, 9}, "R", "past what is gone"}});
    EXPECT_EQ(Name(5500, 8), "D:\\T\\BLUE.BMP");
    Film({{7000, {6, 1}}, {9999, {}, "R", "the list from its start"}});

    // A pause holds the turn.
    PlayThree();
    Film({{0, {}, "R"}, {2000, {6, 3}}, {3000, {6, 3}, "R", "once more: a copy of a request"}, {100000, {}, "R"}});
    Film({{100000, {6, 4}}, {100500, {6, 4}}, {100999, {}, "R"}, {101000, {}, "G"}, {102000, {6, 2}}});
    Film({{104999, {}, "G", "the file from its start"}, {105000, {}, "B"}, {106000, {6, 3}}, {107000, {6, 5}}});
    Film({{109999, {}, "R"}, {110000, {}, "G", "the pause is over"}});
}

TEST_F(PlayControl, MovesWithinATurnAndFromPageToPage)
{
    PutFile("D:\\T\\A.NMG", Text("QZ00SAX\x1C"
                                 "1\x0E"
                                 "20008A\fB\fC"));
    PlayThree();
    PutFile("C:\\SEQUENT.SYS", FlatList({"A.NMG", "RED.BMP"}));
    At(100000); // 24 seconds of A, B and C: to 8, from 9 to 16, from 17 back to 12, from 12.5 to 17.5
    Film({{101000, {6, 12}}, {102000, {6, 12}}, {103000, {6, 11}}, {103500, {6, 10}}});
    EXPECT_EQ(Name(109999), "D:\\T\\A.NMG");
    EXPECT_EQ(Name(110000), "D:\\T\\RED.BMP");
    Film({{111000, {6, 11}}}); // not before its start
    EXPECT_EQ(Name(113999), "D:\\T\\RED.BMP");
    EXPECT_EQ(Name(114000), "D:\\T\\A.NMG");
}

TEST_F(PlayControl, APriorityFilePlaysOnceWhereverItIs)
{
    PlayThree();
    PutFile("E:\\P\\WHITE.BMP", Dot(kWhite));
    PutFile("E:\\P\\BAD.BMP", Text("no picture"));
    Film({{0, {}, "R"}, {1000, Priority('E', 'P', "WHITE.BMP")}});
    EXPECT_EQ(Name(1000), "E:\\P\\WHITE.BMP");
    Film({{3999, {}, "W"}, {4000, {}, "G", "on with the list"}, {5000, Priority(0, 1, "white.bmp"), "W"}});
    Expect(36872, {Priority('D', 'T', "WHITE.BMP"), Priority(0, 0, "..\\..\\x")});
    Expect(36880, {Priority(0, 0, "BAD.BMP")});
    EXPECT_EQ(At(7999), kWhite);
    std::filesystem::remove(folder.path / "C/SEQUENT.SYS");
    Film({{9000, {6, 1}}, {9000, Priority(0, 0, "WHITE.BMP")}, {11999, {}, "W"}, {12000, {}, ".", "no list"}});
}

TEST_F(PlayControl, ListsByNumberAndBackToTheMainOne)
{
    PlayThree();
    PutFile("C:\\PLAYLIST\\SEQUENT3.SYS", FlatList({"BLUE.BMP"}));
    EXPECT_EQ(At(0), kRed);
    ExpectPayload({255, 0, 0, 0}, {{6, 29}});
    Film({{500, {6, 24, {3}}}});
    ExpectPayload({3, 0, 0, 0}, {{6, 29}});
    EXPECT_EQ(At(4000), kBlue);
    Expect(36872, {{6, 24, {4}}});
    Film({{4000, {6, 1}, "B", "from the start of the same list"}, {5000, {6, 24, {255}}, "R"}, {6000, {6, 24, {3}}}});
    PutFile("C:\\playlist\\sequent3.sys", FlatList({"RED.BMP"}));
    EXPECT_EQ(At(6500), kRed) << "a new file of the list that plays";
    PutFile("C:\\PLAYLIST\\SEQUENT4.SYS", FlatList({"BLUE.BMP"}));
    EXPECT_EQ(At(6600), kRed);
    PutFile("C:\\SEQUENT.SYS", FlatList({"GREEN.BMP"}));
    EXPECT_EQ(At(6700), kGreen);
    ExpectPayload({255, 0, 0, 0}, {{6, 29}});
    Expect(0, {{7, 6, Path("C:\\SEQUENT.SYS")}});
    EXPECT_EQ(At(6800), kDark) << "a list that is deleted no longer plays";
}

TEST_F(PlayControl, SchedulesFollowTheClockOfTheSign)
{
    PlayThree();
    // Red: Fridays in December 1999 from 23:59 to 23:59; blue: from the year 2000 on, weekends.
    Bytes list = FlatList({"RED.BMP", "BLUE.BMP"});
    const Bytes red{0x20, 0x99, 0x19, 0x12, 0x01, 0x23, 0x59, 1, 1, 0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 1, 1};
    const Bytes blue{0x41, 0x00, 0x20, 0x01, 0x01, 0, 0, 1, 0};
    std::copy(red.begin(), red.end(), list.begin() + 8 + 3);
    std::copy(blue.begin(), blue.end(), list.begin() + 44 + 3);
    PutFile("C:\\SEQUENT.SYS", list);
    EXPECT_EQ(At(0), kDark);
    EXPECT_EQ(Name(0) + Name(0, 8), "");
    Film({{1000, {5, 4, {0x99, 0x19, 0x12, 0x31, 0x23, 0x58, 0x55, 5, 0}}}, {5999, {}, "."}});
    Film({{7000, {}, "R", "23:59:01 of a Friday"}});
    EXPECT_EQ(Name(7000), "D:\\T\\RED.BMP");
    Film({{65999, {}, "R"}, {66000, {}, "B", "midnight; Saturday"}});
    EXPECT_EQ(Name(66000, 8), "D:\\T\\BLUE.BMP");
    Film({{66500, {5, 4, {0x00, 0x20, 0x01, 0x03, 0x12, 0x00, 0x00, 1, 0}}, ".", "Monday"}});
}

TEST_F(PlayControl, TheScreenshotIsAJpegOfTheFace)
{
    Expect(0, {{3, 11, Bytes{255, 0, 0} + Bytes(13, 0)}, {6, 25, {0}}});
    const auto picture = vxsim::DecodePicture(OnSign("E/screenshot.jpeg"), 16, 16);
    ASSERT_TRUE(picture);
    EXPECT_GE(std::min(picture->At(0, 0).red, picture->At(15, 15).red), 250);
    EXPECT_LE(picture->At(8, 8).blue, 5);
    Restart("CD");
    Expect(36881, {{6, 25, {0}}});
}

TEST_F(PlayControl, SoundTimingVolumeAndTheRadarLogAreKept)
{
    Expect(0, {{6, 27, {77}}, {6, 26, Bytes(8, 1) + Text("D:\\BELL.WAV")}, {6, 15, {1, 2, 3, 0, 0}}});
    ExpectPayload({77, 0, 0, 0}, {{6, 28}});
    EXPECT_EQ(sign->Play().SoundFile(), "D:\\BELL.WAV");
    EXPECT_EQ(sign->Play().Sound()[2], 3);
    Expect(36870, {{6, 26, Bytes(8, 1)}});
    using vxsim::TimingRun;
    const std::pair<unsigned, TimingRun> runs[] = {{20, TimingRun::kStopped},
                                                   {17, TimingRun::kRunning},
                                                   {19, TimingRun::kPaused},
                                                   {20, TimingRun::kRunning},
                                                   {18, TimingRun::kStopped}};
    for (const auto& [minor, state] : runs) {
        Expect(0, {{6, minor, {1, 2, 3, 4}}});
        EXPECT_EQ(sign->Play().Timing(), state) << minor;
    }

    // The radar log is read in pages of whole records.
    const auto page = [&](const Bytes& asked) { return ExtendedOf(Ask(6, 23, asked)); };
    EXPECT_EQ(page({5, 0, 0, 0}), Bytes{});
    const Bytes log = Ramp(16 * 7 + 3);
    Make("sign/radar.log", log);
    EXPECT_EQ(page({5, 0, 0, 0}), Part(log, 0, 80));
    EXPECT_EQ(page({5, 0, 5, 0}), Part(log, 80, 32));
    EXPECT_EQ(page({255, 255, 7, 0}), Bytes{});
    Expect(0, {{6, 22}});
    EXPECT_EQ(page({5, 0, 0, 0}), Bytes{});
}

} // namespace
} // namespace vxsign::test
