// Video processors and extra boards.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using Video = StageTest;
using Extra = SignTest;

TEST_F(Video, WhatTheVpuIsSetToIsKeptAndTold)
{
    Expect(0, {{52, 9, {7}}, {52, 1, {2}}, {52, 3, {3}}, {52, 14, {22}}, {52, 15, {5}}, {52, 2, {8, 9}}});
    Expect(0, {{52, 10, {0x02, 1}}, {52, 11, {1, 2, 3, 4}}, {52, 4, {1, 0, 2}}, {52, 5, {1, 0, 2}}});
    Expect(0, {{52, 6, {1, 0, 2}}, {52, 16, {1, 0, 2, 0, 3}}, {52, 12, {9, 8, 7, 255}}, {52, 17, {6}}});
    ExpectPayload({}, {{52, 17, {7}}}); // a mode is set, not asked for
    ExpectPayload(Text("VXVPU1.0") + Bytes{7, 2, 3, 22, 5, 7, 8, 9, 2, 1, 0, 0, 1, 2, 3, 4}, {{52, 17, Bytes(4, 0)}});
    ExpectPayload({9, 8, 7, 255}, {{52, 13, Bytes(4, 0)}});
    ExpectPayload({2, 0, 16, 0, 16, 0, 25, 0}, {{52, 8, Bytes(4, 0)}});
    Expect(0, {{52, 1, {9}}});
    ExpectPayload({9, 0, 0, 0, 0, 0, 0, 0}, {{52, 8, Bytes(4, 0)}}); // no signal
    Rebuild(16, 16);
    ExpectPayload({9, 8, 7, 255}, {{52, 13}});
    Expect(36870, {{52, 16, {1, 0, 2}}, {52, 1}});
    Expect(36869, {{52, 7, {0}}});
}

TEST_F(Video, BrightnessAndChannelAreSeen)
{
    PlayThree();
    Film({{0, {}, "R"}, {0, {52, 12, {128, 255, 255, 255}}}});
    EXPECT_EQ(At(0), (vxsim::Rgb{128, 0, 0}));
    Expect(0, {{52, 12, {255, 255, 255, 51}}});
    EXPECT_EQ(At(0), (vxsim::Rgb{51, 0, 0}));
    Expect(0, {{52, 12, {255, 255, 255, 255}}});
    Rebuild(128, 32);
    EXPECT_EQ(At(0, 0, 0), kDark);
    Expect(0, {{52, 1, {1}}});
    EXPECT_EQ(At(0, 0, 0), kWhite);
    EXPECT_EQ(At(0, 127, 0), kDark);
    EXPECT_EQ(At(0, 48, 7), kGreen) << "frame of the label";
    const vxsim::Canvas one = stage->Draw(0);
    Expect(0, {{52, 1, {2}}});
    EXPECT_NE(stage->Draw(0), one) << "its number differs";
    Expect(0, {{52, 1, {9}}});
    EXPECT_EQ(stage->Draw(0), vxsim::Canvas(128, 32)) << "no signal";
}

TEST_F(Video, AWindowOfTheMpuTakesItsTime)
{
    const Bytes window{0, 4, 0, 2, 0, 8, 0, 6, 0, 1, 0, 0}; // at (4, 2), 8x6
    const auto progress = [&](std::uint64_t nowMs) { return PayloadOf(AskAt(nowMs, 53, 0xFE, {1})).at(0); };
    Expect(0, {{53, 30, {3}}, {53, 27, Bytes(16, 1)}});
    Expect(36870, {{53, 27, Bytes(12, 1)}});
    EXPECT_EQ(PayloadOf(AskAt(1000, 53, 31, window)), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(progress(1000), 0);
    EXPECT_EQ(progress(2500), 75);
    EXPECT_EQ(At(2999, 4, 2), kDark);
    EXPECT_EQ(progress(3000), 100);
    const std::string drawing = Drawing(3000);
    for (const auto& [x, y, lamp] : {std::tuple{4U, 2U, 'G'}, {11U, 7U, 'G'}, {3U, 2U, '.'}, {12U, 7U, '.'}})
        EXPECT_EQ(drawing.at(17 * y + x), lamp) << x << ',' << y;
    Expect(3079, {{53, 0xFE, {2}}});
    Rebuild(16, 16);
    EXPECT_EQ(sign->Video().Window(0)->channel, 3) << "and is kept";

    for (const Bytes& edge :
         {Bytes{0, 15, 0, 15, 0, 255, 255, 255, 255, 1, 0, 0}, Bytes{0, 255, 255, 0, 0, 9, 0, 9, 0, 1, 0, 0}}) {
        Rebuild(16, 16);
        AskAt(0, 53, 31, edge);
        EXPECT_EQ(At(5000, 0, 0), kDark);
    }
    for (int i = 0; i < 20; ++i)
        AskAt(6000, 53, 31, window);
    Expect(3079, {{53, 0xFE, {4}}}); // the latest sixteen are known
    Expect(0, {{53, 0xFE, {6}}});
}

TEST_F(Extra, BoardsCollectAndSwitch)
{
    const Bytes outputs = Bytes{1, 0, 1} + Bytes(13, 0);
    Expect(0, {{96, 64, {}, outputs, 0x0304}, {96, 48, {}, {1, 2, 3, 4, 5, 6, 7, 8}, 0x0302}});
    for (int round = 0; round < 2; ++round) {
        Expect(0, {{5, 3, {40, 0x48, 0x01}}, {4, 3}}); // 20.5 degrees, 40 percent; no power: dark, too
        EXPECT_EQ(ExtendedOf(Ask(96, 65, {}, {}, 0x0304)),
                  (Bytes{0, 0, 0, 1, 1, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0}) + outputs + Bytes(36, 0));
        // Outside 20, inside 28 and tiles 33 degrees without light.
        EXPECT_EQ(ExtendedOf(Ask(96, 49, {}, {}, 0x0302)),
                  (Bytes{200, 0, 0x18, 1, 0x4A, 1, 40, 0, 8, 0, 1, 2, 3, 4, 5, 6, 7, 8}) + Bytes(20, 0));
        Restart("CDEF");
    }
    EXPECT_EQ(ExtendedOf(Ask(96, 65, {}, {}, 0x0204)).at(16), 0) << "another board";
    Expect(36867, {{96, 65, {}, {}, 0x0302}, {96, 65, {}, {}, 0x1004}, {96, 65}, {96, 49, {}, {}, 0x0304}});
    Expect(36870, {{96, 64, {}, Bytes(15, 1), 0x0304}, {96, 48, {}, Bytes(7, 1), 0x0302}});
    Expect(36869, {{96, 50}});
}

TEST_F(Extra, TheWifiModuleHasAKey)
{
    const Bytes first = Bytes{1, 6, 0, 0} + Text("VXSIGN") + Bytes(34, 0);
    EXPECT_EQ(ExtendedOf(Ask(96, 98, {}, Bytes(44, 0))), first);
    const Bytes closed = Bytes{2, 1, 0, 0} + Text("ROAD") + Bytes(16, 0) + Text("secret") + Bytes(14, 0);
    Expect(0, {{96, 97, {}, closed}});
    Expect(36913, {{96, 97, {}, first}});
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Text("secre"))), (Bytes{0, 0, 0, 0}));
    Expect(36913, {{96, 97, {}, first}});
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Text("secret"))), (Bytes{1, 0, 0, 0}));
    Expect(0, {{96, 97, {}, closed}, {96, 99}});
    Expect(36913, {{96, 97, {}, first}}); // the reset has locked it
    Restart("CDEF");
    EXPECT_EQ(ExtendedOf(Ask(96, 98, {}, Bytes(44, 0))), closed);
    Expect(36870, {{96, 98, {}, Bytes(43, 0)}});
    // A key without an end.
    Expect(0, {{96, 96, {}, Text("secret")}, {96, 97, {}, Bytes(24, 0) + Bytes(20, 'k')}});
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Bytes(20, 'k'))), (Bytes{1, 0, 0, 0}));
}

} // namespace
} // namespace vxsign::test
