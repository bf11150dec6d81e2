// Tiles from end to end.
#include "roundTrip/roundTrip.h"
#include "support/calibrations.h"

#include <numeric>

namespace vxsign::test {
namespace {

constexpr std::uint32_t kPixels = 16 * 16;
constexpr std::uint32_t kPixelBytes = kPixels * 18;

// A sign of 64x32: eight tiles of 16x16, four on each of the ports 1 and 2.
class TileWall : public RoundTrip
{
protected:
    TileWall()
    {
        Rebuild(64, 32);
        std::filesystem::create_directories("c:/port1");
    }

    const vxsim::TileWall& Wall() { return sign->Tiles(Now()); }
    const vxsim::Calibration* CalibrationOf(int tile) { return Wall().CalibrationOf(tile); }

    // As the order of the pixels says: pixel by pixel another matrix.
    static std::vector<std::uint16_t> Pixels()
    {
        std::vector<std::uint16_t> pixels(kPixels * 9);
        std::iota(pixels.begin(), pixels.end(), std::uint16_t{1});
        return pixels;
    }
    static bool Matches(const vxsim::Calibration* calibration)
    {
        std::vector<std::uint16_t> pixels;
        for (const auto& pixel : calibration != nullptr ? *calibration : vxsim::Calibration())
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
        return pixels == Pixels();
    }

    // The host's form of the calibration, which the ports take too.
    static std::string FlatFile()
    {
        Bytes file = Hex("AA55 2000 0000 0500 0000 AD50 8F52 0000 00120000") + Bytes(12);
        for (const std::uint16_t word : Pixels())
            file = file + Little(word, 2);
        return ToText(file);
    }

    const WorkingIn here{local};
};

TEST_F(TileWall, FirstFamily)
{
    std::uint32_t task = 0;
    std::uint8_t buffer[64] = {};
    std::uint16_t status = 0;
    ASSERT_EQ(vxTarsisGetTileStat(6, &task), 0u);
    ASSERT_EQ(vxTarsisGetResult(task, buffer, sizeof buffer, &status), 0u);
    EXPECT_EQ(status, 3073);
    EXPECT_EQ(Bytes(buffer, buffer + 6), Hex("10 10 01 02 11 10"));
    EXPECT_EQ(line.progress, std::vector<std::uint32_t>{10}) << "the task takes a tenth of a second";
    EXPECT_EQ(vxTarsisTileTest(65535, 2, &task), 0u);
    EXPECT_EQ(vxTarsisGetResult(task, buffer, sizeof buffer, &status), 0u);
    EXPECT_EQ(status, 3073);
    EXPECT_EQ(Wall().Tests().size(), 8u);
    EXPECT_EQ(vxTarsisSetTileCmd(6, 7), 0u);
    EXPECT_EQ(vxTarsisSetTileCmd(9, 7), 3089u) << "no such tile";
    EXPECT_EQ(vxTarsisFMCalOpt(3), 0u);
    EXPECT_EQ(vxFlashPGMConnectCMD(), 0u);

    // What the library saves for a tile of this model is what the tile takes.
    auto pixels = Pixels();
    const std::string saved = local.Path("cal.dat");
    ASSERT_EQ(vxTarsisTilePxlSave(pixels.data(), kPixelBytes, saved.c_str(), 0, buffer[5], 16, 16, 8, 8), 0u);
    EXPECT_EQ(vxTarsisWriteTileFile(saved.c_str(), 6, 4), 0u);
    EXPECT_TRUE(Matches(CalibrationOf(6)));
    EXPECT_EQ(CalibrationOf(5), nullptr);
    EXPECT_TRUE(Wall().Tests().size() == 7) << "the installation ended its test";
    const std::string back = local.Path("back.dat");
    EXPECT_EQ(vxTarsisReadTileFile(back.c_str(), 6, 4), 0u);
    EXPECT_EQ(local.Read("back.dat"), local.Read("cal.dat"));

    // A tile that was not calibrated has a file that can be loaded.
    EXPECT_EQ(vxTarsisReadTileFile(back.c_str(), 1, 4), 0u);
    ASSERT_EQ(vxTarsisTilePxlLoad(pixels.data(), kPixelBytes, back.c_str(), 0, 0x10, 16, 16, 8, 8), 0u);
    EXPECT_EQ(std::vector(pixels.end() - 9, pixels.end()),
              (std::vector<std::uint16_t>{65535, 0, 0, 0, 65535, 0, 0, 0, 65535}));

    Tell("lock 6");
    ASSERT_EQ(vxTarsisTilePxlSave(pixels.data(), kPixelBytes, back.c_str(), 0, buffer[5], 16, 16, 8, 8), 0u);
    EXPECT_EQ(vxTarsisWriteTileFile(back.c_str(), 6, 4), 0u) << "the last command, which is one to the tile";
    EXPECT_TRUE(Matches(CalibrationOf(6))) << "but the tile has what it had";
    Tell("tile-error 6,twi");
    EXPECT_EQ(vxTarsisReadTileFile(back.c_str(), 6, 4), 3090u);
    EXPECT_EQ(vxTarsisSetTileCmd(6, 7), 3090u);
    Tell("tile-error 6,full");
    EXPECT_EQ(vxTarsisSetTileCmd(6, 7), 65535u);
}

TEST_F(TileWall, SecondFamily)
{
    std::uint32_t detail = 1;
    const std::string flat = local.Write("flat.bri", FlatFile());
    const std::string back = local.Path("back.bri");
    EXPECT_EQ(vxOndraTileTest(2, 2, 3), 0u);
    EXPECT_EQ(Wall().Tests().count(7), 1u);
    EXPECT_EQ(vxOndraWriteTileFile(flat.c_str(), 5, 2, 3, &detail), 0u);
    EXPECT_EQ(detail, 0u);
    EXPECT_TRUE(Matches(CalibrationOf(7)));
    EXPECT_EQ(vxTarsisReadTileFile(back.c_str(), 7, 4), 0u);
    EXPECT_EQ(vxTarsisWriteTileFile(back.c_str(), 8, 4), 0u);
    EXPECT_TRUE(Matches(CalibrationOf(8))) << "in the form of the buses, too";
    EXPECT_EQ(vxOndraReadTileFile(back.c_str(), 5, 2, 3, 0, &detail), 0u);
    EXPECT_EQ(local.Read("back.bri").size(), 32u + 4 * 64 + kPixelBytes);
    EXPECT_EQ(vxOndraWritePxlCal(back.c_str(), 1, 65535, 0, &detail, nullptr), 0u);
    EXPECT_TRUE(Matches(CalibrationOf(1)) && Matches(CalibrationOf(4)));
    EXPECT_EQ(CalibrationOf(5), nullptr) << "at the other port";

    // The burn returns when it is under way, and is followed by its task.
    std::uint32_t task = 0;
    std::uint8_t state[4] = {};
    EXPECT_EQ(vxOndraWritePxlCalBurn(back.c_str(), 2, 1, 0, 0, nullptr, &task), 0u);
    EXPECT_EQ(vxOndraGetResult(task, state, sizeof state), 0u);
    EXPECT_EQ(state[1], 2);
    FakeClock::Advance(3000);
    EXPECT_EQ(vxOndraGetResult(task, state, sizeof state), 0u);
    EXPECT_EQ(Bytes(state, state + 4), Hex("64 04 0000"));
    EXPECT_TRUE(Matches(CalibrationOf(5)));

    EXPECT_EQ(vxOndraTileCMD(10, 2, 1, nullptr, 0), 0u);
    EXPECT_EQ(CalibrationOf(5), nullptr);
    EXPECT_EQ(vxOndraLDUCMD(1, 2), 0u);
    EXPECT_EQ(vxOndraSyncBriMode(1), 0u);
    EXPECT_EQ(vxOndraPicCalShow(255, 0, 0, 3), 0u);
    EXPECT_EQ(vxOndraTileTest(2, 3, 1), 3078u) << "no such port";
    EXPECT_EQ(vxOndraReadTileFile(back.c_str(), 0, 1, 1, 0, &detail), 3078u) << "no program";
    EXPECT_EQ(detail, 3078u);
    Tell("lock 7");
    EXPECT_EQ(vxOndraWritePxlCal(back.c_str(), 2, 3, 0, &detail, nullptr), 3078u);
}

TEST_F(TileWall, DirectFilesGoInPieces)
{
    for (const std::uint32_t size : {40u, 264u, 265u, 1056u, 1057u}) {
        SCOPED_TRACE(size);
        line.requests.clear();
        line.progress.clear();
        EXPECT_EQ(vxDirectTileWriteFileEx(local.Write("up", ToText(TileFile(size))).c_str(), 9, 1, 2, 0x77), 0u);
        EXPECT_EQ(vxDirectTileReadFileEx(local.Path("down").c_str(), 9, 1, 2, 0x77), 0u);
        EXPECT_EQ(local.Read("down"), ToText(TileFile(size)));
        const std::uint32_t pieces = (size + 263) / 264;
        ASSERT_EQ(line.requests.size(), 2 * pieces);
        EXPECT_EQ(line.requests[0].Payload(), Hex("01 09 00000000 77 0000000000"));
        EXPECT_EQ(line.requests[pieces].Payload(), Hex("01 09 0801 00000000 77 00000000000000"));
        std::vector<std::uint32_t> progress = {0};
        for (const std::uint32_t end : {pieces + 1, pieces}) // reading tells nothing of its last piece
            for (std::uint32_t k = 0; k < end; ++k)
                progress.push_back(100 * k / pieces);
        EXPECT_EQ(line.progress, progress);
    }
    EXPECT_EQ(line.requests[4].Payload(), Hex("01 09 20040000 77 0000000000"));
    EXPECT_EQ(line.requests.back().Payload(), Hex("01 09 0801 20040000 77 000000"));
}

TEST_F(TileWall, DirectAccess)
{
    const std::string flat = local.Write("flat.bri", FlatFile());
    const std::string back = local.Path("back.bri");
    EXPECT_EQ(vxDirectTileTest(2, 1, 2), 0u);
    EXPECT_EQ(Wall().Tests().count(2), 1u);
    EXPECT_EQ(vxDirectTileWriteFileEx(flat.c_str(), 5, 1, 2, 0), 0u);
    EXPECT_TRUE(Matches(CalibrationOf(2)));
    EXPECT_EQ(vxDirectTileReadFileEx(back.c_str(), 5, 1, 2, 0), 0u);
    EXPECT_EQ(local.Read("back.bri"), FlatFile());
    EXPECT_EQ(local.Read("back.brit"), local.Read("flat.brit"));

    const std::uint8_t params[80] = {1, 2, 3};
    EXPECT_EQ(vxDirectTilePHYWriteCoefficent1(1, 2), 0u);
    EXPECT_EQ(CalibrationOf(2), nullptr) << "shines without it";
    EXPECT_EQ(vxDirectTilePHYWriteCoefficent2(flat.c_str(), 1, 2, 0, params, sizeof params), 0u);
    EXPECT_TRUE(Matches(CalibrationOf(2)));
    EXPECT_EQ(Part(FromText(local.Read("c:/port1/0002.mcc")), 36),
              Hex("00010000") + Part({params, params + 80}, 0, 32));

    Tell("lock 2");
    EXPECT_EQ(vxDirectTileWriteFileEx(flat.c_str(), 5, 1, 2, 0), 1u);
    EXPECT_EQ(vxDirectTileCMD(10, 1, 2, nullptr, 0), 3078u);
    EXPECT_EQ(vxDirectTileTest(2, 1, 9), 3089u);
}

} // namespace
} // namespace vxsign::test
