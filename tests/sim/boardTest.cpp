#include "stageFixture.h"

namespace vxsim_tests {
namespace {

using Video = StageTest;
using Extra = SignTest;

TEST_F(Video, WhatTheVpuIsSetToIsKeptAndTold)
{
    const std::pair<unsigned, Bytes> kept[] = {
        {9, {7, 0, 0, 0}},   {1, {2, 0, 0, 0}}, {3, {3, 0, 0, 0}},     {14, {22, 0, 0, 0}},
        {15, {5, 0, 0, 0}},  {2, {8, 9, 0, 0}}, {10, {0x02, 1, 0, 0}}, {11, {1, 2, 3, 4}},
        {4, {1, 0, 2, 0}},   {5, {1, 0, 2, 0}}, {6, {1, 0, 2, 0}},     {16, {1, 0, 2, 0, 3, 0, 0, 0}},
        {12, {9, 8, 7, 255}}};
    for (const auto& [minor, payload] : kept)
        EXPECT_EQ(CodeOf(Ask(52, minor, payload)), 0U) << minor;
    EXPECT_EQ(CodeOf(Ask(52, 17, {6, 0, 0, 0})), 0U);
    EXPECT_TRUE(PayloadOf(Ask(52, 17, {7, 0, 0, 0})).empty()) << "a mode is set, not asked for";
    const Bytes info = Text("VXVPU1.0") + Bytes{7, 2, 3, 22, 5, 7, 8, 9, 2, 1, 0, 0, 1, 2, 3, 4};
    EXPECT_EQ(PayloadOf(Ask(52, 17, {0, 0, 0, 0})), info);
    EXPECT_EQ(PayloadOf(Ask(52, 13, {0, 0, 0, 0})), (Bytes{9, 8, 7, 255}));
    EXPECT_EQ(PayloadOf(Ask(52, 8, {0, 0, 0, 0})), (Bytes{2, 0, 16, 0, 16, 0, 25, 0}));
    Ask(52, 1, {9, 0, 0, 0});
    EXPECT_EQ(PayloadOf(Ask(52, 8, {0, 0, 0, 0})), (Bytes{9, 0, 0, 0, 0, 0, 0, 0})) << "no signal";
    Rebuild(16, 16);
    EXPECT_EQ(PayloadOf(Ask(52, 13)), (Bytes{9, 8, 7, 255}));
    EXPECT_EQ(CodeOf(Ask(52, 16, {1, 0, 2, 0})), 36870U);
    EXPECT_EQ(CodeOf(Ask(52, 1)), 36870U);
    EXPECT_EQ(CodeOf(Ask(52, 7, {0, 0, 0, 0})), 36869U);
}

TEST_F(Video, BrightnessAndChannelAreSeen)
{
    PlayThree();
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(CodeOf(Ask(52, 12, {128, 255, 255, 255})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{128, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(52, 12, {255, 255, 255, 51})), 0U);
    EXPECT_EQ(At(0), (vxsim::Rgb{51, 0, 0}));
    Ask(52, 12, {255, 255, 255, 255});
    Rebuild(128, 32);
    EXPECT_EQ(At(0, 0, 0), kDark);
    Ask(52, 1, {1, 0, 0, 0});
    EXPECT_EQ(At(0, 0, 0), kWhite);
    EXPECT_EQ(At(0, 127, 0), kDark);
    EXPECT_EQ(At(0, 48, 7), kGreen) << "frame of the label";
    const vxsim::Canvas one = stage->Draw(0);
    Ask(52, 1, {2, 0, 0, 0});
    EXPECT_NE(stage->Draw(0), one) << "its number differs";
    Ask(52, 1, {9, 0, 0, 0});
    EXPECT_EQ(stage->Draw(0), vxsim::Canvas(128, 32)) << "no signal";
}

TEST_F(Video, AWindowOfTheMpuTakesItsTime)
{
    EXPECT_EQ(CodeOf(Ask(53, 30, {3, 0, 0, 0})), 0U);
    EXPECT_EQ(CodeOf(Ask(53, 27, Bytes(16, 1))), 0U);
    EXPECT_EQ(CodeOf(Ask(53, 27, Bytes(12, 1))), 36870U);
    const Bytes window{0, 4, 0, 2, 0, 8, 0, 6, 0, 1, 0, 0}; // at (4, 2), 8x6
    EXPECT_EQ(PayloadOf(AskAt(1000, 53, 31, window)), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(AskAt(1000, 53, 0xFE, {1, 0, 0, 0})), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(AskAt(2500, 53, 0xFE, {1, 0, 0, 0})), (Bytes{75, 0, 0, 0}));
    EXPECT_EQ(At(2999, 4, 2), kDark);
    EXPECT_EQ(PayloadOf(AskAt(3000, 53, 0xFE, {1, 0, 0, 0})), (Bytes{100, 0, 0, 0}));
    EXPECT_EQ(At(3000, 4, 2), kGreen);
    EXPECT_EQ(At(3000, 11, 7), kGreen);
    EXPECT_EQ(At(3000, 3, 2), kDark);
    EXPECT_EQ(At(3000, 12, 7), kDark);
    EXPECT_EQ(CodeOf(Ask(53, 0xFE, {2, 0, 0, 0})), 3079U);
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
    EXPECT_EQ(CodeOf(Ask(53, 0xFE, {4, 0, 0, 0})), 3079U) << "the latest sixteen are known";
    EXPECT_EQ(CodeOf(Ask(53, 0xFE, {6, 0, 0, 0})), 0U);
}

TEST_F(Extra, BoardsCollectAndSwitch)
{
    const Bytes outputs = Bytes{1, 0, 1} + Bytes(13, 0);
    EXPECT_EQ(CodeOf(Ask(96, 64, {}, outputs, 0x0304)), 0U);
    EXPECT_EQ(CodeOf(Ask(96, 48, {}, {1, 2, 3, 4, 5, 6, 7, 8}, 0x0302)), 0U);
    Ask(5, 3, {40, 0x48, 0x01, 0}); // 20.5 degrees, 40 percent
    Ask(4, 3);                      // no power: dark, too
    for (const bool again : {false, true}) {
        if (again) {
            Restart("CDEF");
            Ask(5, 3, {40, 0x48, 0x01, 0});
            Ask(4, 3);
        }
        EXPECT_EQ(ExtendedOf(Ask(96, 65, {}, {}, 0x0304)),
                  (Bytes{0, 0, 0, 1, 1, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0}) + outputs + Bytes(36, 0));
        // Outside 20, inside 28 and tiles 33 degrees without light.
        EXPECT_EQ(ExtendedOf(Ask(96, 49, {}, {}, 0x0302)),
                  (Bytes{200, 0, 0x18, 1, 0x4A, 1, 40, 0, 8, 0, 1, 2, 3, 4, 5, 6, 7, 8}) + Bytes(20, 0));
    }
    EXPECT_EQ(ExtendedOf(Ask(96, 65, {}, {}, 0x0204)).at(16), 0) << "another board";
    for (const std::uint16_t nowhere : std::initializer_list<std::uint16_t>{0x0302, 0x1004, 0x0000})
        EXPECT_EQ(CodeOf(Ask(96, 65, {}, {}, nowhere)), 36867U);
    EXPECT_EQ(CodeOf(Ask(96, 49, {}, {}, 0x0304)), 36867U);
    EXPECT_EQ(CodeOf(Ask(96, 64, {}, Bytes(15, 1), 0x0304)), 36870U);
    EXPECT_EQ(CodeOf(Ask(96, 48, {}, Bytes(7, 1), 0x0302)), 36870U);
    EXPECT_EQ(CodeOf(Ask(96, 50)), 36869U);
}

TEST_F(Extra, TheWifiModuleHasAKey)
{
    const Bytes first = Bytes{1, 6, 0, 0} + Text("VXSIGN") + Bytes(34, 0);
    EXPECT_EQ(ExtendedOf(Ask(96, 98, {}, Bytes(44, 0))), first);
    const Bytes closed = Bytes{2, 1, 0, 0} + Text("ROAD") + Bytes(16, 0) + Text("secret") + Bytes(14, 0);
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, closed)), 0U);
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, first)), 36913U);
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Text("secre"))), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, first)), 36913U);
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Text("secret"))), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, closed)), 0U);
    EXPECT_EQ(CodeOf(Ask(96, 99)), 0U);
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, first)), 36913U) << "the reset has locked it";
    Restart("CDEF");
    EXPECT_EQ(ExtendedOf(Ask(96, 98, {}, Bytes(44, 0))), closed);
    EXPECT_EQ(CodeOf(Ask(96, 98, {}, Bytes(43, 0))), 36870U);
    const Bytes unbounded = Bytes(24, 0) + Bytes(20, 'k'); // a key without an end
    Ask(96, 96, {}, Text("secret"));
    EXPECT_EQ(CodeOf(Ask(96, 97, {}, unbounded)), 0U);
    EXPECT_EQ(PayloadOf(Ask(96, 96, {}, Bytes(20, 'k'))), (Bytes{1, 0, 0, 0}));
}

} // namespace
} // namespace vxsim_tests
