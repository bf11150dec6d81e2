// Plain control: majors 4 and 17.
#include "support/fakeClock.h"
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint64_t kValue = 0x0807060504030201;
constexpr std::uint8_t kBytes[] = {0xA1, 0xA2, 0xA3};

TEST(Control, Requests)
{
    ExpectRequests({
        {"vxResetSystem", [] { return vxResetSystem(); }, 4, 0, "", ""},
        {"vxPowerOnOff off", [] { return vxPowerOnOff(0); }, 4, 3, "01000000", ""},
        {"vxPowerOnOff on", [] { return vxPowerOnOff(1); }, 4, 4, "", ""},
        {"vxPowerOnOff negative", [] { return vxPowerOnOff(-1); }, 4, 4, "", ""},
        {"vxChangeBaudRate", [] { return vxChangeBaudRate(5); }, 4, 6,
         "05000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000", ""},
        {"vxBrightAdjust", [] { return vxBrightAdjust(200); }, 4, 7, "C8000000", ""},
        {"vxBrightAdjustEx", [] { return vxBrightAdjustEx(1, 2); }, 4, 7, "01020000", ""},
        {"vxSetEthCheck", [] { return vxSetEthCheck(5); }, 4, 8, "05050000", ""},
        {"vxSetBeacon", [] { return vxSetBeacon(&kValue); }, 4, 10, "01020304 05060708", ""},
        {"vxCommitStatusRW", [] { return vxCommitStatusRW(1, 2, nullptr); }, 4, 13, "02010000 00000000", ""},
        {"vxSwitchOnlineOffline", [] { return vxSwitchOnlineOffline(3); }, 4, 19, "03000000", ""},
        {"vxResetSystemCool", [] { return vxResetSystemCool(); }, 4, 20, "", ""},
        {"vxBrightAdjustSides", [] { return vxBrightAdjustSides(&kValue); }, 4, 21, "01020304 05060708", ""},
        {"vxSetSignBeacon", [] { return vxSetSignBeacon(&kValue); }, 4, 26, "01020304 05060708", "64"},
        {"vxSetExternalEquipment", [] { return vxSetExternalEquipment(&kValue); }, 4, 28, "01020304 05060708", ""},
        {"vxGeneratorSet", [] { return vxGeneratorSet(1, 2, nullptr); }, 4, 32, "01020000", ""},
        {"vxSetLCS", [] { return vxSetLCS(7); }, 4, 36, "07000000", ""},
        {"vxPlayVoice", [] { return vxPlayVoice(1, 2, kBytes, 3); }, 4, 38, "01020000", "A1A2A3"},
        {"vxPlayVoice of nothing", [] { return vxPlayVoice(1, 2, nullptr, 0); }, 4, 38, "01020000", ""},
        {"vxSetFH", [] { return vxSetFH(1, 2); }, 17, 1, "01020000", ""},
    });
    // Those that ask.
    std::uint8_t out[8];
    ExpectRequests({
        {"vxGetPowerState", [&] { return vxGetPowerState(out, out); }, 4, 5, "", ""},
        {"vxReadEthCheck", [&] { return vxReadEthCheck(out, out); }, 4, 9, "", ""},
        {"vxGetBeacon", [&] { return vxGetBeacon(out); }, 4, 11, "", ""},
        {"vxGetSignBeacon", [&] { return vxGetSignBeacon(out); }, 4, 27, "", ""},
        {"vxGetExternalEquipment", [&] { return vxGetExternalEquipment(out); }, 4, 29, "", ""},
        {"vxGetLCS", [&] { return vxGetLCS(out); }, 4, 37, "", ""},
        {"vxGetFH", [&] { return vxGetFH(out, out); }, 17, 2, "", ""},
    });
}

TEST(Control, Replies)
{
    using Out = std::uint8_t*;
    ExpectReplies({
        {"vxGetPowerState", [](Out out) { return vxGetPowerState(out + 1, out); }, "A1A2A3A4", "", "A2A1"},
        {"vxGetPowerState of nothing", [](Out out) { return vxGetPowerState(out, out + 1); }, "", "", "0000"},
        {"vxReadEthCheck", [](Out out) { return vxReadEthCheck(out + 1, out); }, "A1A2A3A4", "", "A2A1"},
        {"vxGetBeacon of three words", [](Out out) { return vxGetBeacon(out); }, "010203040506070809101112", "",
         "0102030405060708"},
        {"vxGetBeacon of one word", [](Out out) { return vxGetBeacon(out); }, "01020304", "AABBCCDD", "01020304"},
        {"vxGetBeacon of nothing", [](Out out) { return vxGetBeacon(out); }, "", "AABBCCDD", ""},
        {"vxGetSignBeacon", [](Out out) { return vxGetSignBeacon(out); }, "010203040506070809101112", "",
         "0102030405060708"},
        {"vxGetExternalEquipment", [](Out out) { return vxGetExternalEquipment(out); }, "01020304", "", "01020304"},
        {"vxGeneratorSet", [](Out out) { return vxGeneratorSet(1, 2, out); }, "010203040506070809101112", "",
         "0102030405060708"},
        {"vxCommitStatusRW", [](Out out) { return vxCommitStatusRW(1, 2, out); }, "A1A2A3A4", "", "A1"},
        {"vxGetLCS", [](Out out) { return vxGetLCS(out); }, "A1A2A3A4", "", "A1"},
        {"vxGetFH", [](Out out) { return vxGetFH(out + 1, out); }, "A1A2A3A4", "", "A2A1"},
    });
}

TEST(Control, ArgumentsErrors)
{
    std::uint8_t out[8];
    ExpectArgumentsError({
        {"vxGetPowerState first", [&] { return vxGetPowerState(nullptr, out); }},
        {"vxGetPowerState second", [&] { return vxGetPowerState(out, nullptr); }},
        {"vxReadEthCheck first", [&] { return vxReadEthCheck(nullptr, out); }},
        {"vxReadEthCheck second", [&] { return vxReadEthCheck(out, nullptr); }},
        {"vxSetBeacon", [] { return vxSetBeacon(nullptr); }},
        {"vxGetBeacon", [] { return vxGetBeacon(nullptr); }},
        {"vxBrightAdjustSides", [] { return vxBrightAdjustSides(nullptr); }},
        {"vxSetSignBeacon", [] { return vxSetSignBeacon(nullptr); }},
        {"vxGetSignBeacon", [] { return vxGetSignBeacon(nullptr); }},
        {"vxSetExternalEquipment", [] { return vxSetExternalEquipment(nullptr); }},
        {"vxGetExternalEquipment", [] { return vxGetExternalEquipment(nullptr); }},
        {"vxGetLCS", [] { return vxGetLCS(nullptr); }},
        {"vxPlayVoice", [] { return vxPlayVoice(1, 2, nullptr, 3); }},
        {"vxGetFH first", [&] { return vxGetFH(nullptr, out); }},
        {"vxGetFH second", [&] { return vxGetFH(out, nullptr); }},
    });
}

TEST(Control, BaudRateOfTheThreadStays)
{
    ScriptedSign sign;
    sign.Config().baudRate = 9600;
    sign.Then(Good());
    EXPECT_EQ(vxChangeBaudRate(5), 0u);
    EXPECT_EQ(sign.Config().baudRate, 9600u);
}

TEST(ResetToDataFlash, PollsUntilTheSignIsThere)
{
    const FakeClock clock;
    ScriptedSign sign;
    sign.Then(Good()).Then(2, Refusal(7938)).Then(Good());
    EXPECT_EQ(vxResetSystemToDataFlash(), 0u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Major(), 4);
    EXPECT_EQ(sign.requests[0].Minor(), 25);
    EXPECT_EQ(sign.requests[3].Major(), 12);
    EXPECT_EQ(sign.requests[3].Minor(), 13);
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{0, 1, 2, 100}));
    EXPECT_EQ(sign.Config().progressTotal, 100);
    EXPECT_EQ(sign.Config().progressPos, 2);
    EXPECT_EQ(FakeClock::SleptMs(), 300u + 3 * 30);
    EXPECT_EQ(sign.opened, 1) << "one channel for all of it";

    // Without the callback.
    sign.Config().onProgress = nullptr;
    sign.Then(2, Good());
    EXPECT_EQ(vxResetSystemToDataFlash(), 0u);
}

TEST(ResetToDataFlash, GivesUp)
{
    const FakeClock clock;
    ScriptedSign sign;
    sign.Then(Refusal(36881));
    EXPECT_EQ(vxResetSystemToDataFlash(), 36881u);
    EXPECT_EQ(FakeClock::SleptMs(), 300u) << "the wait comes before the look at the result";
    EXPECT_EQ(sign.Config().progressTotal, 0);

    sign.Then(Good()).Then(99, Refusal(7938)).Then(Refusal(7937));
    EXPECT_EQ(vxResetSystemToDataFlash(), 7937u);
    EXPECT_EQ(sign.progress.size(), 100u);
    EXPECT_EQ(sign.progress.back(), 99u);
}

} // namespace
} // namespace vxsign::test
