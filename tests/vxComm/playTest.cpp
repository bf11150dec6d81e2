// What the sign plays: operations that end in a file.
#include "support/scriptedSign.h"

#include <cstring>

namespace vxsign::test {
namespace {

class PlayFiles : public ScriptedTest
{
protected:
    const std::string local = folder.Path("out");
};

TEST_F(PlayFiles, ScreenshotIsAskedForUntilItIsThere)
{
    sign.Then(Good()).Then(2, Refusal(36872)).Then(Good(Hex("03000000"), FromText("JPG")));
    EXPECT_EQ(vxReadCurScreentshot(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), "JPG");
    ASSERT_EQ(sign.Road(), "6.25 1.17 1.17 1.17");
    EXPECT_EQ(sign.requests[0].Payload(), Hex("00000000"));
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
    sign.otherwise = [](const Packet&) { return Good({}, Bytes(80, 'r')); };
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(sign.requests.size(), 10000u);
    EXPECT_EQ(sign.requests.back().Payload(), Hex("05004BC3"));
    EXPECT_EQ(sign.progress.back(), 100u);
}

TEST_F(PlayFiles, DefaultScreenSettings)
{
    const Bytes path = FromText("c:\\config\\RB27_233.cfg") + Hex("00");
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
