// Calibrations and files of the tiles of the virtual sign, and what they show.
#include "tileWallFixture.h"

namespace vxsign::test {
namespace {

TEST_F(TileWall, ACalibrationOfTheBusesInterleavesTheModules)
{
    Rebuild(4, 4); // modules of 2x2
    Expect(0, {kWhiteTest});
    const Bytes file = BusFile({0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7}, {0xD0, 0x2F}); // 24 lamps let through
    EXPECT_EQ(WordOf(Install(file, 103488)), 3073U);
    EXPECT_EQ(Drawing(), ".BGC\n.BGC\nRMYW\nRMYW\n");
    EXPECT_EQ(Part(Flash(103488 + 264), 56), Bytes(208, 0xFF)) << "behind its end";

    // What is damaged changes nothing.
    const std::pair<std::size_t, int> damages[] = {{0, 0}, {2, 0x21}, {8, 0xF1}, {18, 0x21}, {19, 0xFF}};
    for (const auto& [at, value] : damages) {
        Bytes damaged = file;
        damaged[at] = static_cast<std::uint8_t>(value);
        EXPECT_EQ(WordOf(Install(damaged, 103488)), 3091U) << at;
    }
    EXPECT_EQ(WordOf(Install(Bytes(file.begin(), file.end() - 1), 103488)), 3091U);
    EXPECT_EQ(Drawing(), ".BGC\n.BGC\nRMYW\nRMYW\n");
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

    EXPECT_EQ(CodeOf(Direct(3, 1, {1, 10, 0, 0})), 0U);
    EXPECT_EQ(At(arrival.nowMs, 0, 0), kWhite) << "forgotten";
    EXPECT_EQ(PortEnd(OnPort(2, 1, 5, path + Bytes(192 - path.size(), 1))), 4U) << "a descriptor around the path";
    EXPECT_EQ(At(arrival.nowMs, 3, 3), (vxsim::Rgb{116, 116, 116}));
    for (const std::size_t at : {6U, 16U, 32U, 34U, 36U, 100U, 640U - 65U}) {
        Bytes damaged = CalibrationInBlocks();
        damaged[at] ^= 1;
        EXPECT_NE(WriteDirectly(damaged, 5), 0U) << at;
    }
    EXPECT_EQ(ReadDirectly(5), CalibrationInBlocks());
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
    EXPECT_EQ(Part(flash, 0, 4), Bytes(4, 0xFF));
    EXPECT_EQ(Part(flash, 4), Part(driver, 0, 260));
    flash = Flash(6864 + 264);
    EXPECT_EQ(Part(flash, 0, 37), Part(driver, 264) + Bytes{0xFF});
    EXPECT_EQ(PortEnd(OnPort(1, 1, 4)), 4U);
    EXPECT_EQ(OnSign("C/port1/0001.drv"), driver);
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

    EXPECT_EQ(PortEnd(Ask(28, 8, {10, 0, 0xFF, 0xFF, 30, 0, 2, 0, 0})), 4U);
    EXPECT_EQ(At(arrival.nowMs, 40), (vxsim::Rgb{10, 255, 30}));
    EXPECT_EQ(At(arrival.nowMs + 2000, 40), kDark);
}

} // namespace
} // namespace vxsign::test
