// What the sign plays: major 6.
#include "support/fakeClock.h"
#include "support/flatRows.h"
#include "support/tempFolder.h"

#include <cstring>

namespace vxsign::test {
namespace {

constexpr std::uint64_t kValue = 0x0807060504030201;

TEST(Play, Requests)
{
    char text[8];
    std::uint8_t out;
    ExpectRequests({
        {"vxReplayList", [] { return vxReplayList(); }, 6, 1, "", ""},
        {"vxReplayCurrFile", [] { return vxReplayCurrFile(); }, 6, 2, "", ""},
        {"vxPlayPause", [] { return vxPlayPause(); }, 6, 3, "", ""},
        {"vxPlayContinue", [] { return vxPlayContinue(); }, 6, 4, "", ""},
        {"vxPlayNext", [] { return vxPlayNext(); }, 6, 5, "", ""},
        {"vxPlayPriority of 11", [] { return vxPlayPriority(1, 2, "ABCDEFG.NMG"); }, 6, 6,
         "0102 414243444546472E4E4D47 000000", ""},
        {"vxPlayPriority of 13", [] { return vxPlayPriority(1, 2, "ABCDEFGHI.NMG"); }, 6, 6,
         "0102 4142434445464748492E4E4D 0000", ""},
        {"vxGetPlayingFileName", [&] { return vxGetPlayingFileName(text, 8); }, 6, 7, "01000000", ""},
        {"vxGetNextPlayFileName", [&] { return vxGetNextPlayFileName(text, 8); }, 6, 8, "01000000", ""},
        {"vxPlayPrevious", [] { return vxPlayPrevious(); }, 6, 9, "", ""},
        {"vxPlayForword", [] { return vxPlayForword(); }, 6, 10, "", ""},
        {"vxPlayBack", [] { return vxPlayBack(); }, 6, 11, "", ""},
        {"vxPlayNextFrame", [] { return vxPlayNextFrame(); }, 6, 12, "", ""},
        {"vxSoundCtrl", [] { return vxSoundCtrl(1, 2, 3); }, 6, 15, "01020300 00000000", ""},
        {"vxBeginTiming", [] { return vxBeginTiming(1, 2, 3, 4); }, 6, 17, "01020304", ""},
        {"vxStopTiming", [] { return vxStopTiming(); }, 6, 18, "", ""},
        {"vxPauseTiming", [] { return vxPauseTiming(); }, 6, 19, "", ""},
        {"vxContinueTiming", [] { return vxContinueTiming(); }, 6, 20, "", ""},
        {"vxClearTJRadarLog", [] { return vxClearTJRadarLog(); }, 6, 22, "", ""},
        {"vxPlaySpePlaylist", [] { return vxPlaySpePlaylist(9); }, 6, 24, "09000000", ""},
        {"vxPlaySoundFile", [] { return vxPlaySoundFile(kValue, "A.WAV"); }, 6, 26,
         "01020304 05060708 412E574156 000000", ""},
        {"vxPlaySoundFile4j", [] { return vxPlaySoundFile4j(&kValue, "WAVE"); }, 6, 26, "01020304 05060708 57415645",
         ""},
        {"vxAdjustVolume", [] { return vxAdjustVolume(11); }, 6, 27, "0B000000", ""},
        {"vxReadCurVolume", [&] { return vxReadCurVolume(&out); }, 6, 28, "", ""},
        {"vxReadSpePlayListIndex", [&] { return vxReadSpePlayListIndex(&out); }, 6, 29, "", ""},
    });
    ExpectArgumentsError({
        {"vxPlayPriority", [] { return vxPlayPriority(1, 2, nullptr); }},
        {"vxGetPlayingFileName", [] { return vxGetPlayingFileName(nullptr, 8); }},
        {"vxGetNextPlayFileName", [] { return vxGetNextPlayFileName(nullptr, 8); }},
        {"vxPlaySoundFile", [] { return vxPlaySoundFile(1, nullptr); }},
        {"vxPlaySoundFile4j value", [] { return vxPlaySoundFile4j(nullptr, "A"); }},
        {"vxPlaySoundFile4j name", [] { return vxPlaySoundFile4j(&kValue, nullptr); }},
        {"vxPlaySoundFile over the payload", [] { return vxPlaySoundFile(1, std::string(1013, 'n').c_str()); }},
        {"vxReadCurVolume", [] { return vxReadCurVolume(nullptr); }},
        {"vxReadSpePlayListIndex", [] { return vxReadSpePlayListIndex(nullptr); }},
        {"vxReadCurScreenshot", [] { return vxReadCurScreenshot(nullptr); }},
        {"vxReadCurScreentshot", [] { return vxReadCurScreentshot(nullptr); }},
        {"vxReadTJRadarLog2File", [] { return vxReadTJRadarLog2File(nullptr); }},
        {"vxReadDefaultScreenSet", [] { return vxReadDefaultScreenSet(nullptr); }},
        {"vxWriteDefaultScreenSet", [] { return vxWriteDefaultScreenSet(nullptr); }},
    });
}

TEST(Play, Replies)
{
    using Out = std::uint8_t*;
    const auto name = [](Out out) { return reinterpret_cast<char*>(out); };
    const char* const sixteen = "4142434445464748 494A4B4C4D4E4F50";
    ExpectReplies({
        {"vxGetPlayingFileName cut", [&](Out out) { return vxGetPlayingFileName(name(out), 8); }, sixteen, "",
         "4142434445464748"},
        {"vxGetPlayingFileName", [&](Out out) { return vxGetPlayingFileName(name(out), 10); }, "41424300", "99999999",
         "41424300 000000000000"},
        {"vxGetNextPlayFileName of nothing", [&](Out out) { return vxGetNextPlayFileName(name(out), 4); }, "", "",
         "00000000"},
        {"vxGetNextPlayFileName into nothing", [&](Out out) { return vxGetNextPlayFileName(name(out), 0); }, sixteen,
         "", ""},
        {"vxReadCurVolume", [](Out out) { return vxReadCurVolume(out); }, "A1A2A3A4", "", "A1"},
        {"vxReadSpePlayListIndex", [](Out out) { return vxReadSpePlayListIndex(out); }, "A1A2A3A4", "", "A1"},
    });
}

TEST(Play, LongNameOfASound)
{
    ScriptedSign sign;
    sign.Then(2, Good());
    EXPECT_EQ(vxPlaySoundFile(kValue, std::string(300, 'n').c_str()), 0u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("0102030405060708") + Bytes(248, 'n') + Bytes(52, 0));
    EXPECT_EQ(vxPlaySoundFile(kValue, std::string(1012, 'n').c_str()), 0u);
    EXPECT_EQ(sign.requests[1].Payload().size(), 1020u);
}

// Operations that end in a file; the library's own temporary files go into the same folder.
class PlayFiles : public testing::Test
{
protected:
    void SetUp() override { ::setenv("TMPDIR", folder.Path().c_str(), 1); }
    void TearDown() override { ::unsetenv("TMPDIR"); }

    const FakeClock clock;
    const TempFolder folder;
    const std::string local = folder.Path("out");
};

TEST_F(PlayFiles, ScreenshotIsAskedForUntilItIsThere)
{
    ScriptedSign sign;
    sign.Then(Good()).Then(2, Refusal(36872)).Then(Good(Hex("03000000"), FromText("JPG")));
    EXPECT_EQ(vxReadCurScreentshot(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), "JPG");
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Minor(), 25);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("00000000"));
    EXPECT_EQ(sign.requests[3].Major(), 1);
    EXPECT_EQ(sign.requests[3].Minor(), 17);
    EXPECT_EQ(sign.requests[3].Payload(), Hex("00030000 01000000") + FromText("E:\\screenshot.jpeg") + Hex("0000"));
    EXPECT_EQ(FakeClock::SleptMs(), 600u);
    EXPECT_EQ(sign.opened, 4) << "each reading has a command object of its own";

    sign.Then(Good()).Then(9, Refusal(36872)).Then(Refusal(36880));
    EXPECT_EQ(vxReadCurScreenshot(local.c_str()), 36880u);
    EXPECT_EQ(FakeClock::SleptMs(), 2600u);
    sign.Then(Refusal(36881));
    EXPECT_EQ(vxReadCurScreenshot(local.c_str()), 36881u);
    EXPECT_EQ(FakeClock::SleptMs(), 2600u);
    EXPECT_EQ(vxReadCurScreenshot(folder.Path("no/such").c_str()), 20737u);
}

TEST_F(PlayFiles, RadarLogByPages)
{
    ScriptedSign sign;
    sign.Then(100, Good({}, Bytes(80, 'r'))).Then(Good({}, Bytes(64, 's')));
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), std::string(8000, 'r') + std::string(64, 's'));
    EXPECT_EQ(sign.requests[0].Minor(), 23);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("05000000"));
    EXPECT_EQ(sign.requests[100].Payload(), Hex("0500F401"));
    EXPECT_EQ(sign.progress[98], 0u);
    EXPECT_EQ(sign.progress[99], 1u);
    EXPECT_EQ(sign.progress.size(), 101u);

    sign.Then(Good({}, Bytes(100, 'r'))).Then(Refusal(36873));
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 36873u);
    EXPECT_EQ(folder.Read("out"), std::string(100, 'r'));
    sign.Then(Good());
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), "");
    EXPECT_EQ(vxReadTJRadarLog2File(folder.Path("no/such").c_str()), 20737u);
    sign.Then(Good({}, Bytes(3, 'r')));
    EXPECT_EQ(vxReadTJRadarLog2File("/dev/full"), 256u);
}

TEST_F(PlayFiles, RadarLogOfASignThatNeverEnds)
{
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return Good({}, Bytes(80, 'r')); };
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(sign.requests.size(), 10000u);
    EXPECT_EQ(sign.requests.back().Payload(), Hex("05004BC3"));
    EXPECT_EQ(sign.progress.back(), 100u);
}

TEST_F(PlayFiles, DefaultScreenSettings)
{
    const Bytes path = FromText("c:\\config\\RB27_233.cfg") + Hex("00");
    ScriptedSign sign;
    const std::string ini = "[DefaultSet]\r\nShowDefultBmpTime=30\r\nBlackScreenTime=65537\r\n";
    const auto size = static_cast<std::uint8_t>(ini.size());
    sign.Then(Good({size, 0, 0, 0}, FromText(ini)));
    std::uint16_t set[2] = {7, 7};
    EXPECT_EQ(vxReadDefaultScreenSet(set), 0u);
    EXPECT_EQ(set[0], 30);
    EXPECT_EQ(set[1], 1) << "the lower 16 bits";
    EXPECT_EQ(sign.requests[0].Minor(), 8);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("0003 0100") + path + Hex("00"));
    sign.Then(Refusal(36872));
    EXPECT_EQ(vxReadDefaultScreenSet(set), 0u);
    EXPECT_EQ(set[0], 0);
    EXPECT_EQ(set[1], 0);

    const std::uint16_t wanted[2] = {65535, 5};
    sign.Then(Good()).Then(Refusal(36912));
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 0u);
    const Packet& sent = sign.requests.back();
    EXPECT_EQ(sent.Major(), 2);
    EXPECT_EQ(sent.Minor(), 8);
    EXPECT_EQ(sent.Extended(), FromText("[DefaultSet]\r\nShowDefultBmpTime=65535\r\nBlackScreenTime=5\r\n"));
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 36912u);
    EXPECT_TRUE(folder.IsEmpty());

    // No place for the temporary file.
    sign.Config().onTempPath = [](vxApiConfig*, char* buffer, std::uint32_t) { std::strcpy(buffer, "/no/such/"); };
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 1u);
    sign.Config().onTempPath = nullptr;
}

} // namespace
} // namespace vxsign::test
