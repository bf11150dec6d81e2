// The sign as a traffic signal controller.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

class Controller : public StageTest
{
protected:
    Controller()
    {
        settings.controller = true;
        settings.localSecondsAtZero = kNoon;
        Rebuild(128, 32);
    }

    // A letter for each group: red, yellow, green, or '.' for dark; behind it phase and seconds left.
    std::string Seen(std::uint64_t nowMs) override
    {
        const Bytes block = ExtendedOf(AskAt(nowMs, 10, 6));
        std::string text;
        for (std::size_t i = 7; i < 13; ++i)
            text += block.at(i) == 0 ? '.' : block.at(i) == 1 ? 'r' : block.at(i) == 2 ? 'y' : 'g';
        return text + " " + std::to_string(block[2]) + "/" + std::to_string(block[4]);
    }
    static Request Phase(std::uint8_t groups, std::uint8_t seconds, std::uint8_t flag = 1)
    {
        return {10, 16, Bytes{groups, seconds} + Bytes(29, 0xFF) + Bytes{flag}};
    }
    static Request Mode(std::uint8_t mode) { return {10, 2, {mode}}; }
    Bytes Errors() const { return Part(OnSign("E/ERR_REC/ERRMSG.ERR"), 32); }

    static constexpr std::int64_t kNoon = 1589371200; // 2020-05-13 12:00:00, a Wednesday, when a cycle begins
};

TEST_F(Controller, PhasesFollowTheClock)
{
    Film({{0, {}, "grgrrr 1/16"}, {15999, {}, "grgrrr 1/1"}, {16000, {}, "yryrrr 1/3"}, {19000, {}, "rrrrrr 1/2"}});
    Film({{21000, {}, "rgrgrr 2/12"}, {33000, {}, "ryryrr 2/3"}, {36000, {}, "rrrrrr 2/2"}, {38000, {}, "rrrrgg 3/7"}});
    Film({{45000, {}, "rrrrrr 3/3"}, {48000, {}, "rrrrrr 3/2"}, {50000, {}, "grgrrr 1/16"}});
    Film({{50000, {5, 2, {0x20, 0x20, 0x05, 0x13, 0x12, 0x00, 0x21, 0, 0}}, "rgrgrr 2/12", "the clock"}});
}

TEST_F(Controller, ManualModeHoldsAPhase)
{
    Film({{1000, Mode(2), "yryrrr 2/3", "what has green is cleared first"}, {4000, {}, "rrrrrr 2/2"}});
    Film({{6000, {}, "rgrgrr 2/255"}, {3600000, {}, "rgrgrr 2/255"}, {3600000, Mode(4)}});
    Film({{3605000, {}, "rrrrrr 0/255"}, {3605000, Mode(5)}, {3610000, {}, "yyyy.. 0/255"}});
    Film({{3610500, {}, "...... 0/255"}});
    Expect(36881, {Mode(6)});
    Film({{3611000, {}, "yyyy.. 0/255"}, {3611000, Mode(0)}});
    Film({{3613999, {}, "yyyyrr 1/1", "a lit yellow is cleared, and red for the rest"}});
    Film({{3616000, {}, "yryrrr 1/3", "where the cycle stands"}, {3616000, {4, 0}}, {3616000, Mode(1)}});
    Film({{3616000, {4, 0}}, {3621000, {}, "rgrgrr 2/12", "a restart ends it"}});
}

TEST_F(Controller, TemporaryPhaseRunsOnce)
{
    Film({{1000, Phase(0b000001, 4), "gryrrr 0/3", "north goes on"}, {6000, {}, "grrrrr 0/4"}});
    Film({{10000, {}, "grrrrr 1/3", "whoever gets green waits until all is cleared"}, {15000, {}, "grgrrr 1/1"}});
    Film({{15000, Phase(0b110000, 0)}, {29999, {}, "rrrrgg 0/1", "ten seconds when none are given"}});
    Film({{22000, Phase(1, 9, 0), "rrrrrr 2/3", "ended before its time"}, {27000, {}, "rgrgrr 2/6"}});
    // North and east; north and a crossing; none; no such group.
    Expect(36881, {Phase(0b000011, 4), Phase(0b010001, 4), Phase(0, 4), Phase(0b1000000, 4)});
    Film({{27000, {}, "rgrgrr 2/6"}});
    const Bytes errors = Errors();
    ASSERT_EQ(errors.size(), 4U + 3 * 32);
    EXPECT_EQ(Part(errors, 36, 12), (Bytes{0x20, 0x20, 0x05, 0x13, 0x12, 0x00, 0x27, 0, 0x00, 0x0E, 2, 0}));
}

TEST_F(Controller, LampTestsShowForTenSeconds)
{
    Film({{0, {10, 8, {3}, {1, 7, 0}}}});
    const Bytes block = ExtendedOf(AskAt(9999, 10, 6));
    EXPECT_EQ(block[0], 3);
    EXPECT_EQ(block[8], 7);
    Film({{10000, {}, "grgrrr 1/6"}, {10000, {10, 9, {1, 2}, {2, 1, 4}}}, {11000, {}, "y...rg 1/5"}});
    Film({{11000, {10, 9, {200, 55}, Bytes(255, 4)}, "gggggg 1/5", "more than there are"}});
    Expect(36870, {{10, 8, {4}, {1, 2, 4}}, {10, 9, {1, 1}, {1, 2, 4}}});
    Film({{11000, {10, 8, {0}}, "grgrrr 1/5", "ended"}});
}

TEST_F(Controller, FaceShowsTheHeads)
{
    using Pixel = std::pair<int, int>;
    constexpr Pixel kNorthRed{26, 7};
    constexpr Pixel kNorthGreen{26, 23};
    constexpr Pixel kEastYellow{45, 15};
    const auto at = [this](std::uint64_t nowMs, Pixel pixel) { return At(nowMs, pixel.first, pixel.second); };
    EXPECT_EQ(at(0, kNorthGreen), kGreen);
    EXPECT_EQ(at(0, kNorthRed), (vxsim::Rgb{31, 0, 0})) << "a lamp that is not lit shows its colour";
    EXPECT_EQ(at(21000, kNorthRed), kRed);
    EXPECT_EQ(at(33000, kEastYellow), (vxsim::Rgb{255, 200, 0}));
    const vxsim::Canvas automatic = stage->Draw(5000);
    AskAt(0, 10, 2, {1});
    const vxsim::Canvas manual = stage->Draw(5000);
    EXPECT_NE(automatic, manual) << "the letter of the mode";
    EXPECT_EQ(at(5000, kNorthGreen), kGreen);
    AskAt(6000, 10, 8, {2}, {1, 2});
    EXPECT_EQ(at(6000, kNorthRed), kRed);
    EXPECT_EQ(at(6000, kEastYellow), (vxsim::Rgb{255, 200, 0}));
    EXPECT_EQ(CodeOf(Ask(4, 1)), 0U);
    EXPECT_EQ(at(6000, kNorthRed), kDark);
    for (const auto& [width, height] : {Pixel{1, 1}, Pixel{16, 200}, Pixel{300, 3}}) {
        Rebuild(width, height);
        stage->Draw(0);
    }
}

TEST_F(Controller, Blocks)
{
    AskAt(0, 5, 4, {0x20, 0x20, 0x05, 0x13, 0x12, 0x30, 0x00, 0, 0xAB});
    EXPECT_EQ(PayloadOf(AskAt(7000, 5, 1)), (Bytes{0x20, 0x20, 0x05, 0x13, 0x12, 0x30, 0x07, 3, 0xAB, 0, 0, 0}));
    const Bytes real = ExtendedOf(AskAt(7000, 10, 17, {0}));
    ASSERT_EQ(real.size(), 102U);
    EXPECT_EQ(Part(real, 0, 22),
              (Bytes{0x20, 0x20, 0x05, 0x13, 0x12, 0x30, 0x07, 0, 0, 0, 1, 0, 9, 3, 6, 4, 1, 4, 1, 1, 1, 0}));
    const Bytes monitor = ExtendedOf(AskAt(0, 10, 5, {4}));
    ASSERT_EQ(monitor.size(), 52U);
    EXPECT_EQ(Part(monitor, 0, 12), (Bytes{4, 6, 1, 16, 1, 4, 228, 0, 200, 1, 0, 0}));

    // Noon of a Wednesday has 456 vehicles an hour in group 1, and 12 more in each further one.
    const Bytes today = AskAt(0, 10, 13, Bytes(8, 0));
    EXPECT_EQ(PayloadOf(today), (Bytes{0x20, 0x20, 0x05, 0x13, 4, 24, 0, 0}));
    const Bytes flow = ExtendedOf(today);
    ASSERT_EQ(flow.size(), 192U);
    EXPECT_EQ(Part(flow, 88, 18), (Bytes{164, 1, 176, 1, 188, 1, 200, 1, 228, 0, 234, 0, 240, 0, 246, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(Ask(10, 13, {0x16, 0x20, 0x05, 0x14, 0}))[96], 48) << "304 on a Saturday";
    EXPECT_EQ(ExtendedOf(Ask(10, 13, {0x20, 0x20, 0x05, 0x14, 0})), Bytes(192, 0)) << "tomorrow";
    Expect(36881, {{10, 17, {1}}, {10, 5, {3}}, {10, 13, {0x20, 0x20, 0x02, 0x30, 0}}});
    Expect(36881, {{10, 13, {0x2A, 0x20, 0x02, 0x20, 0}}});
    Expect(36870, {{10, 17}, {10, 13, {0}}});
}

TEST_F(Controller, KeepsItsLogs)
{
    sign->KeepUp(0);
    EXPECT_EQ(Errors(), (Bytes{1, 0, 0, 0, 0x20, 0x20, 0x05, 0x13, 0x12, 0, 0, 0, 0x00, 0x0C, 1, 0}) + Bytes(20, 0));
    const auto temperatures = [&] { return OnSign("E/TEP_REC/CTL05.TEP"); };
    const Bytes month = temperatures();
    ASSERT_EQ(month.size(), 32U + 13 * 24);
    EXPECT_EQ(month[32 + 12 * 24 + 13], 0) << "still to come";
    EXPECT_EQ(month[32], month[32 + 12 * 24 + 12] - 12) << "midnight of the first, and now";
    sign->KeepUp(3600000);
    EXPECT_NE(temperatures()[32 + 12 * 24 + 13], 0);
    Ask(5, 4, {0x21, 0x20, 0x05, 0x01, 0x02, 0, 0, 0, 0});
    sign->KeepUp(arrival.nowMs + 3600000);
    EXPECT_EQ(temperatures().size(), 32U + 24) << "another year's";

    for (int i = 0; i < 510; ++i)
        Expect(36881, {Phase(3, 1)});
    const Bytes errors = Errors();
    ASSERT_EQ(errors.size(), 4U + 500 * 32);
    EXPECT_EQ(errors[0] + 256 * errors[1], 500);
    EXPECT_EQ(Bytes(errors.end() - 24, errors.end() - 20), (Bytes{0x00, 0x0E, 0xFE, 1})) << "the 510th";

    Restart("CD"); // without drive E
    sign->KeepUp(0);
    Expect(36881, {Phase(3, 1)});
}

TEST_F(Controller, LoginsStayWhatTheyAre)
{
    const Bytes login = Padded("admin", 14) + Padded("1234", 6);
    settings.users = {{"admin", "1234"}};
    Rebuild(128, 32);
    Expect(36912, {Mode(1), {10, 6}});
    Expect(0, {{10, 1, login}, Mode(1)});
    EXPECT_EQ(Seen(0), "grgrrr 1/3") << "manual, and still logged in";
    Expect(0, {{10, 2}});
    Expect(36912, {{10, 6}});

    settings.users.clear();
    settings.controller = false;
    Rebuild(16, 16);
    Expect(0, {Mode(1)}); // logs out
    Expect(36869, {{10, 6}, {5, 2, Bytes(12, 0)}});
    EXPECT_EQ(PayloadOf(AskAt(7000, 5, 1)).size(), 8U);
}

} // namespace
} // namespace vxsign::test
