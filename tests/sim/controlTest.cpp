#include "stageFixture.h"

namespace vxsim_tests {
namespace {

using Control = StageTest;

TEST_F(Control, PowerAndBlackScreenDarkenTheFaceWhileTheListPlaysOn)
{
    PlayThree();
    EXPECT_EQ(At(1000), kRed);
    EXPECT_EQ(PayloadOf(Ask(4, 5)), (Bytes{1, 1, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(4, 3, {1, 0, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(4, 5)), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(At(2000), kDark);
    EXPECT_EQ(CodeOf(Ask(4, 4)), 0U);
    EXPECT_EQ(At(4500), kGreen);
    EXPECT_EQ(CodeOf(Ask(4, 1)), 0U);
    EXPECT_EQ(At(5000), kDark);
    EXPECT_EQ(CodeOf(Ask(4, 2)), 0U);
    EXPECT_EQ(At(5000), kGreen);
}

TEST_F(Control, BrightnessIsEighthsOfTheLight)
{
    EXPECT_EQ(CodeOf(Ask(3, 11, Bytes{255, 128, 8} + Bytes(13, 0))), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{255, 128, 8}));
    EXPECT_EQ(CodeOf(Ask(4, 7, {4, 0, 0, 0})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{186, 93, 6}));
    EXPECT_EQ(CodeOf(Ask(4, 7, {1, 8, 0, 0})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{99, 50, 3}));
    EXPECT_EQ(CodeOf(Ask(4, 7, {200, 0, 0, 0})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{255, 128, 8}));
    EXPECT_EQ(CodeOf(Ask(4, 21, {2, 8, 0, 0, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{136, 68, 4}));
    EXPECT_EQ(CodeOf(Ask(4, 21, {2, 8, 0, 0})), 36870U);
    EXPECT_EQ(CodeOf(Ask(4, 7)), 36870U);

    // Automatic: the level of these two hours of the sign's day.
    EXPECT_EQ(CodeOf(Ask(2, 10, {4, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 0})), 0U);
    EXPECT_EQ(CodeOf(Ask(4, 7, {0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(7199999), (vxsim::Rgb{186, 93, 6}));
    EXPECT_EQ(At(7200000), (vxsim::Rgb{255, 128, 8}));
    EXPECT_EQ(At(86399999), (vxsim::Rgb{99, 50, 3})) << "never quite dark";
}

TEST_F(Control, AResetDarkensTheFaceAndPlaysAnew)
{
    PlayThree();
    EXPECT_EQ(At(1000), kRed);
    EXPECT_EQ(CodeOf(AskAt(4000, 4, 7, {4, 0, 0, 0})), 0U);
    EXPECT_EQ(CodeOf(AskAt(4000, 3, 2)), 0U);
    EXPECT_EQ(CodeOf(AskAt(5000, 4, 0)), 0U);
    EXPECT_EQ(At(5000), kDark);
    EXPECT_EQ(CodeOf(AskAt(6000, 6, 7, {1, 0, 0, 0})), 26369U);
    EXPECT_EQ(At(6999), kDark);
    EXPECT_EQ(At(7000), (vxsim::Rgb{186, 0, 0})) << "the test has ended, the light has stayed";
    EXPECT_EQ(At(9999), (vxsim::Rgb{186, 0, 0}));
    EXPECT_EQ(At(10000), (vxsim::Rgb{0, 186, 0}));

    Ask(4, 10, {1, 2, 3, 4, 5, 6, 7, 8});
    Ask(4, 3, {1, 0, 0, 0});
    Ask(4, 1);
    EXPECT_EQ(CodeOf(AskAt(20000, 4, 20)), 0U);
    EXPECT_EQ(At(21999), kDark);
    EXPECT_EQ(At(22000), kRed) << "as if it had been switched off and on";
    EXPECT_EQ(PayloadOf(Ask(4, 11)), Bytes(8, 0));
}

TEST_F(Control, AListThatComesDuringAResetWaitsForItsEnd)
{
    PlayThree();
    EXPECT_EQ(At(1000), kRed);
    EXPECT_EQ(CodeOf(AskAt(2000, 4, 0)), 0U);
    PutFile("C:\\SEQUENT.SYS", List({"BLUE.BMP"}));
    EXPECT_EQ(At(3999), kDark);
    EXPECT_EQ(At(4000), kBlue);
}

TEST_F(Control, TheUpdateTakesAFewPolls)
{
    EXPECT_EQ(CodeOf(Ask(12, 13)), 0U) << "without an update the program is there";
    EXPECT_EQ(CodeOf(Ask(4, 25)), 0U);
    for (const unsigned code : {7938U, 7938U, 7938U, 0U, 0U})
        EXPECT_EQ(CodeOf(Ask(12, 13)), code);
    EXPECT_EQ(CodeOf(Ask(4, 25)), 0U);
    EXPECT_EQ(CodeOf(Ask(12, 13)), 7938U);
}

TEST_F(Control, SettingsComeBackAsTheyWereSet)
{
    EXPECT_EQ(PayloadOf(Ask(4, 9)), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(4, 8, {5, 5, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(4, 9)), (Bytes{5, 5, 0, 0}));
    const Bytes eight{1, 2, 3, 4, 5, 6, 7, 8};
    for (const unsigned minor : {10U, 28U}) {
        EXPECT_EQ(CodeOf(Ask(4, minor, eight)), 0U);
        EXPECT_EQ(PayloadOf(Ask(4, minor + 1)), eight);
        EXPECT_EQ(CodeOf(Ask(4, minor, {1, 2, 3, 4})), 36870U);
    }
    EXPECT_EQ(CodeOf(Ask(4, 26, eight, {100})), 0U);
    EXPECT_EQ(PayloadOf(Ask(4, 27)), eight);
    const auto beacon = sign->Control().Kept(26);
    EXPECT_EQ(Bytes(beacon.begin(), beacon.end()), eight + Bytes{100});
    EXPECT_EQ(CodeOf(Ask(4, 36, {7, 0, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(4, 37)), (Bytes{7, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(17, 1, {8, 9, 0, 0})), 0U);
    EXPECT_EQ(PayloadOf(Ask(17, 2)), (Bytes{8, 9, 0, 0}));

    EXPECT_EQ(PayloadOf(Ask(4, 13, {1, 6, 0, 0, 0, 0, 0, 0})), (Bytes{6, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(4, 13, {0, 9, 0, 0, 0, 0, 0, 0})), (Bytes{6, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(4, 32, {1, 1, 0, 0})), (Bytes{1, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(4, 32, {0, 0, 0, 0})), (Bytes{1, 0, 0, 0, 0, 0, 0, 0}));

    EXPECT_EQ(CodeOf(Ask(4, 6, Bytes{4} + Bytes(31, 0))), 0U);
    EXPECT_EQ(CodeOf(Ask(4, 19, {1, 0, 0, 0})), 0U);
    EXPECT_EQ(CodeOf(Ask(4, 38, {1, 2, 0, 0}, Text("HELLO"))), 0U);
    const auto voice = sign->Control().Kept(38);
    EXPECT_EQ(Bytes(voice.begin(), voice.end()), Bytes({1, 2}) + Text("HELLO"));
}

} // namespace
} // namespace vxsim_tests
