// Plain control: test patterns, the sign's clock, light, power, restarts, settings that are kept.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using FaceTests = StageTest;
using Clock = SignTest;

TEST_F(FaceTests, PatternsShowUntilTheyAreStoppedAndSomeMove)
{
    PlayThree();
    Film({{0, {}, "R"}, {1000, {3, 2}, "W"}, {1000, {3, 9}}, {3500, {}, "G", "the list has played on"}});
    Rebuild(8, 4);
    const std::pair<unsigned, const char*> patterns[] = {
        {6, "W.W.W.W.\nW.W.W.W.\nW.W.W.W.\nW.W.W.W.\n"},  {7, "WWWWWWWW\n........\nWWWWWWWW\n........\n"},
        {8, "WWWWWWWW\nW......W\nW......W\nWWWWWWWW\n"},  {10, "W.W.W.W.\n.W.W.W.W\nW.W.W.W.\n.W.W.W.W\n"},
        {11, "W.......\n.......W\n......W.\n.....W..\n"}, {12, "WYCGMRB.\nWYCGMRB.\nWYCGMRB.\nWYCGMRB.\n"},
        {13, "WWWWWWWW\nW.WWWW.W\nW.WWWW.W\nWWWWWWWW\n"}};
    for (const auto& [pattern, drawing] : patterns) {
        Expect(0, {{3, pattern}});
        EXPECT_EQ(Drawing(), drawing) << pattern;
    }
    std::set<std::string> all;
    for (const unsigned pattern : {2U, 3U, 4U, 5U, 6U, 7U, 8U, 10U, 11U, 12U, 13U, 14U}) {
        Ask(3, pattern);
        all.insert(Drawing());
    }
    EXPECT_EQ(all.size(), 12U);

    Rebuild(16, 16);
    Film({{0, {3, 14}}});
    const auto row = [&](std::uint64_t nowMs) { return Drawing(nowMs).substr(0, 16); };
    EXPECT_EQ(row(0), "WWWW............");
    EXPECT_EQ(row(40), ".WWWW...........");
    EXPECT_EQ(row(560), "WW............WW") << "around the edge";
    Film({{2000, {3, 15}}, {2999, {}, "R"}, {3000, {}, "G"}, {4000, {}, "B"}, {5000, {}, "W"}, {6000, {}, "R"}});
}

TEST_F(FaceTests, ColourAreaLocationAndWhatIsKept)
{
    Expect(0, {{3, 11, Bytes{10, 20, 30} + Bytes(13, 0)}});
    EXPECT_EQ(At(0, 15, 15), (vxsim::Rgb{10, 20, 30}));
    Expect(36870, {{3, 11, {10, 20, 30}}});

    Expect(0, {{3, 13, Bytes{2, 0, 3, 0, 4, 0, 5, 0, 0, 0, 255} + Bytes(13, 0)}});
    const std::string area = Drawing();
    EXPECT_EQ(std::count(area.begin(), area.end(), 'B'), 20);
    EXPECT_EQ(area.at(17 * 3 + 2), 'B');
    EXPECT_EQ(area.at(17 * 7 + 5), 'B');
    Expect(0, {{3, 13, Bytes{15, 0, 15, 0, 255, 255, 255, 255} + Bytes(16, 0)}});
    EXPECT_EQ(Drawing().find('W'), 17U * 15 + 15) << "no colour, and cut at the edge";

    // Four modules of 20x18 from (4, 2) on, two in a row.
    Rebuild(48, 40);
    const Bytes numbers{1, 0, 2, 0, 0x0A, 0, 0x0B, 0};
    Expect(0, {{3, 16, {4, 0, 2, 0, 20, 0, 18, 0, 2, 0, 0, 0, 0}, numbers}});
    const std::string four = Drawing();
    EXPECT_EQ(four.substr(49L * 2, 48), "....GGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGG....");
    EXPECT_EQ(four.substr(49L * 38, 48), std::string(48, '.'));
    EXPECT_EQ(std::count(four.begin(), four.end(), 'G'), 4 * 72);
    EXPECT_GT(std::count(four.begin(), four.end(), 'W'), 60) << "six digits";
    Expect(0, {{3, 16, {0xFF, 0xFF, 0, 0, 1, 0, 0xFF, 0xFF, 0, 0, 0, 0, 0}, Bytes(1001, 9)}});
    EXPECT_EQ(Drawing().find_first_not_of(".\n"), std::string::npos);

    Rebuild(16, 16);
    EXPECT_EQ(PayloadOf(Ask(3, 1)), (Bytes{16, 0, 16, 0, 1, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(3, 1)), (Bytes{16, 0, 16, 0, 2, 0, 0, 0}));
    Expect(0, {{3, 10, {1, 2, 3, 4, 5, 6}}, {3, 48, {1, 2}}, {3, 49, {}, Bytes(255, 1)}});
    const auto crayon = sign->Tests().CrayonState();
    EXPECT_EQ(Bytes(crayon.begin(), crayon.end()), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(At(0), kDark) << "no pattern 10";
    EXPECT_EQ(sign->Tests().DebugSettings(), 513U);
    Expect(36870, {{3, 12, {1}}});
}

TEST_F(Clock, RunsAheadOfOursByWhatWasSet)
{
    settings.localSecondsAtZero = 1582934340; // 2020-02-28 23:59
    Restart("CDEF");
    const auto time = [&](std::uint64_t nowMs) { return PayloadOf(AskAt(nowMs, 5, 1)); };
    EXPECT_EQ(time(0), (Bytes{0x20, 0x20, 0x02, 0x28, 0x23, 0x59, 5, 0}));
    EXPECT_EQ(time(60000), (Bytes{0x20, 0x20, 0x02, 0x29, 0x00, 0x00, 6, 0}));
    Expect(0, {{5, 4, {0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 0x58, 0x05, 0xAB}}});
    EXPECT_EQ(time(61999), (Bytes{0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 5, 0xAB}));
    const Bytes before = time(62000);
    EXPECT_EQ(before, (Bytes{0x00, 0x20, 0x01, 0x01, 0x00, 0x00, 6, 0xAB}));

    // Times that do not exist.
    for (const Bytes& wrong : {Bytes{0x23, 0x20, 0x02, 0x29, 0, 0, 0}, Bytes{0x24, 0x20, 0x13, 0x01, 0, 0, 0},
                               Bytes{0x24, 0x20, 0x00, 0x01, 0, 0, 0}, Bytes{0x24, 0x20, 0x01, 0x01, 0x24, 0, 0},
                               Bytes{0x24, 0x20, 0x01, 0x01, 0, 0x60, 0}, Bytes{0x24, 0x20, 0x01, 0x01, 0, 0, 0x60},
                               Bytes{0x24, 0x20, 0x0A, 0x01, 0, 0, 0}, Bytes{0x69, 0x19, 0x12, 0x31, 0, 0, 0}})
        Expect(20993, {{5, 4, wrong + Bytes(5, 0)}});
    Expect(36870, {{5, 4, {0x24, 0x20, 0x01, 0x01, 0}}});
    EXPECT_EQ(time(62000), before);

    // Weather and speed limit are kept.
    const std::tuple<std::uint8_t, std::uint8_t, int> readings[] = {
        {0x90, 0x01, 400}, {0xF0, 0x0F, -16}, {0x00, 0x08, -2048}, {0xF0, 0x07, 2032}};
    for (const auto& [low, high, temperature16] : readings) {
        Expect(0, {{5, 3, {55, low, high}}});
        EXPECT_EQ(sign->Time().LastWeather()->humidity, 55);
        EXPECT_EQ(sign->Time().LastWeather()->temperature16, temperature16);
    }
    Expect(0, {{5, 5, {80, 0, 0x2C, 0x01, 0}}});
    EXPECT_EQ(sign->Time().LastSpeedLimit()->first, 80);
    EXPECT_EQ(sign->Time().LastSpeedLimit()->second, 300);
}

using Control = StageTest;

TEST_F(Control, PowerAndBlackScreenDarkenTheFaceWhileTheListPlaysOn)
{
    PlayThree();
    EXPECT_EQ(At(1000), kRed);
    ExpectPayload({1, 1, 0, 0}, {{4, 5}});
    Film({{1500, {4, 3, {1}}, "."}, {2000, {}, "."}});
    ExpectPayload({0, 0, 0, 0}, {{4, 5}});
    Film({{4500, {4, 4}, "G"}, {5000, {4, 1}, "."}, {5000, {4, 2}, "G"}});
}

TEST_F(Control, BrightnessIsEighthsOfTheLight)
{
    using vxsim::Rgb;
    const Rgb full{255, 128, 8};
    Expect(0, {{3, 11, Bytes{255, 128, 8} + Bytes(13, 0)}});
    EXPECT_EQ(At(0), full);
    const std::pair<Request, Rgb> lights[] = {{{4, 7, {4}}, {186, 93, 6}},
                                              {{4, 7, {1, 8}}, {99, 50, 3}},
                                              {{4, 7, {200}}, full},
                                              {{4, 21, {2, 8, 0, 0, 0}}, {136, 68, 4}}};
    for (const auto& [request, colour] : lights) {
        Expect(0, {request});
        EXPECT_EQ(At(0), colour);
    }
    Expect(36870, {{4, 21, {2, 8}}, {4, 7}});

    // Automatic: the level of these two hours of the sign's day.
    Expect(0, {{2, 10, {4, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8}}, {4, 7, {0}}});
    EXPECT_EQ(At(7199999), (Rgb{186, 93, 6}));
    EXPECT_EQ(At(7200000), full);
    EXPECT_EQ(At(86399999), (Rgb{99, 50, 3})) << "never quite dark";
}

TEST_F(Control, AResetDarkensTheFaceAndPlaysAnew)
{
    PlayThree();
    Film({{1000, {}, "R"}, {4000, {4, 7, {4}}}, {4000, {3, 2}}, {5000, {4, 0}, "."}});
    EXPECT_EQ(CodeOf(AskAt(6000, 6, 7, {1})), 26369U);
    Film({{6999, {}, "."}, {7000, {}, "R", "the test has ended"}, {9999, {}, "R"}, {10000, {}, "G"}});
    EXPECT_EQ(At(10000), (vxsim::Rgb{0, 186, 0})) << "the light has stayed";

    Expect(0, {{4, 10, {1, 2, 3, 4, 5, 6, 7, 8}}, {4, 3, {1}}, {4, 1}});
    Film({{20000, {4, 20}}, {21999, {}, "."}, {22000, {}, "R", "as if it had been switched off and on"}});
    EXPECT_EQ(At(22000), kRed);
    ExpectPayload(Bytes(8, 0), {{4, 11}});

    // A list that comes during a reset waits for its end.
    Expect(0, {{4, 0}});
    PutFile("C:\\SEQUENT.SYS", FlatList({"BLUE.BMP"}));
    Film({{23999, {}, "."}, {24000, {}, "B"}});
}

TEST_F(Control, SettingsComeBackAsTheyWereSet)
{
    const Bytes eight{1, 2, 3, 4, 5, 6, 7, 8};
    ExpectPayload({0, 0, 0, 0}, {{4, 9}});
    Expect(0, {{4, 8, {5, 5}}, {4, 10, eight}, {4, 28, eight}, {4, 26, eight, {100}}, {4, 36, {7}}, {17, 1, {8, 9}}});
    ExpectPayload({5, 5, 0, 0}, {{4, 9}});
    ExpectPayload(eight, {{4, 11}, {4, 27}, {4, 29}});
    ExpectPayload({7, 0, 0, 0}, {{4, 37}});
    ExpectPayload({8, 9, 0, 0}, {{17, 2}});
    Expect(36870, {{4, 10, {1, 2, 3, 4}}, {4, 28, {1, 2, 3, 4}}});
    const auto beacon = sign->Control().Kept(26);
    EXPECT_EQ(Bytes(beacon.begin(), beacon.end()), eight + Bytes{100});
    ExpectPayload({6, 0, 0, 0}, {{4, 13, {1, 6, 0, 0, 0}}, {4, 13, {0, 9, 0, 0, 0}}});
    ExpectPayload({1, 0, 0, 0, 0, 0, 0, 0}, {{4, 32, {1, 1}}, {4, 32, {0}}});
    Expect(0, {{4, 6, Bytes{4} + Bytes(31, 0)}, {4, 19, {1}}, {4, 38, {1, 2}, Text("HELLO")}});
    const auto voice = sign->Control().Kept(38);
    EXPECT_EQ(Bytes(voice.begin(), voice.end()), Bytes({1, 2}) + Text("HELLO"));
}

} // namespace
} // namespace vxsign::test
