// The tiles of the virtual sign, as hosts reach them over buses and ports and directly.
#include "sim/protocol/checksum.h"
#include "sim/protocol/frameFinder.h"
#include "support/calibrations.h"
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

class TileWall : public StageTest
{
protected:
    // As Ask, with the bus in the source address.
    Bytes OnBus(unsigned bus, unsigned minor, const Bytes& payload, const Bytes& extended = {})
    {
        Bytes request = MakeRequest(12, minor, payload, extended, ++id);
        request[6] = static_cast<std::uint8_t>(bus);
        return sign->Answer(Checked(request, request[2] + 256U * request[3] + bus), arrival);
    }

    Bytes Direct(unsigned minor, unsigned tile, const Bytes& payload, const Bytes& extended = {})
    {
        Bytes request = MakeRequest(124, minor, payload, extended, ++id, static_cast<std::uint16_t>(tile));
        request[1] = 0xB1;
        return sign->Answer(Checked(request, vxsim::Crc16(std::span(request).subspan(4))), arrival);
    }

    static Bytes Checked(Bytes request, unsigned check)
    {
        request[2] = static_cast<std::uint8_t>(check);
        request[3] = static_cast<std::uint8_t>(check >> 8);
        return request;
    }

    // The extended part of the answer that asks for a task's result a minute after its start.
    Bytes ResultOf(const Bytes& started)
    {
        EXPECT_EQ(started.at(15), 0) << "not started";
        arrival.nowMs += 60000;
        return ExtendedOf(OnBus(0, 2, PayloadOf(started)));
    }
    // The word of a task, 3073 for any success.
    unsigned WordOf(const Bytes& started)
    {
        const Bytes result = ResultOf(started);
        return result.size() > 2 ? 3073U : result.at(0) + 256U * result.at(1);
    }
    // State and detail of a task of the ports: 4 for success, else 5 and the word.
    unsigned PortEnd(const Bytes& started)
    {
        EXPECT_EQ(started.at(15), 0) << "not started";
        arrival.nowMs += 60000;
        const Bytes state = ExtendedOf(Ask(28, 3, PayloadOf(started) + Bytes(4, 0)));
        return state.at(1) == 4 ? 4U : state.at(1) * 10000U + state.at(2) + 256U * state.at(3);
    }

    Bytes OnPort(unsigned minor, unsigned tile, unsigned third, const Bytes& extended = {}, unsigned port = 1)
    {
        return Ask(28, minor,
                   Little(tile, 2) +
                       Bytes{static_cast<std::uint8_t>(port), static_cast<std::uint8_t>(third), 0, 0, 0, 0},
                   extended);
    }

    // The task that installs a file of the first bus, staged on drive C.
    Bytes Install(const Bytes& file, std::uint32_t offset)
    {
        WriteFile(folder.path / "C/R_DATA/X.DAT", file);
        return OnBus(0, 15, Little(offset, 4) + Bytes{0, 0, 1, 0}, Path("C:\\R_DATA\\X.DAT"));
    }

    Bytes Flash(std::uint32_t offset, unsigned size = 264)
    {
        return ResultOf(OnBus(0, 1, Little(offset, 4) + Little(size, 2) + Bytes{1, 0}));
    }

    // The code of the first piece that was refused.
    unsigned WriteDirectly(Bytes file, unsigned type, unsigned tile = 1)
    {
        file.resize((file.size() + 263) / 264 * 264);
        for (std::size_t at = 0; at < file.size(); at += 264) {
            const Bytes piece(file.begin() + static_cast<std::ptrdiff_t>(at),
                              file.begin() + static_cast<std::ptrdiff_t>(at + 264));
            const unsigned code = CodeOf(Direct(2, tile,
                                                Bytes{1, static_cast<std::uint8_t>(type)} +
                                                    Little(static_cast<std::uint32_t>(at), 4) + Bytes(6, 0),
                                                piece));
            if (code != 0)
                return code;
        }
        return 0;
    }

    Bytes ReadPiece(unsigned type, std::uint32_t offset, unsigned tile = 1)
    {
        return Direct(1, tile, Bytes{1, static_cast<std::uint8_t>(type), 8, 1} + Little(offset, 4) + Bytes(4, 0));
    }
    Bytes ReadDirectly(unsigned type)
    {
        Bytes file;
        for (std::uint32_t at = 0; at < 10000; at += 264) {
            const Bytes answer = ReadPiece(type, at);
            if (CodeOf(answer) != 0)
                break;
            file = file + ExtendedOf(answer);
        }
        return file;
    }

    // Tells the sign what is wrong with it.
    void Tell(const std::string& lines) { SignTest::Tell(arrival.nowMs += 1000, lines); }
};

const Request kWhiteTest{3, 11, Bytes{255, 255, 255} + Bytes(13, 0)};

// A calibration for the buses: the record of each pixel lets the colours through whose bits are set.
Bytes BusFile(const std::vector<int>& colours, const Bytes& sum)
{
    Bytes file = Bytes{0xAA, 0x55, 0x20, 0, 2, 0, 10, 0} + sum + Bytes(8, 0) +
                 Little(static_cast<std::uint32_t>(colours.size() * 18), 4) + Bytes(10, 0);
    for (const int bits : colours)
        for (const int bit : {1, 2, 4})
            file = file + ((bits & bit) != 0 ? Bytes{0xFF, 0xFF} : Bytes{0, 0}) + Bytes(bit == 4 ? 0 : 6, 0);
    return file;
}

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
    EXPECT_EQ(CodeOf(Ask(124, 4, {1, 2, 0, 0})), 36868U) << "under the common sync";
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
        return Bytes(file.begin() + 84, file.begin() + 94);
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
    EXPECT_EQ(Bytes(status.begin(), status.begin() + 16),
              (Bytes{16, 16, 1, 2, 0x11, 0x10, 85, 1 | 2 | 8, 0x88, 0x13, 4, 0, 8, 8, 1, 0}));
    EXPECT_EQ(startMs, 1000U);
    EXPECT_EQ(status.at(16), 60) << "seconds since the sign looked first";
    const Bytes file = ExtendedOf(ReadPiece(7, 0));
    EXPECT_EQ(Bytes(file.begin(), file.begin() + 20),
              (Bytes{0xAA, 0x55, 0x20, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 96, 0, 0, 0}));
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
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {1, 0, 0, 0, 0, 0, 0, 0})), (Bytes{50, 2, 0, 0}));
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {2, 0, 0, 0, 0, 0, 0, 0})), (Bytes{0, 1, 0, 0}));
    arrival.nowMs = 199;
    EXPECT_EQ(progress(1), (Bytes{0, 100, 0, 0, 0, 100, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(progress(2).at(5), 99);
    arrival.nowMs = 200;
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {1, 0, 0, 0})), (Bytes{1, 12})) << "3073, no data";
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {2, 0, 0, 0})).size(), 32U);
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {1, 0, 0, 0, 0, 0, 0, 0})), (Bytes{100, 4, 0, 0}));
    EXPECT_EQ(ExtendedOf(OnBus(0, 2, {3, 0, 0, 0})), (Bytes{7, 12})) << "3079, no such task";
    EXPECT_EQ(ExtendedOf(Ask(28, 3, {3, 0, 0, 0, 0, 0, 0, 0})), (Bytes{0, 3, 7, 12}));

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
    for (const char* wrong : {"1", "1,", "1,silly", "0,bus", "x,bus", "1,bus,2"}) {
        vxsim::Condition condition;
        EXPECT_THROW(vxsim::Change(condition, "tile-error", wrong), std::invalid_argument) << wrong;
    }
    const std::string text = "door closed\nhot 2\nlock 3\ntile-error 1,bus\ntile-error 4,full\n";
    EXPECT_EQ(vxsim::ConditionText(vxsim::ParseCondition(text)), text);
    EXPECT_EQ(vxsim::ConditionText(vxsim::ParseCondition(text + "tile-good all\nunlock all\ncool all")),
              "door closed\n");
}

TEST_F(TileWall, ACalibrationOfTheBusesInterleavesTheModules)
{
    Rebuild(4, 4); // modules of 2x2
    Expect(0, {kWhiteTest});
    std::vector<int> bits(16);
    for (int i = 0; i < 16; ++i)
        bits[static_cast<std::size_t>(i)] = i % 8;
    const Bytes file = BusFile(bits, {0xD0, 0x2F}); // 24 lamps let through
    EXPECT_EQ(WordOf(Install(file, 103488)), 3073U);
    EXPECT_EQ(Drawing(), ".BGC\n.BGC\nRMYW\nRMYW\n");
    for (int i = 0; i < 16; ++i)
        bits[static_cast<std::size_t>(i)] = i / 8;
    const Bytes second = BusFile(bits, {0xF0, 0x0F});
    EXPECT_EQ(WordOf(Install(second, 103488)), 3073U);
    EXPECT_EQ(Drawing(), "RRRR\n....\nRRRR\n....\n");

    // It comes back as it went, and is what the ports have.
    Bytes read = Flash(103488) + Flash(103488 + 264);
    EXPECT_EQ(Bytes(read.begin() + 320, read.end()), Bytes(208, 0xFF));
    read.resize(320);
    EXPECT_EQ(read, second);
    const Bytes blocks = ReadDirectly(5);
    ASSERT_EQ(blocks.size(), 32U + 4 * (64 + 72));
    EXPECT_EQ(Bytes(blocks.begin() + 96, blocks.begin() + 98), (Bytes{0xFF, 0xFF})) << "(0, 0)";
    EXPECT_EQ(Bytes(blocks.begin() + 96 + 36, blocks.begin() + 96 + 38), (Bytes{0, 0})) << "(0, 1)";

    // What is damaged changes nothing.
    const std::pair<std::size_t, int> damages[] = {{0, 0}, {2, 0x21}, {8, 0xF1}, {18, 0x21}, {19, 0xFF}};
    for (const auto& [at, value] : damages) {
        Bytes damaged = file;
        damaged[at] = static_cast<std::uint8_t>(value);
        EXPECT_EQ(WordOf(Install(damaged, 103488)), 3091U) << at;
    }
    EXPECT_EQ(WordOf(Install(Bytes(file.begin(), file.end() - 1), 103488)), 3091U);
    EXPECT_EQ(Drawing(), "RRRR\n....\nRRRR\n....\n");
}

TEST_F(TileWall, ACalibrationOfThePortsComesInTwoForms)
{
    Rebuild(4, 4);
    Expect(0, {kWhiteTest});
    PutFile("C:\\port1\\0001.bri", FlatCalibration());
    const Bytes path = Path("C:\\port1\\0001.bri");
    EXPECT_EQ(PortEnd(OnPort(2, 1, 5, path)), 4U);
    EXPECT_EQ(ReadDirectly(5), CalibrationInBlocks());
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kDark);
    // 3 * 0x0F0F of 65535 is 0.176 of the light, whose 2.2th root is 0.455.
    EXPECT_EQ(At(arrival.nowMs, 3, 3), (vxsim::Rgb{116, 116, 116}));
    EXPECT_EQ(At(arrival.nowMs, 2, 1), (vxsim::Rgb{76, 76, 76})) << "0x0606";

    // The task reads it back to the drive; the blocks go in again, with a descriptor around the path.
    EXPECT_EQ(PortEnd(OnPort(1, 1, 5)), 4U);
    EXPECT_EQ(FileBytes(folder.path / "C/port1/0001.bri"), CalibrationInBlocks());
    EXPECT_EQ(PortEnd(OnPort(5, 1, 10)), 4U);
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kWhite) << "forgotten";
    EXPECT_EQ(PortEnd(OnPort(2, 65535, 5, path + Bytes(192 - path.size(), 1))), 4U) << "all of the port";
    EXPECT_EQ(At(arrival.nowMs, 3, 3), (vxsim::Rgb{116, 116, 116}));

    // And directly.
    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 10, 0, 0})), 0U);
    EXPECT_EQ(WriteDirectly(CalibrationInBlocks(), 5), 0U);
    EXPECT_EQ(At(arrival.nowMs, 3, 3), (vxsim::Rgb{116, 116, 116}));
    EXPECT_EQ(ReadDirectly(5), CalibrationInBlocks());
    for (const std::size_t at : {6U, 16U, 32U, 34U, 36U, 100U, 640U - 65U}) {
        Bytes damaged = CalibrationInBlocks();
        damaged[at] ^= 1;
        EXPECT_NE(WriteDirectly(damaged, 5), 0U) << at;
    }
    EXPECT_EQ(ReadDirectly(5), CalibrationInBlocks());
}

TEST_F(TileWall, ALockedTileTakesNoCalibration)
{
    Rebuild(4, 4);
    Tell("lock 1");
    PutFile("C:\\port1\\0001.bri", FlatCalibration());
    EXPECT_EQ(PortEnd(OnPort(2, 1, 5, Path("C:\\port1\\0001.bri"))), 53078U);
    EXPECT_EQ(WordOf(Install(BusFile(std::vector<int>(16, 0), {0, 0}), 103488)), 3078U);
    EXPECT_EQ(WriteDirectly(CalibrationInBlocks(), 5), 3078U);
    EXPECT_EQ(PortEnd(OnPort(5, 1, 10)), 53078U);
    Expect(0, {kWhiteTest});
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kWhite);
    Tell("lock 1\nunlock 1");
    EXPECT_EQ(WriteDirectly(CalibrationInBlocks(), 5), 0U);
}

TEST_F(TileWall, KeepsItsFilesOverARestart)
{
    Rebuild(4, 4);
    const Bytes file = BusFile(std::vector<int>(16, 2), {0xE0, 0x1F});
    EXPECT_EQ(WordOf(Install(file, 103488)), 3073U);
    EXPECT_EQ(WriteDirectly(Bytes{0xAA, 0x55, 0x20, 0} + Bytes(12, 0) + Bytes{9, 1, 0, 0} + Bytes(277, 7), 9), 0U);
    Rebuild(4, 4);
    Expect(0, {kWhiteTest});
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kGreen);
    Bytes read = Flash(103488) + Flash(103488 + 264);
    read.resize(320);
    EXPECT_EQ(read, file);
    const Bytes kept = ReadDirectly(9);
    EXPECT_EQ(kept.size(), 297U);
    EXPECT_EQ(kept.at(296), 7);
    std::ofstream(folder.path / "sign/tiles/x.05") << "?";
    std::ofstream(folder.path / "sign/tiles/2.05") << "?";
    std::ofstream(folder.path / "sign/tiles/1.99") << "?";
    Rebuild(6, 4);
    Expect(0, {kWhiteTest});
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kWhite) << "not of this face";
}

TEST_F(TileWall, FilesLieInTheFlashOfBothFamilies)
{
    const Bytes driver = Ramp(300);
    EXPECT_EQ(WordOf(Install(driver, 6864)), 3073U);
    Bytes flash = Flash(6864 - 4);
    EXPECT_EQ(Bytes(flash.begin(), flash.begin() + 4), Bytes(4, 0xFF));
    EXPECT_EQ(Bytes(flash.begin() + 4, flash.end()), Bytes(driver.begin(), driver.begin() + 260));
    flash = Flash(6864 + 264);
    EXPECT_EQ(Bytes(flash.begin(), flash.begin() + 37), Bytes(driver.begin() + 264, driver.end()) + Bytes{0xFF});
    EXPECT_EQ(PortEnd(OnPort(1, 1, 4)), 4U);
    EXPECT_EQ(FileBytes(folder.path / "C/port1/0001.drv"), driver);
    EXPECT_EQ(Flash(0x40000 - 264), Bytes(264, 0xFF));

    EXPECT_EQ(WordOf(Install(driver, 6865)), 3078U) << "nothing begins there";
    EXPECT_EQ(WordOf(Install(Bytes(6865, 1), 0)), 3078U) << "runs into the next file";
    EXPECT_EQ(WordOf(Install(Bytes(6864, 1), 0)), 3073U);
    for (const char* path : {"", "C:\\NONE", "C:\\..\\x", "C:\\R_DATA", "Q:\\X", "C:\\HUGE"}) {
        std::ofstream(folder.path / "C/HUGE") << std::string((1U << 20) + 1, 'x');
        EXPECT_EQ(WordOf(OnBus(0, 15, Bytes{0, 0, 0, 0, 0, 0, 1, 0}, Text(path))), 3078U) << path;
        EXPECT_EQ(PortEnd(OnPort(2, 1, 0, Text(path))), 53078U) << path;
    }
    EXPECT_EQ(PortEnd(OnPort(2, 1, 7, Text("C:\\R_DATA\\X.DAT"))), 53078U) << "the status is the tile's own";
    EXPECT_EQ(PortEnd(OnPort(1, 1, 9)), 53078U) << "no such file";
    EXPECT_EQ(CodeOf(ReadPiece(9, 0)), 36872U);
    EXPECT_EQ(CodeOf(ReadPiece(7, 128)), 36873U);
}

TEST_F(TileWall, TestsShowOnTheTileAlone)
{
    Rebuild(48, 16);
    const auto row = [&](std::uint64_t nowMs) { // a letter for each tile
        const std::string drawing = Drawing(arrival.nowMs = nowMs);
        EXPECT_EQ(drawing.substr(0, 48), drawing.substr(49 * 15, 48));
        return std::string{drawing[0], drawing[16], drawing[47]} + (drawing[15] == drawing[0] ? "" : "?") +
               (drawing[31] == drawing[16] ? "" : "?") + (drawing[32] == drawing[47] ? "" : "?");
    };
    arrival.nowMs = 1000;
    EXPECT_EQ(CodeOf(OnPort(4, 2, 3)), 0U);
    for (const auto& [ms, seen] : {std::pair{1099U, "..."}, {1100U, ".R."}, {6099U, ".R."}, {6100U, "..."}})
        EXPECT_EQ(row(ms), seen) << ms;

    arrival.nowMs = 10000;
    EXPECT_EQ(CodeOf(OnBus(0, 9, {255, 4, 0, 0})), 0U);
    EXPECT_EQ(row(10100), "GGG");
    const std::tuple<unsigned, std::uint8_t, const char*> tests[] = {
        {3, 9, "GG."}, {3, 18, "GG."}, {65535, 99, "WWW"}}; // ended; nothing to be seen; all white
    for (const auto& [tile, code, seen] : tests) {
        EXPECT_EQ(CodeOf(Direct(4, tile, {1, code, 0, 0})), 0U);
        EXPECT_EQ(row(10200), seen) << int{code};
    }
    Expect(0, {{4, 1}});
    EXPECT_EQ(row(10200), "...") << "the face is black";
    Expect(0, {{4, 2}});
    EXPECT_EQ(CodeOf(Direct(4, 1, {1, 0, 0, 0})), 0U);
    EXPECT_EQ(At(10200, 0, 0), kGreen) << "a frame around the number";
    EXPECT_EQ(CodeOf(Direct(3, 65535, {1, 2, 0, 0})), 0U) << "the end of an installation";
    EXPECT_EQ(row(10200), "...");

    EXPECT_EQ(PortEnd(Ask(28, 8, {10, 0, 0xFF, 0xFF, 30, 0, 2, 0, 0, 0, 0, 0})), 4U);
    EXPECT_EQ(At(arrival.nowMs, 40), (vxsim::Rgb{10, 255, 30}));
    EXPECT_EQ(At(arrival.nowMs + 2000, 40), kDark);
}

TEST_F(TileWall, ATileCanShineWithoutItsCoefficients)
{
    Rebuild(4, 4);
    Expect(0, {kWhiteTest});
    EXPECT_EQ(WriteDirectly(CalibrationInBlocks(), 5), 0U);
    EXPECT_EQ(CodeOf(ReadPiece(13, 0)), 36872U);
    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 15, 0, 0})), 0U);
    EXPECT_EQ(At(0, 0, 0), kWhite);
    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 16, 0, 0}, {1, 2, 3})), 0U);
    EXPECT_EQ(At(0, 0, 0), kDark);
    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 17, 0, 0}, Ramp(50))), 0U);
    const Bytes file = ReadDirectly(13);
    ASSERT_EQ(file.size(), 72U);
    EXPECT_EQ(Bytes(file.begin() + 36, file.end()), Bytes({16, 0, 0, 0}) + Ramp(32));
}

TEST_F(TileWall, RefusesWhatIsNoRequest)
{
    const Bytes four{1, 0, 1, 0};
    Expect(36870, {{12, 1}, {12, 2}, {12, 4}, {12, 7}, {12, 9}, {12, 11}, {12, 15}});
    Expect(36870, {{28, 1, four},
                   {28, 2, four},
                   {28, 3, four},
                   {28, 4, four},
                   {28, 5, four},
                   {28, 7, four},
                   {28, 8, four},
                   {28, 9, four}});
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
