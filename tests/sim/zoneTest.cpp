#include "stageFixture.h"

#include <tuple>

namespace vxsim_tests {
namespace {

// Words of 16 bits.
Bytes Words(const std::vector<std::uint16_t>& words)
{
    Bytes bytes;
    for (const std::uint16_t word : words)
        bytes = bytes + Little(word, 2);
    return bytes;
}

using Areas = std::vector<std::vector<std::uint16_t>>;

class Zones : public StageTest
{
protected:
    unsigned Divide(std::uint8_t page, const Areas& areas, std::uint8_t zone = 0, std::uint8_t seconds = 0)
    {
        Bytes data{seconds, 0, 0, static_cast<std::uint8_t>(areas.size()), 0, 0, 0, 0};
        for (const auto& area : areas)
            data = data + Words(area) + Bytes(4, 0);
        return CodeOf(Ask(54, 1, {page, zone, 0, 0}, data));
    }

    unsigned SetContent(std::uint8_t page, std::uint8_t zone, std::uint8_t kind, const std::string& content)
    {
        return CodeOf(
            Ask(54, 4, {page, zone, 0, 0},
                Bytes{kind, 0, 0, 0, 0, 0} + Little(static_cast<std::uint32_t>(content.size()), 2) + Text(content)));
    }

    unsigned Set(unsigned minor, std::uint8_t value, std::uint64_t nowMs = 0)
    {
        return CodeOf(AskAt(nowMs, 54, minor, {value, 0, 0, 0}));
    }

    // The face as text: 'R', 'G', 'B' for the three dots, '*' for other light.
    std::string Lit(std::uint64_t nowMs)
    {
        std::string lit;
        const vxsim::Canvas& face = stage->Draw(nowMs);
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x) {
                const vxsim::Rgb colour = face.At(x, y);
                if (colour != kDark)
                    lit += (colour == kRed     ? "R"
                            : colour == kGreen ? "G"
                            : colour == kBlue  ? "B"
                                               : "*") +
                           std::to_string(x) + "," + std::to_string(y) + " ";
            }
        }
        return lit;
    }
};

constexpr const char* kRedFile = "D:\\T\\RED.BMP";
constexpr const char* kBlueFile = "D:/t/blue.bmp";

TEST_F(Zones, ShowTheirContentWhereTheyLie)
{
    PlayThree();
    EXPECT_EQ(Divide(1, {{0, 0, 8, 16}, {8, 0, 8, 8}, {8, 8, 8, 8}}), 0U);
    EXPECT_EQ(SetContent(1, 1, 2, kRedFile), 0U);
    EXPECT_EQ(SetContent(1, 3, 2, kBlueFile), 0U);
    EXPECT_EQ(Lit(0), "R7,7 ") << "the list, as long as zones are not enabled";
    EXPECT_EQ(Set(5, 1, 100), 0U);
    EXPECT_EQ(Lit(100), "R3,7 B11,11 ");
    EXPECT_EQ(Lit(16000), "R3,7 B11,11 ") << "one page stays";
    EXPECT_EQ(SetContent(1, 0, 0, ""), 0U);
    EXPECT_EQ(Lit(16000), "");
    EXPECT_EQ(Set(5, 0), 0U);
    EXPECT_EQ(Lit(16100), "B7,7 ") << "the list has played on";
}

TEST_F(Zones, ShowTextInTheirStyle)
{
    // Green, and then a colour of its own; eight columns are all that a block has.
    ASSERT_EQ(Divide(1, {{0, 0, 8, 16}, {8, 0, 8, 16}}), 0U);
    Bytes head(32, 0);
    head[5] = '2';
    EXPECT_EQ(CodeOf(Ask(54, 3, {1, 1, 0, 0}, head)), 0U);
    head[5] = '/';
    head[8] = 255;
    head[2] = 4; // seconds
    head[28] = 7;
    EXPECT_EQ(CodeOf(Ask(54, 3, {1, 2, 1, 0}, head + Text("\u2588\f\u2584"))), 0U);
    EXPECT_EQ(SetContent(1, 1, 1, "\u2588"), 0U);
    Set(5, 1, 1000);
    EXPECT_EQ(At(1000, 0, 0), kGreen);
    EXPECT_EQ(At(1000, 7, 15), kGreen);
    EXPECT_EQ(At(1000, 8, 0), kBlue);
    EXPECT_EQ(At(5000, 8, 0), kDark) << "its second page";
    EXPECT_EQ(At(5000, 8, 7), kBlue);
    EXPECT_EQ(At(9000, 8, 0), kBlue) << "again from its start";
    EXPECT_EQ(CodeOf(Ask(54, 3, {1, 0, 0, 0}, Bytes(32, 0))), 0U);
    EXPECT_EQ(At(9000, 0, 0), kRed) << "the sign's own style, in all zones";
    EXPECT_EQ(At(9000, 8, 0), kRed);
}

TEST_F(Zones, PagesTakeTurns)
{
    PlayThree();
    const Areas whole{{0, 0, 16, 16}};
    ASSERT_EQ(Divide(1, whole, 0, 2), 0U);
    ASSERT_EQ(Divide(3, whole), 0U);
    ASSERT_EQ(Divide(4, whole), 0U);
    SetContent(1, 1, 2, kRedFile);
    SetContent(3, 1, 2, kBlueFile);
    Set(5, 1);
    EXPECT_EQ(Set(6, 3, 1000), 0U); // page 2 is none, page 4 is beyond
    EXPECT_EQ(Lit(2999), "R7,7 ");
    EXPECT_EQ(Lit(3000), "B7,7 ");
    EXPECT_EQ(Lit(7999), "B7,7 ");
    EXPECT_EQ(Lit(8000), "R7,7 ");
    // A file that goes leaves its zone dark until there is one again; one that is written over is seen in its next
    // turn.
    std::filesystem::remove(folder.path / "D/T/RED.BMP");
    EXPECT_EQ(Lit(15000), "");
    PutFile(kRedFile, Dot(0, 255, 0));
    EXPECT_EQ(Lit(16000), "G7,7 ");
    EXPECT_EQ(Divide(1, {}), 0U);
    EXPECT_EQ(Divide(3, {}), 0U);
    EXPECT_EQ(Divide(4, {}), 0U);
    EXPECT_EQ(Lit(18000), "G7,7 ") << "without a page the list is seen, whose first file is green now";
}

TEST_F(Zones, DivisionsAreToldAndKept)
{
    EXPECT_EQ(Divide(2, {{0, 0, 16, 8}, {0, 8, 16, 8}}, 0, 9), 0U);
    EXPECT_EQ(Divide(2, {{0, 0, 4, 8}, {4, 0, 12, 8}}, 1), 0U) << "a zone of it";
    SetContent(2, 3, 1, "\u2588");
    // In steps of 4 pixels, and of 8 where none is told.
    EXPECT_EQ(CodeOf(Ask(54, 7, {9, 0, 0, 0}, Bytes{0, 0, 4, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 3, 4})), 0U);
    EXPECT_EQ(CodeOf(Ask(54, 7, {10, 0, 0, 0}, Bytes{0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1})), 0U);
    EXPECT_EQ(Set(5, 7), 0U);
    EXPECT_EQ(Set(6, 12), 0U);
    const Bytes page2 = Bytes{9, 0, 2, 3, 0, 0, 0, 0} + Words({0, 0, 4, 8}) + Bytes{1, 0, 0, 0} + Words({0, 8, 16, 8}) +
                        Bytes{2, 0, 0, 0} + Words({4, 0, 12, 8}) + Bytes{3, 1, 0, 0};
    for (int run = 0; run < 2; ++run) {
        const Bytes reply = Ask(54, 2, {2, 0, 0, 0});
        EXPECT_EQ(PayloadOf(reply), (Bytes{2, 0, 0, 0}));
        EXPECT_EQ(ExtendedOf(reply), page2);
        EXPECT_EQ(ExtendedOf(Ask(54, 2, {9, 0, 0, 0})),
                  Bytes({0, 0, 9, 1, 0, 0, 0, 0}) + Words({4, 0, 12, 16}) + Bytes({1, 0, 0, 0}));
        EXPECT_EQ(ExtendedOf(Ask(54, 2)),
                  Bytes({9, 0, 2, 3, 0, 0, 0, 0, 0, 0, 9, 1, 0, 0, 0, 0, 0, 0, 10, 1, 0, 0, 0, 0}));
        EXPECT_EQ(PayloadOf(Ask(54, 8)), (Bytes{1, 12, 0, 0}));
        Rebuild(16, 16); // the sign is switched on again
    }
    EXPECT_NE(Lit(0), "") << "the content too";
    Rebuild(8, 16);
    EXPECT_EQ(CodeOf(Ask(54, 2, {2, 0, 0, 0})), 14050U) << "a page of a larger face";
    // What is no page is none.
    for (const Bytes& broken : {Bytes{}, Bytes{0, 0, 1, 0}, Bytes{0, 0, 255, 255}, Bytes(40, 255)}) {
        std::ofstream(folder.path / "sign/zones-2.bin", std::ios::binary)
            .write(reinterpret_cast<const char*>(broken.data()), static_cast<std::streamsize>(broken.size()));
        Rebuild(16, 16);
        EXPECT_EQ(CodeOf(Ask(54, 2, {2, 0, 0, 0})), 14050U);
    }
}

TEST_F(Zones, Refusals)
{
    const Areas one{{0, 0, 16, 16}};
    ASSERT_EQ(Divide(1, Areas(19, {0, 0, 1, 1})), 0U);
    for (const auto& [page, zone, areas, code] : std::vector<std::tuple<int, int, Areas, unsigned>>{
             {0, 0, one, 14049},
             {13, 0, one, 14049},
             {2, 1, one, 14050},
             {1, 21, one, 14052},
             {1, 20, one, 14053},
             {1, 0, Areas(21, {0, 0, 1, 1}), 14054},
             {1, 1, Areas(3, {0, 0, 1, 1}), 14054},
             {1, 1, {}, 14054},
             {1, 1, {{0, 0, 2, 1}}, 36883},
             {1, 0, {{0, 0, 0, 16}}, 36883},
             {1, 0, {{1, 0, 16, 16}}, 36883},
             {1, 0, {{65535, 65535, 65535, 65535}}, 36883},
         })
        EXPECT_EQ(Divide(static_cast<std::uint8_t>(page), areas, static_cast<std::uint8_t>(zone)), code)
            << page << ' ' << zone;
    for (const auto& [count, code] : std::vector<std::pair<int, unsigned>>{
             {0, 14054}, {12, 0}, {13, 14051}, {20, 14051}, {21, 14054}, {255, 14054}})
        EXPECT_EQ(Set(6, static_cast<std::uint8_t>(count)), code) << count;
    EXPECT_EQ(SetContent(13, 1, 1, "x"), 14049U);
    EXPECT_EQ(SetContent(2, 1, 1, "x"), 14050U);
    EXPECT_EQ(SetContent(1, 21, 1, "x"), 14052U);
    EXPECT_EQ(SetContent(1, 20, 1, "x"), 14053U);
    EXPECT_EQ(SetContent(1, 1, 3, "x"), 36881U);
    EXPECT_EQ(SetContent(1, 1, 2, "D:\\..\\x"), 36880U);
    EXPECT_EQ(SetContent(1, 1, 2, "D:\\T\\NONE.BMP"), 36872U);
    EXPECT_EQ(SetContent(1, 1, 1, std::string(2048, 'x')), 0U);
    EXPECT_EQ(SetContent(1, 1, 1, std::string(2049, 'x')), 36870U);
    EXPECT_EQ(CodeOf(Ask(54, 2, {12, 0, 0, 0})), 14050U);
    EXPECT_EQ(CodeOf(Ask(54, 9)), 36869U);
    Bytes announced(32, 0);
    announced[28] = 1;
    const std::tuple<unsigned, Bytes, Bytes> cut[] = {
        {1, {1, 0, 0, 0}, Bytes(7, 0)},
        {1, {1, 0, 0, 0}, {0, 0, 0, 1, 0, 0, 0, 0}},
        {1, {}, Bytes(8, 0)},
        {3, {1, 1, 0, 0}, Bytes(31, 0)},
        {3, {1, 1, 1, 0}, announced},
        {3, {1, 1, 0, 0}, announced + Bytes{'x'}},
        {4, {1, 1, 0, 0}, Bytes(7, 0)},
        {4, {1, 1, 0, 0}, {1, 0, 0, 0, 0, 0, 255, 255}},
        {7, {1, 0, 0, 0}, Bytes(11, 0)},
        {7, {1, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 255, 255, 0, 0, 0, 0}},
        {5, {}, {}},
        {6, {}, {}},
    };
    for (const auto& [minor, payload, data] : cut)
        EXPECT_EQ(CodeOf(Ask(54, minor, payload, data)), 36870U) << minor << ' ' << data.size();
    EXPECT_EQ(CodeOf(Ask(54, 7, {1, 0, 0, 0}, Bytes{0, 0, 255, 0, 0, 0, 1, 0, 0, 0, 0, 0, 255, 255, 255, 255})),
              36883U);
}

} // namespace
} // namespace vxsim_tests
