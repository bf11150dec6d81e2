// Zones of the face and their pages.
#include "support/signFixture.h"

namespace vxsign::test {
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
    static Request Divide(std::uint8_t page, const Areas& areas, std::uint8_t zone = 0, std::uint8_t seconds = 0)
    {
        Bytes data{seconds, 0, 0, static_cast<std::uint8_t>(areas.size()), 0, 0, 0, 0};
        for (const auto& area : areas)
            data = data + Words(area) + Bytes(4, 0);
        return {54, 1, {page, zone}, data};
    }

    static Request Content(std::uint8_t page, std::uint8_t zone, std::uint8_t kind, const std::string& content)
    {
        return {54,
                4,
                {page, zone, 0, 0},
                Bytes{kind, 0, 0, 0, 0, 0} + Little(static_cast<std::uint32_t>(content.size()), 2) + Text(content)};
    }

    // The face as text: each lit lamp with its place.
    std::string Seen(std::uint64_t nowMs) override
    {
        std::string lit;
        const std::string drawing = Drawing(nowMs);
        for (std::size_t i = 0; i < drawing.size(); ++i)
            if (drawing[i] != '.' && drawing[i] != '\n')
                lit += drawing[i] + std::to_string(i % 17) + "," + std::to_string(i / 17) + " ";
        return lit;
    }
};

constexpr const char* kRedFile = "D:\\T\\RED.BMP";
constexpr const char* kBlueFile = "D:/t/blue.bmp";

TEST_F(Zones, ShowTextInTheirStyle)
{
    // Green, and then a colour of its own; eight columns are all that a block has.
    Bytes head(32, 0);
    head[5] = '2';
    Expect(0, {Divide(1, {{0, 0, 8, 16}, {8, 0, 8, 16}}), {54, 3, {1, 1}, head}});
    head[5] = '/';
    head[8] = 255;
    head[2] = 4; // seconds
    head[28] = 7;
    Expect(0, {{54, 3, {1, 2, 1}, head + Text("\u2588\f\u2584")}, Content(1, 1, 1, "\u2588")});
    const auto corners = [&](std::uint64_t nowMs) {
        const std::string drawing = Drawing(nowMs);
        return std::string{drawing[0], drawing[17 * 15 + 7], drawing[8], drawing[17 * 15 + 8]};
    };
    AskAt(1000, 54, 5, {1});
    EXPECT_EQ(corners(1000), "GGBB");
    EXPECT_EQ(corners(5000), "GG..") << "its second page";
    EXPECT_EQ(corners(9000), "GGBB") << "again from its start";
    Expect(0, {{54, 3, {1}, Bytes(32, 0)}});
    EXPECT_EQ(corners(9000), "RRRR") << "the sign's own style, in all zones";
}

TEST_F(Zones, ShowTheirContentPageByPage)
{
    PlayThree();
    Expect(0, {Divide(1, {{0, 0, 8, 16}, {8, 0, 8, 8}, {8, 8, 8, 8}}), Content(1, 1, 2, kRedFile),
               Content(1, 3, 2, kBlueFile)});
    Film({{0, {}, "R7,7 ", "the list, as long as zones are not enabled"}});
    Film({{100, {54, 5, {1}}, "R3,7 B11,11 "}, {16000, {}, "R3,7 B11,11 ", "one page stays"}});
    Film({{16000, Content(1, 0, 0, ""), ""}, {16100, {54, 5, {0}}, "B7,7 ", "the list has played on"}});

    PlayThree();
    const Areas whole{{0, 0, 16, 16}};
    Expect(0, {Divide(1, whole, 0, 2), Divide(3, whole), Divide(4, whole), Content(1, 1, 2, kRedFile)});
    Expect(0, {Content(3, 1, 2, kBlueFile), {54, 5, {1}}});
    Film({{1000, {54, 6, {3}}}, // page 2 is none, page 4 is beyond
          {2999, {}, "R7,7 "},
          {3000, {}, "B7,7 "},
          {7999, {}, "B7,7 "},
          {8000, {}, "R7,7 "}});
    // A file that goes leaves its zone dark until there is one again; one that is written over is seen in its next
    // turn.
    std::filesystem::remove(folder.path / "D/T/RED.BMP");
    EXPECT_EQ(Seen(15000), "");
    PutFile(kRedFile, Dot(kGreen));
    EXPECT_EQ(Seen(16000), "G7,7 ");
    Expect(0, {Divide(1, {}), Divide(3, {}), Divide(4, {})});
    EXPECT_EQ(Seen(18000), "G7,7 ") << "without a page the list is seen, whose first file is green now";
}

TEST_F(Zones, DivisionsAreToldAndKept)
{
    // In steps of 4 pixels, and of 8 where none is told.
    Expect(0, {Divide(2, {{0, 0, 16, 8}, {0, 8, 16, 8}}, 0, 9),
               Divide(2, {{0, 0, 4, 8}, {4, 0, 12, 8}}, 1), // a zone of it
               Content(2, 3, 1, "\u2588"),
               {54, 7, {9}, {0, 0, 4, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 3, 4}},
               {54, 7, {10}, {0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1}},
               {54, 5, {7}},
               {54, 6, {12}}});
    const Bytes page2 = Bytes{9, 0, 2, 3, 0, 0, 0, 0} + Words({0, 0, 4, 8}) + Bytes{1, 0, 0, 0} + Words({0, 8, 16, 8}) +
                        Bytes{2, 0, 0, 0} + Words({4, 0, 12, 8}) + Bytes{3, 1, 0, 0};
    for (int run = 0; run < 2; ++run) {
        ExpectPayload({2, 0, 0, 0}, {{54, 2, {2}}});
        EXPECT_EQ(ExtendedOf(Ask(54, 2, {2})), page2);
        EXPECT_EQ(ExtendedOf(Ask(54, 2, {9})),
                  Bytes({0, 0, 9, 1, 0, 0, 0, 0}) + Words({4, 0, 12, 16}) + Bytes({1, 0, 0, 0}));
        EXPECT_EQ(ExtendedOf(Ask(54, 2)),
                  Bytes({9, 0, 2, 3, 0, 0, 0, 0, 0, 0, 9, 1, 0, 0, 0, 0, 0, 0, 10, 1, 0, 0, 0, 0}));
        ExpectPayload({1, 12, 0, 0}, {{54, 8}});
        Rebuild(16, 16); // the sign is switched on again
    }
    EXPECT_NE(Seen(0), "") << "the content too";
    Rebuild(8, 16);
    Expect(14050, {{54, 2, {2}}}); // a page of a larger face
    // What is no page is none.
    for (const Bytes& broken : {Bytes{}, Bytes{0, 0, 1, 0}, Bytes{0, 0, 255, 255}, Bytes(40, 255)}) {
        Make("sign/zones-2.bin", broken);
        Rebuild(16, 16);
        Expect(14050, {{54, 2, {2}}});
    }
}

TEST_F(Zones, Refusals)
{
    const Areas one{{0, 0, 16, 16}};
    const auto tiny = [](std::size_t count) { return Areas(count, {0, 0, 1, 1}); };
    Expect(0, {Divide(1, tiny(19)), Content(1, 1, 1, std::string(2048, 'x')), {54, 6, {12}}});
    Bytes announced(32, 0);
    announced[28] = 1;
    Expect(14049, {Divide(0, one), Divide(13, one), Content(13, 1, 1, "x")});
    Expect(14050, {Divide(2, one, 1), Content(2, 1, 1, "x"), {54, 2, {12}}});
    Expect(14051, {{54, 6, {13}}, {54, 6, {20}}});
    Expect(14052, {Divide(1, one, 21), Content(1, 21, 1, "x")});
    Expect(14053, {Divide(1, one, 20), Content(1, 20, 1, "x")});
    Expect(14054, {Divide(1, tiny(21)), Divide(1, tiny(3), 1), Divide(1, {}, 1), {54, 6, {0}}, {54, 6, {21}}});
    Expect(36869, {{54, 9}});
    Expect(36872, {Content(1, 1, 2, "D:\\T\\NONE.BMP")});
    Expect(36880, {Content(1, 1, 2, "D:\\..\\x")});
    Expect(36881, {Content(1, 1, 3, "x")});
    Expect(36883, {Divide(1, {{0, 0, 2, 1}}, 1), Divide(1, {{0, 0, 0, 16}}), Divide(1, {{1, 0, 16, 16}})});
    Expect(36883, {Divide(1, {{65535, 65535, 65535, 65535}})});
    Expect(36883, {{54, 7, {1}, {0, 0, 255, 0, 0, 0, 1, 0, 0, 0, 0, 0, 255, 255, 255, 255}}});
    Expect(36870, {Content(1, 1, 1, std::string(2049, 'x')), {54, 1, {1}, Bytes(7, 0)}});
    Expect(36870, {{54, 1, {1}, {0, 0, 0, 1, 0, 0, 0, 0}}, {54, 1, {}, Bytes(8, 0)}});
    Expect(36870, {{54, 3, {1, 1}, Bytes(31, 0)}, {54, 3, {1, 1, 1}, announced}});
    Expect(36870, {{54, 3, {1, 1}, announced + Bytes{'x'}}, {54, 4, {1, 1}, Bytes(7, 0)}});
    Expect(36870, {{54, 4, {1, 1}, {1, 0, 0, 0, 0, 0, 255, 255}}, {54, 7, {1}, Bytes(11, 0)}});
    Expect(36870, {{54, 7, {1}, {0, 0, 0, 0, 0, 0, 255, 255, 0, 0, 0, 0}}, {54, 5}, {54, 6}});
}

} // namespace
} // namespace vxsign::test
