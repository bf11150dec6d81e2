// What the sign keeps and tells of itself: records, configuration, blocks for its boards.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using Records = SignTest;

TEST_F(Records, StyleBrightnessAndIdentitySurviveARestart)
{
    Bytes style = PayloadOf(Ask(1, 16));
    ASSERT_EQ(style.size(), 52U);
    EXPECT_EQ(style[2], 'C');
    Bytes told;
    sign->Observe({.displayStyleSet = [&](std::span<const std::uint8_t, 52> s) { told.assign(s.begin(), s.end()); }});
    style[2] = 'E';
    const Bytes identity = Bytes{3, 'A', 'B', 'C'} + Bytes(12, 0) + Bytes{2, 1, 2, 3, 4, 5} + Bytes(10, 0);
    Expect(0, {{2, 12, style}, {2, 11, {}, identity}, {2, 10, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}}});
    EXPECT_EQ(told, style);
    Restart("CDEF");
    ExpectPayload(style, {{1, 16}});
    ExpectPayload(identity, {{1, 12}});
    ExpectPayload({1, 2, 3, 4}, {{1, 22}});
    EXPECT_EQ(ExtendedOf(Ask(1, 22)), (Bytes{5, 6, 7, 8, 9, 10, 11, 12}));
    Expect(36870, {{2, 12, Bytes(48, 0)}, {2, 10, Bytes(8, 0)}, {2, 11, {}, Bytes(31, 0)}});
}

TEST_F(Records, ConfigurationTellsAddressPortAndDriveF)
{
    Bytes config = OnSign("C/CONFIG.SYS");
    ASSERT_GE(config.size(), 300U);
    EXPECT_EQ(config[16], 1);
    EXPECT_EQ(Part(config, 36, 4), (Bytes{1, 0, 0, 127}));
    EXPECT_EQ(Part(config, 152, 4), (Bytes{0, 0, 0, 8})) << "plays lists with groups";
    EXPECT_EQ(Part(config, 186, 2), (Bytes{0x30, 0x25}));
    // What a host has set stays, but the drives are as they are.
    config[36] = 77;
    Make("C/CONFIG.SYS", config);
    Restart("CD");
    config[16] = 0;
    EXPECT_EQ(OnSign("C/CONFIG.SYS"), config);
    EXPECT_THROW(Restart("DE"), std::invalid_argument);
    EXPECT_THROW(Restart("C1"), std::invalid_argument);
}

TEST_F(Records, WhatHostsLeaveWithTheSign)
{
    std::vector<bool> changes;
    sign->Observe({.blackScreenChanged = [&](bool on) { changes.push_back(on); }});
    Expect(0, {{4, 1}, {4, 1}, {4, 2}, {14, 200, {1, 2, 3, 4}}, {14, 200, {5}}});
    EXPECT_EQ(changes, (std::vector<bool>{true, false}));
    EXPECT_FALSE(sign->Light().IsBlack());
    EXPECT_EQ(sign->Records().TubeData().at(200), (Bytes{5, 0, 0, 0}));

    Expect(0, {{2, 9, {1, 0, 2}, Bytes(1024, 'u')},
               {2, 14, Text("A.NMG") + Bytes(27, 0) + Bytes{1, 2, 0, 0, 0x34, 0x12, 0, 0}},
               {2, 48, {}, {2, 0, 0, 0}, 3}});
    Expect(10497, {{2, 9, {1, 0, 2}, Bytes(1025, 'v')}});
    EXPECT_EQ(sign->Records().UrgentMessage().size(), 1024U);
    EXPECT_EQ(sign->Records().Checksums().at("A.NMG").size, 513U);
    EXPECT_EQ(sign->Records().Checksums().at("A.NMG").crc, 0x1234);
    EXPECT_EQ(PayloadOf(Ask(1, 48, {0}, {}, 3)), (Bytes{2, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(1, 48, {1}, {}, 3)), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(Ask(1, 48, {0}, {}, 4)), (Bytes{0, 0, 0, 0}));

    // Blocks for a board land at their address.
    Expect(0, {{2, 1, {0}, Bytes(1024, 'a'), 1}, {2, 1, {0, 4}, {'b', 'c'}, 1}});
    EXPECT_EQ(OnSign("sign/board-0001.bin"), Bytes(1024, 'a') + Text("bc"));
    Expect(0, {{2, 1, {0}, {'d'}, 1}}); // the next image
    EXPECT_EQ(OnSign("sign/board-0001.bin"), Text("d"));
    Expect(36883, {{2, 1, {0}, Bytes(1025, 'a'), 1}, {2, 1, {0}, {}, 1}});
    Expect(4354, {{2, 1, {0xFF, 0xFF, 0xFF, 0xFF}, {1}, 1}});
}

TEST_F(Records, WhatTheSignTellsOfItself)
{
    ExpectPayload({128, 0, 32, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {{1, 10}});
    EXPECT_EQ(Ask(1, 11).size(), 16U + 8 + 96);
    ExpectPayload(Bytes{11} + Text("VXSIM000001") + Bytes(4, 0) + Bytes{2, 0, 0, 0, 0, 1} + Bytes(10, 0), {{1, 12}});
    ExpectPayload({0x20, 0x90, 0, 0, 4, 0, 0, 0}, {{1, 27, {0}}});
    Expect(7939, {{1, 15}});
    EXPECT_EQ(ExtendedOf(Ask(1, 18)), Text("vxsim\r\nface 128x32\r\ncolours 16777216\r\n"
                                           "light 8 by the hour\r\nshows list\r\ndrives CDEF\r\n"));
    EXPECT_EQ(ExtendedOf(Ask(1, 26, {9})), Bytes{0});
    EXPECT_EQ(ExtendedOf(Ask(1, 26, {0})), Bytes{10} + Bytes(3, 0) + Bytes{1} + Bytes(11, 0));
    EXPECT_EQ(ExtendedOf(Ask(1, 19)), Text("major 1 minor 15 code 7939\r\n"));

    // What the face shows is told, each over the next.
    const auto told = [this](std::uint64_t nowMs) {
        arrival.nowMs = nowMs;
        const Bytes lines = ExtendedOf(Ask(1, 18));
        const std::string text(lines.begin(), lines.end());
        const std::size_t begin = text.find("light");
        return text.substr(begin, text.find("drives") - begin);
    };
    Ask(4, 0);
    Ask(4, 3);
    Ask(4, 7, {3});
    Ask(3, 5);
    EXPECT_EQ(told(1999), "light 3 fixed\r\nshows off restart test list\r\n");
    Ask(4, 1);
    Ask(4, 4);
    EXPECT_EQ(told(2000), "light 3 fixed\r\nshows blank test list\r\n");
}

TEST_F(Records, UnknownCommandsGetTheirCodes)
{
    Expect(36868, {{0, 1}, {11, 1}, {15, 1}, {18, 1}, {255, 1}});
    Expect(36869, {{1, 0}, {16, 2}, {1, 255}, {2, 0}, {2, 20}, {3, 0}, {3, 50}, {4, 12}, {4, 255}, {5, 2}, {6, 13}});
    Expect(36869, {{12, 3}, {17, 3}, {8, 0}, {9, 3}, {10, 0}});
    for (int i = 0; i < 100; ++i)
        Ask(255, 255);
    EXPECT_LE(Ask(1, 19).size(), 1536U);
}

// A row that another one stands in the way of is a command that nobody can give.
TEST_F(Records, EveryRowIsReachedWithItsLeastBytes)
{
    settings.controller = true;
    Restart("CDEF");
    std::string name;
    sign->Observe({.answered = [&](const vxsim::Exchange& exchange) { name = exchange.name; }});
    const auto rows = sign->Commands();
    EXPECT_GT(rows.size(), 200U);
    for (const vxsim::CommandRow& row : rows) {
        const Bytes payload(row.leastPayload);
        const Bytes data(row.leastData);
        for (const std::uint8_t minor : {row.minors.first, row.minors.last}) {
            vxsim::Frame request;
            request.tile = row.major.direct;
            request.major = row.major.number;
            request.minor = minor;
            request.payload = payload;
            request.extended = data;
            sign->Answer(request);
            EXPECT_EQ(name, row.name) << int{request.major} << ' ' << int{minor};
        }
    }
}

} // namespace
} // namespace vxsign::test
