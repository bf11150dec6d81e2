// The tiles of the virtual sign: where they are, their tasks and errors.
#include "tileWallFixture.h"

#include "sim/protocol/frameFinder.h"

namespace vxsign::test {
namespace {

TEST_F(TileWall, PacketsForATileHaveTheirOwnSync)
{
    // Test 2 of tile 1 at port 1: CRC of 00 00 00 00 01 00 02 01 7C 04 01 00 01 02 00 00, and of the answer.
    const Bytes request{0x55, 0xB1, 0x4E, 0x0A, 0, 0, 0, 0, 1, 0, 2, 1, 0x7C, 4, 1, 0, 1, 2, 0, 0};
    const Bytes reply{0x55, 0xB2, 0xE1, 0xFB, 0, 0, 1, 0, 0, 0, 2, 1, 0x7C, 4, 0, 0};
    EXPECT_EQ(sign->Answer(request), reply);
    vxsim::FrameFinder finder;
    const Bytes stream = Bytes{0x55, 0xB1, 0x55} + MakeRequest(4, 1, {}) + request + Bytes{0x55, 0xB2};
    std::string found;
    for (const std::uint8_t byte : stream) {
        finder.Append({&byte, 1});
        while (const auto frame = finder.Next())
            found += (frame->tile ? "t" : "s") + std::to_string(frame->major) + " ";
    }
    EXPECT_EQ(found, "s4 t124 ");
    Bytes damaged = request;
    damaged[17] ^= 1;
    EXPECT_TRUE(sign->Answer(damaged).empty());
    EXPECT_EQ(CodeOf(Ask(124, 4, {1, 2})), 36868U) << "under the common sync";
    Bytes other = MakeRequest(4, 1, {});
    other[1] = 0xB1; // CRC of 00 00 00 00 00 00 01 00 04 01 00 00
    other[2] = 0x4C;
    other[3] = 0xC5;
    EXPECT_EQ(CodeOf(sign->Answer(other)), 36868U);
    EXPECT_FALSE(sign->Light().IsBlack());
}

TEST_F(TileWall, TilesHaveANumberOnBusesAndPorts)
{
    Rebuild(512, 250); // 32 across and 16 down
    const auto numberAt = [&](unsigned bus, unsigned address) {
        const Bytes status = ResultOf(OnBus(bus, 7, {static_cast<std::uint8_t>(address), 0, 0, 0}));
        return status.size() > 2 ? status.at(14) + 256 * status.at(15) : 0;
    };
    const std::tuple<unsigned, unsigned, int> onBus[] = {{0, 1, 1},   {0, 254, 254}, {1, 1, 255}, {1, 240, 494},
                                                         {1, 241, 0}, {0, 0, 0},     {2, 1, 0}};
    for (const auto& [bus, address, tile] : onBus)
        EXPECT_EQ(numberAt(bus, address), tile) << bus << "." << address;
    const std::tuple<unsigned, unsigned, int> onPort[] = {{1, 1, 1},  {2, 3, 35}, {16, 32, 512}, {1, 33, 0},
                                                          {17, 1, 0}, {0, 1, 0},  {1, 0, 0},     {255, 1, 0}};
    for (const auto& [port, address, tile] : onPort) {
        const Bytes answer = Direct(1, address, {static_cast<std::uint8_t>(port), 7, 8, 1, 0, 0, 0, 0, 0, 0, 0, 0});
        const Bytes file = ExtendedOf(answer);
        EXPECT_EQ(CodeOf(answer), tile != 0 ? 0U : 3089U) << port << "." << address;
        EXPECT_EQ(tile != 0 ? file.at(44) + 256 * file.at(45) : 0, tile) << port << "." << address;
    }
    // The last row has tiles of 16x10, of four modules; odd ones have one.
    EXPECT_EQ(ExtendedOf(Direct(1, 32, {16, 7, 8, 1, 0, 0, 0, 0, 0, 0, 0, 0})).size(), 128U);
    const auto sizes = [&](unsigned tile) {
        const Bytes file = ExtendedOf(Direct(1, tile, {16, 7, 8, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
        return Part(file, 84, 10);
    };
    EXPECT_EQ(sizes(1), (Bytes{16, 0, 10, 0, 8, 0, 5, 0, 2, 2}));
    Rebuild(19, 16);
    EXPECT_EQ(ResultOf(OnBus(0, 7, {2, 0, 0, 0})).at(12), 3);
}

TEST_F(TileWall, TellsOfItself)
{
    Tell("hot 1\nbad 3,4,all\nbad 15,15,red,signal\nlock 1");
    sign->KeepUp(arrival.nowMs);
    const Bytes started = OnBus(0, 7, {1, 0, 0, 0});
    const std::uint64_t startMs = arrival.nowMs;
    const Bytes status = ResultOf(started);
    EXPECT_EQ(Part(status, 0, 16), (Bytes{16, 16, 1, 2, 0x11, 0x10, 85, 1 | 2 | 8, 0x88, 0x13, 4, 0, 8, 8, 1, 0}));
    EXPECT_EQ(startMs, 1000U);
    EXPECT_EQ(status.at(16), 60) << "seconds since the sign looked first";
    const Bytes file = ExtendedOf(ReadPiece(7, 0));
    EXPECT_EQ(Part(file, 0, 20), (Bytes{0xAA, 0x55, 0x20, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 96, 0, 0, 0}));
    EXPECT_EQ(file.at(36), 85);
    EXPECT_EQ(file.at(48), 0x10) << "locked";
}

TEST_F(TileWall, TasksWaitForOneAnother)
{
    const Bytes first = OnBus(0, 11, {1, 7, 0, 0});
    const Bytes second = OnBus(0, 7, {1, 0, 0, 0});
    EXPECT_EQ(PayloadOf(first), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(PayloadOf(second), (Bytes{2, 0, 0, 0}));
    const auto progress = [&](unsigned task) { return PayloadOf(OnBus(0, 4, Little(task, 4) + Bytes(4, 0))); };
    arrival.nowMs = 50;
    EXPECT_EQ(progress(1), (Bytes{0, 100, 0, 0, 0, 50, 0, 0, 0, 0, 0, 3}));
    EXPECT_EQ(progress(2), (Bytes{0, 100, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {1, 0, 0, 0})), (Bytes{3, 12})) << "3075";
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {2, 0, 0, 0})), (Bytes{0, 12})) << "3072";
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {1, 0, 0, 0, 0})), (Bytes{50, 2, 0, 0}));
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {2, 0, 0, 0, 0})), (Bytes{0, 1, 0, 0}));
    arrival.nowMs = 199;
    EXPECT_EQ(progress(1), (Bytes{0, 100, 0, 0, 0, 100, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(progress(2).at(5), 99);
    arrival.nowMs = 200;
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {1, 0, 0, 0})), (Bytes{1, 12})) << "3073, no data";
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {2, 0, 0, 0})).size(), 32U);
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {1, 0, 0, 0, 0})), (Bytes{100, 4, 0, 0}));
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {3, 0, 0, 0})), (Bytes{7, 12})) << "3079, no such task";
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {3, 0, 0, 0, 0})), (Bytes{0, 3, 7, 12}));

    // The queue takes 16, and the ends of 64 are known; a restart forgets all.
    for (int round = 0; round < 5; ++round) {
        for (int task = 0; task < 16; ++task)
            EXPECT_EQ(CodeOf(OnBus(0, 11, {1, 7, 0, 0})), 0U);
        EXPECT_EQ(CodeOf(OnBus(0, 11, {1, 7, 0, 0})), 65535U);
        EXPECT_EQ(CodeOf(OnPort(4, 1, 2)), 65535U);
        arrival.nowMs += 1600;
    }
    EXPECT_EQ(progress(2).at(11), 7);
    EXPECT_EQ(progress(82).at(11), 1);
    OnBus(0, 9, {1, 3, 0, 0});
    EXPECT_EQ(CodeOf(Ask(4, 0)), 0U);
    EXPECT_EQ(progress(82).at(11), 7);
    arrival.nowMs += 5000;
    EXPECT_EQ(At(arrival.nowMs), kDark) << "the test did not begin";
}

TEST_F(TileWall, EachErrorOnRequest)
{
    Rebuild(32, 16);
    const std::pair<const char*, unsigned> errors[] = {
        {"queue", 3074},     {"bus", 3076},     {"retry", 3077},   {"normal", 3078}, {"task", 3079},
        {"broadcast", 3080}, {"control", 3081}, {"address", 3089}, {"twi", 3090},    {"pixel", 3091}};
    for (const auto& [name, word] : errors) {
        Tell("tile-error 1," + std::string(name));
        EXPECT_EQ(WordOf(OnBus(0, 7, {1, 0, 0, 0})), word) << name;
        EXPECT_EQ(PortEnd(OnPort(5, 1, 2)), name == std::string("task") ? 33079U : 50000U + word) << name;
        EXPECT_EQ(CodeOf(Direct(4, 1, {1, 2, 0, 0})), word) << name;
    }
    EXPECT_EQ(WordOf(OnBus(0, 7, {2, 0, 0, 0})), 3073U) << "the other tile";
    EXPECT_EQ(PortEnd(OnPort(4, 65535, 2)), 53091U) << "all of them: one fails";
    Tell("tile-error 1,full");
    EXPECT_EQ(CodeOf(OnBus(0, 7, {1, 0, 0, 0})), 65535U);
    EXPECT_EQ(CodeOf(OnPort(4, 1, 2)), 65535U);
    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 2, 0, 0})), 65535U);
    Tell("tile-error 1,bus\ntile-good 1");
    EXPECT_EQ(WordOf(OnBus(0, 11, {1, 2, 0, 0})), 3073U);
    EXPECT_EQ(WordOf(OnBus(0, 11, {3, 2, 0, 0})), 3089U) << "no such tile";
    EXPECT_EQ(WordOf(OnBus(0, 11, {255, 2, 0, 0})), 3080U) << "only tests go to all";
    EXPECT_EQ(PortEnd(OnPort(1, 65535, 7)), 53080U);
    EXPECT_EQ(CodeOf(ReadPiece(7, 0, 65535)), 3080U);
}

TEST_F(TileWall, RefusesWhatIsNoRequest)
{
    const Bytes four{1, 0, 1, 0};
    Expect(36870, {{12, 1}, {12, 2}, {12, 4}, {12, 7}, {12, 9}, {12, 11}, {12, 15}, {28, 1, four}, {28, 2, four}});
    Expect(36870, {{28, 3, four}, {28, 4, four}, {28, 5, four}, {28, 7, four}, {28, 8, four}, {28, 9, four}});
    Expect(36869, {{12, 3, Bytes(8, 0)}, {28, 6, Bytes(8, 0)}});
    Expect(0, {{28, 7, Bytes(8, 9)}, {28, 9, Bytes(8, 9)}, {50, 200, Bytes(4, 0)}});
    EXPECT_EQ(CodeOf(Direct(5, 1, Bytes(12, 1))), 36869U);
    EXPECT_EQ(CodeOf(Direct(1, 1, Bytes(8, 1))), 36870U);
    EXPECT_EQ(CodeOf(Direct(4, 1, {})), 36870U);

    for (const unsigned size : {0U, 2U, 1025U})
        EXPECT_EQ(ResultOf(OnBus(0, 1, Bytes(4, 0) + Little(size, 2) + Bytes{1, 0})), (Bytes{6, 12})) << size;
    for (const std::uint32_t offset : {0x40000U - 263U, 0xFFFFFFFFU})
        EXPECT_EQ(Flash(offset), (Bytes{6, 12})) << offset;

    const auto piece = [&](std::uint32_t offset, const Bytes& data) {
        return CodeOf(Direct(2, 1, Bytes{1, 0} + Little(offset, 4) + Bytes(6, 0), data));
    };
    const Bytes start = Bytes{0xAA, 0x55, 0x20, 0} + Bytes(12, 0) + Bytes{0, 3, 0, 0} + Bytes(244, 0); // of 800 bytes
    const Bytes head{0xAA, 0x55, 0x20, 0};
    const std::tuple<std::uint32_t, Bytes, unsigned, const char*> pieces[] = {
        {264, start, 36884, "nothing has begun"},
        {0, Bytes(264, 0), 36882, "no header"},
        {0, head + Bytes(12, 0) + Bytes(4, 0xFF) + Bytes(244, 0), 8450, "more than there is room for"},
        {0, Bytes{0xAA, 0x55, 0, 0} + Bytes(260, 0), 36884, "of no size"},
        {0, Bytes(263, 0), 36883, "a byte less"},
        {0, start, 0, "the first"},
        {528, start, 36884, "one is missing"},
        {264, start, 0, "the second"},
        {264, start, 0, "once more"},
        {528, start, 0, "the third"}};
    for (const auto& [offset, data, code, why] : pieces)
        EXPECT_EQ(piece(offset, data), code) << why;
    EXPECT_EQ(CodeOf(ReadPiece(0, 0)), 36872U);
    EXPECT_EQ(piece(792, start), 0U);
    EXPECT_EQ(piece(792, Bytes(264, 9)), 0U) << "once more, behind the end";
    EXPECT_EQ(piece(0xFFFFFFFFU, start), 36884U);
    EXPECT_EQ(ExtendedOf(ReadPiece(0, 792)).size(), 8U);
    EXPECT_EQ(WriteDirectly(head + Bytes(12, 0) + Bytes{96, 0, 0, 0} + Bytes(108, 0), 7), 3078U);
}

} // namespace
} // namespace vxsign::test
