#include "stageFixture.h"

#include <set>

namespace vxsim_tests {
namespace {

using FaceTests = StageTest;
using Clock = SignTest;

// One line for each row: a letter for each lit lamp.
std::string Drawing(const vxsim::Canvas& face)
{
    std::string drawing;
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x) {
            const vxsim::Rgb colour = face.At(x, y);
            const int channels = (colour.red != 0 ? 1 : 0) | (colour.green != 0 ? 2 : 0) | (colour.blue != 0 ? 4 : 0);
            drawing += ".RGYBMCW"[channels];
        }
        drawing += '\n';
    }
    return drawing;
}

TEST_F(FaceTests, PatternsShowUntilTheyAreStopped)
{
    PlayThree();
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(CodeOf(Ask(3, 2)), 0U);
    EXPECT_EQ(At(1000), kWhite);
    EXPECT_EQ(CodeOf(Ask(3, 9)), 0U);
    EXPECT_EQ(At(3500), kGreen) << "the list has played on";

    Rebuild(8, 4);
    const std::pair<unsigned, const char*> patterns[] = {
        {6, "W.W.W.W.\nW.W.W.W.\nW.W.W.W.\nW.W.W.W.\n"},  {7, "WWWWWWWW\n........\nWWWWWWWW\n........\n"},
        {8, "WWWWWWWW\nW......W\nW......W\nWWWWWWWW\n"},  {10, "W.W.W.W.\n.W.W.W.W\nW.W.W.W.\n.W.W.W.W\n"},
        {11, "W.......\n.......W\n......W.\n.....W..\n"}, {12, "WYCGMRB.\nWYCGMRB.\nWYCGMRB.\nWYCGMRB.\n"},
        {13, "WWWWWWWW\nW.WWWW.W\nW.WWWW.W\nWWWWWWWW\n"},
    };
    for (const auto& [pattern, drawing] : patterns) {
        EXPECT_EQ(CodeOf(Ask(3, pattern)), 0U);
        EXPECT_EQ(Drawing(stage->Draw(0)), drawing) << pattern;
    }
    std::set<std::string> all;
    for (const unsigned pattern : {2U, 3U, 4U, 5U, 6U, 7U, 8U, 10U, 11U, 12U, 13U, 14U}) {
        Ask(3, pattern);
        all.insert(Drawing(stage->Draw(0)));
    }
    EXPECT_EQ(all.size(), 12U);
}

TEST_F(FaceTests, SomePatternsMove)
{
    EXPECT_EQ(CodeOf(AskAt(1000, 3, 14)), 0U);
    EXPECT_EQ(At(1000, 3), kWhite);
    EXPECT_EQ(At(1000, 4), kDark);
    EXPECT_EQ(At(1040, 0), kDark);
    EXPECT_EQ(At(1040, 4), kWhite);
    EXPECT_EQ(At(1560, 15), kWhite);
    EXPECT_EQ(At(1560, 1), kWhite) << "around the edge";
    EXPECT_EQ(CodeOf(AskAt(2000, 3, 15)), 0U);
    EXPECT_EQ(At(2999), kRed);
    EXPECT_EQ(At(3000), kGreen);
    EXPECT_EQ(At(4000), kBlue);
    EXPECT_EQ(At(5000), kWhite);
    EXPECT_EQ(At(6000), kRed);
}

TEST_F(FaceTests, ColourAreaAndLocation)
{
    EXPECT_EQ(CodeOf(Ask(3, 11, Bytes{10, 20, 30} + Bytes(13, 0))), 0U);
    EXPECT_EQ(At(0, 15, 15), (vxsim::Rgb{10, 20, 30}));
    EXPECT_EQ(CodeOf(Ask(3, 11, {10, 20, 30, 0})), 36870U);

    EXPECT_EQ(CodeOf(Ask(3, 13, Bytes{2, 0, 3, 0, 4, 0, 5, 0, 0, 0, 255} + Bytes(13, 0))), 0U);
    int lit = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            lit += At(0, x, y) == kBlue ? 1 : 0;
    }
    EXPECT_EQ(lit, 20);
    EXPECT_EQ(At(0, 2, 3), kBlue);
    EXPECT_EQ(At(0, 5, 7), kBlue);
    EXPECT_EQ(CodeOf(Ask(3, 13, Bytes{15, 0, 15, 0, 255, 255, 255, 255} + Bytes(16, 0))), 0U);
    EXPECT_EQ(At(0, 15, 15), kWhite) << "no colour, and cut at the edge";
    EXPECT_EQ(At(0, 14, 15), kDark);

    // Four modules of 20x18 from (4, 2) on, two in a row.
    Rebuild(48, 40);
    const Bytes numbers{1, 0, 2, 0, 0x0A, 0, 0x0B, 0};
    EXPECT_EQ(CodeOf(Ask(3, 16, {4, 0, 2, 0, 20, 0, 18, 0, 2, 0, 0, 0, 0, 0, 0, 0}, numbers)), 0U);
    const std::string four = Drawing(stage->Draw(0));
    EXPECT_EQ(four.substr(49L * 2, 48), "....GGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGGG....");
    EXPECT_EQ(four.substr(49L * 38, 48), std::string(48, '.'));
    EXPECT_EQ(std::count(four.begin(), four.end(), 'G'), 4 * 72);
    EXPECT_GT(std::count(four.begin(), four.end(), 'W'), 60) << "six digits";
    EXPECT_EQ(CodeOf(Ask(3, 16, {0xFF, 0xFF, 0, 0, 1, 0, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0}, Bytes(1001, 9))), 0U);
    EXPECT_EQ(Drawing(stage->Draw(0)).find_first_not_of(".\n"), std::string::npos);
}

TEST_F(FaceTests, ConnectionAndSettings)
{
    EXPECT_EQ(PayloadOf(Ask(3, 1)), (Bytes{16, 0, 16, 0, 1, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(3, 1)), (Bytes{16, 0, 16, 0, 2, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(3, 10, {1, 2, 3, 4, 5, 6})), 0U);
    const auto crayon = sign->Tests().CrayonState();
    EXPECT_EQ(Bytes(crayon.begin(), crayon.end()), (Bytes{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(At(0), kDark) << "no pattern 10";
    EXPECT_EQ(CodeOf(Ask(3, 48, {1, 2, 0, 0})), 0U);
    EXPECT_EQ(sign->Tests().DebugSettings(), 513U);
    EXPECT_EQ(CodeOf(Ask(3, 49, {}, Bytes(255, 1))), 0U);
    EXPECT_EQ(CodeOf(Ask(3, 12, {1, 0, 0, 0})), 36870U);
}

TEST_F(Clock, RunsAheadOfOursByWhatWasSet)
{
    settings.localSecondsAtZero = 1582934340; // 2020-02-28 23:59
    Restart("CDEF");
    EXPECT_EQ(PayloadOf(Ask(5, 1)), (Bytes{0x20, 0x20, 0x02, 0x28, 0x23, 0x59, 5, 0}));
    arrival.nowMs = 60000;
    EXPECT_EQ(PayloadOf(Ask(5, 1)), (Bytes{0x20, 0x20, 0x02, 0x29, 0x00, 0x00, 6, 0}));
    EXPECT_EQ(CodeOf(Ask(5, 4, {0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 0x58, 0x05, 0xAB, 0, 0, 0})), 0U);
    arrival.nowMs = 61999;
    EXPECT_EQ(PayloadOf(Ask(5, 1)), (Bytes{0x99, 0x19, 0x12, 0x31, 0x23, 0x59, 5, 0xAB}));
    arrival.nowMs = 62000;
    EXPECT_EQ(PayloadOf(Ask(5, 1)), (Bytes{0x00, 0x20, 0x01, 0x01, 0x00, 0x00, 6, 0xAB}));
}

TEST_F(Clock, RefusesTimesThatDoNotExist)
{
    const Bytes before = PayloadOf(Ask(5, 1));
    const std::vector<Bytes> wrong{
        {0x23, 0x20, 0x02, 0x29, 0x00, 0x00, 0x00}, {0x24, 0x20, 0x13, 0x01, 0x00, 0x00, 0x00},
        {0x24, 0x20, 0x00, 0x01, 0x00, 0x00, 0x00}, {0x24, 0x20, 0x01, 0x01, 0x24, 0x00, 0x00},
        {0x24, 0x20, 0x01, 0x01, 0x00, 0x60, 0x00}, {0x24, 0x20, 0x01, 0x01, 0x00, 0x00, 0x60},
        {0x24, 0x20, 0x0A, 0x01, 0x00, 0x00, 0x00}, {0x69, 0x19, 0x12, 0x31, 0x00, 0x00, 0x00}};
    for (const Bytes& time : wrong)
        EXPECT_EQ(CodeOf(Ask(5, 4, time + Bytes(5, 0))), 20993U);
    EXPECT_EQ(CodeOf(Ask(5, 4, {0x24, 0x20, 0x01, 0x01, 0, 0, 0, 0})), 36870U);
    EXPECT_EQ(PayloadOf(Ask(5, 1)), before);
}

TEST_F(Clock, WeatherAndSpeedLimitAreKept)
{
    const std::tuple<std::uint8_t, std::uint8_t, int> readings[] = {
        {0x90, 0x01, 400}, {0xF0, 0x0F, -16}, {0x00, 0x08, -2048}, {0xF0, 0x07, 2032}};
    for (const auto& [low, high, temperature16] : readings) {
        EXPECT_EQ(CodeOf(Ask(5, 3, {55, low, high, 0})), 0U);
        EXPECT_EQ(sign->Time().LastWeather()->humidity, 55);
        EXPECT_EQ(sign->Time().LastWeather()->temperature16, temperature16);
    }
    EXPECT_EQ(CodeOf(Ask(5, 5, {80, 0, 0x2C, 0x01, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(sign->Time().LastSpeedLimit()->first, 80);
    EXPECT_EQ(sign->Time().LastSpeedLimit()->second, 300);
}

} // namespace
} // namespace vxsim_tests
