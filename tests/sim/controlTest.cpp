// Plain control: light, power, restarts, settings that are kept.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using Control = StageTest;

TEST_F(Control, PowerAndBlackScreenDarkenTheFaceWhileTheListPlaysOn)
{
    PlayThree();
    EXPECT_EQ(At(1000), kRed);
    ExpectPayload({1, 1, 0, 0}, {{4, 5}});
    Film({{1500, {4, 3, {1, 0, 0, 0}}, "."}, {2000, {}, "."}});
    ExpectPayload({0, 0, 0, 0}, {{4, 5}});
    Film({{4500, {4, 4}, "G"}, {5000, {4, 1}, "."}, {5000, {4, 2}, "G"}});
}

TEST_F(Control, BrightnessIsEighthsOfTheLight)
{
    using vxsim::Rgb;
    const Rgb full{255, 128, 8};
    Expect(0, {{3, 11, Bytes{255, 128, 8} + Bytes(13, 0)}});
    EXPECT_EQ(At(0), full);
    const std::pair<Request, Rgb> lights[] = {{{4, 7, {4, 0, 0, 0}}, {186, 93, 6}},
                                              {{4, 7, {1, 8, 0, 0}}, {99, 50, 3}},
                                              {{4, 7, {200, 0, 0, 0}}, full},
                                              {{4, 21, {2, 8, 0, 0, 0, 0, 0, 0}}, {136, 68, 4}}};
    for (const auto& [request, colour] : lights) {
        Expect(0, {request});
        EXPECT_EQ(At(0), colour);
    }
    Expect(36870, {{4, 21, {2, 8, 0, 0}}, {4, 7}});

    // Automatic: the level of these two hours of the sign's day.
    Expect(0, {{2, 10, {4, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 0}}, {4, 7, {0, 0, 0, 0}}});
    EXPECT_EQ(At(7199999), (Rgb{186, 93, 6}));
    EXPECT_EQ(At(7200000), full);
    EXPECT_EQ(At(86399999), (Rgb{99, 50, 3})) << "never quite dark";
}

TEST_F(Control, AResetDarkensTheFaceAndPlaysAnew)
{
    PlayThree();
    Film({{1000, {}, "R"}, {4000, {4, 7, {4, 0, 0, 0}}}, {4000, {3, 2}}, {5000, {4, 0}, "."}});
    EXPECT_EQ(CodeOf(AskAt(6000, 6, 7, {1, 0, 0, 0})), 26369U);
    Film({{6999, {}, "."}, {7000, {}, "R", "the test has ended"}, {9999, {}, "R"}, {10000, {}, "G"}});
    EXPECT_EQ(At(10000), (vxsim::Rgb{0, 186, 0})) << "the light has stayed";

    Expect(0, {{4, 10, {1, 2, 3, 4, 5, 6, 7, 8}}, {4, 3, {1, 0, 0, 0}}, {4, 1}});
    Film({{20000, {4, 20}}, {21999, {}, "."}, {22000, {}, "R", "as if it had been switched off and on"}});
    EXPECT_EQ(At(22000), kRed);
    ExpectPayload(Bytes(8, 0), {{4, 11}});

    // A list that comes during a reset waits for its end.
    Expect(0, {{4, 0}});
    PutFile("C:\\SEQUENT.SYS", FlatList({"BLUE.BMP"}));
    Film({{23999, {}, "."}, {24000, {}, "B"}});
}

TEST_F(Control, TheUpdateTakesAFewPolls)
{
    Expect(0, {{12, 13}, {4, 25}}); // without an update the program is there
    Expect(7938, {{12, 13}, {12, 13}, {12, 13}});
    Expect(0, {{12, 13}, {12, 13}, {4, 25}});
    Expect(7938, {{12, 13}});
}

TEST_F(Control, SettingsComeBackAsTheyWereSet)
{
    const Bytes eight{1, 2, 3, 4, 5, 6, 7, 8};
    ExpectPayload({0, 0, 0, 0}, {{4, 9}});
    Expect(0, {{4, 8, {5, 5, 0, 0}}, {4, 10, eight}, {4, 28, eight}, {4, 26, eight, {100}}, {4, 36, {7, 0, 0, 0}}});
    Expect(0, {{17, 1, {8, 9, 0, 0}}});
    ExpectPayload({5, 5, 0, 0}, {{4, 9}});
    ExpectPayload(eight, {{4, 11}, {4, 27}, {4, 29}});
    ExpectPayload({7, 0, 0, 0}, {{4, 37}});
    ExpectPayload({8, 9, 0, 0}, {{17, 2}});
    Expect(36870, {{4, 10, {1, 2, 3, 4}}, {4, 28, {1, 2, 3, 4}}});
    const auto beacon = sign->Control().Kept(26);
    EXPECT_EQ(Bytes(beacon.begin(), beacon.end()), eight + Bytes{100});
    ExpectPayload({6, 0, 0, 0}, {{4, 13, {1, 6, 0, 0, 0, 0, 0, 0}}, {4, 13, {0, 9, 0, 0, 0, 0, 0, 0}}});
    ExpectPayload({1, 0, 0, 0, 0, 0, 0, 0}, {{4, 32, {1, 1, 0, 0}}, {4, 32, {0, 0, 0, 0}}});
    Expect(0, {{4, 6, Bytes{4} + Bytes(31, 0)}, {4, 19, {1, 0, 0, 0}}, {4, 38, {1, 2, 0, 0}, Text("HELLO")}});
    const auto voice = sign->Control().Kept(38);
    EXPECT_EQ(Bytes(voice.begin(), voice.end()), Bytes({1, 2}) + Text("HELLO"));
}

} // namespace
} // namespace vxsign::test
