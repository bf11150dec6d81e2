// Packets to a tile itself, and the files that travel in them.
#include "support/calibrations.h"
#include "support/scriptedSign.h"

#include <map>

namespace vxsign::test {
namespace {

// The status of a tile: flags, width to module height, modules across and down.
Bytes Status(const char* flags, const char* sizes)
{
    return Hex("AA55 2000 0000 0700 0000 0000 0000 0000 60000000") + Bytes(12 + 16, 0) + Hex(flags) + Bytes(35, 0) +
           Hex(sizes) + Bytes(34, 0);
}
constexpr char kFourByFour[] = "0400 0400 0200 0200 02 02"; // four modules

// A tile behind the scripted sign: gives and takes files, in a folder that has the PC's place for them.
class DirectTile : public ScriptedTest
{
protected:
    DirectTile()
    {
        std::filesystem::create_directories("c:/port1");
        sign.otherwise = [this](const Packet& request) { return Serve(request); };
    }

    Answer Serve(const Packet& request)
    {
        const Bytes payload = request.Payload();
        if (request.Minor() == 2)
            written = written + request.Extended();
        if (request.Major() != 0x7C || request.Minor() != 1)
            return Good();
        const Bytes piece = Part(files[payload[1]], payload[4] + 256u * payload[5] + 65536u * payload[6], 264);
        return piece.empty() ? Refusal(36872) : answersInPayload ? Good(piece) : Good({}, piece);
    }

    // What was printed since the last time.
    static std::string Printed()
    {
        std::string text = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return text;
    }

    // Minors and file types of what went to the tile.
    std::string Sent() const
    {
        std::string sent;
        for (const Packet& request : sign.requests)
            sent += std::to_string(request.Minor()) + "." + std::to_string(request.Payload().at(1)) + " ";
        return sent;
    }

    const WorkingIn here{folder};
    std::map<std::uint8_t, Bytes> files;
    Bytes written;
    bool answersInPayload = false;
};

TEST_F(DirectTile, Packets)
{
    const std::uint8_t data[] = {1, 2, 3};
    sign.Config().sourceAddress = 0x1111;
    sign.Config().destinationAddress = 0x2222;
    ASSERT_EQ(vxStabilityTest("", 0, 0x1233), 0u);
    EXPECT_EQ(vxDirectTileTest(0xAB, 3, 65535), 0u);
    EXPECT_EQ(sign.requests.back().bytes, Hex("55B1 6D40 0000 0000 FFFF 3512 7C04 0100 03AB0000"));
    EXPECT_EQ(vxDirectTileCMD(0xCD, 3, 0x0102, data, 3), 0u);
    EXPECT_EQ(sign.requests.back().bytes, Hex("55B1 8B2F 0300 0000 0201 3612 7C03 0100 03CD0000 010203"));
    EXPECT_EQ(vxDirectTilePHYWriteCoefficent1(4, 5), 0u);
    EXPECT_EQ(sign.requests.back().bytes, Hex("55B1 D683 0000 0000 0500 3712 7C03 0100 040F0000"));
    EXPECT_EQ(vxDirectTileCMD(0, 0, 0, nullptr, 0), 0u);
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(sign.requests.back().Id(), 0x1239) << "one count of ids";
    sign.Then(Refusal(36912));
    EXPECT_EQ(vxDirectTileTest(1, 1, 1), 36912u);
}

TEST_F(DirectTile, PiecesMayComeInThePayloadOrFail)
{
    files[7] = TileFile(265) + Bytes(9, 0xBB); // what is behind the end stays there
    answersInPayload = true;
    EXPECT_EQ(vxDirectTileReadFileEx("local", 7, 1, 0x0203, 0x77), 0u);
    EXPECT_EQ(folder.Read("local"), ToText(TileFile(265)));
    EXPECT_EQ(Printed(), "First ProcCMD iResult = 0\n");
    answersInPayload = false;

    Bytes piece = TileFile(600);
    piece.resize(264);
    const std::tuple<const char*, std::vector<Answer>, std::uint32_t, Bytes> rows[] = {
        {"refused", {Refusal(36872)}, 36872, {}},
        {"another magic", {Good({}, Hex("55AA") + Bytes(262, 0))}, 5, {}},
        {"nothing in it", {Good()}, 5, {}},
        {"more than 4 GB", {Good({}, Hex("AA55 2000") + Bytes(12, 0) + Hex("FFFFFFFF"))}, 5, {}},
        {"an empty file", {Good({}, Hex("AA55 0000") + Bytes(260, 0))}, 0, {}},
        {"a later piece is refused", {Good({}, piece), Refusal(36882)}, 36882, piece},
        {"a piece that is too long", {Good({}, piece + Bytes(800, 0xCC)), Refusal(36882)}, 36882, piece},
        {"a short piece leaves zeros",
         {Good({}, piece), Good({}, {8}), Good({}, {9})},
         0,
         piece + Bytes{8} + Bytes(263, 0) + Bytes{9}},
        {"the file ends with what arrives", {Good({}, piece), Good(), Good()}, 0, piece},
    };
    for (const auto& [name, answers, result, file] : rows) {
        SCOPED_TRACE(name);
        for (const Answer& answer : answers)
            sign.Then(answer);
        EXPECT_EQ(vxDirectTileReadFileEx("local", 7, 1, 2, 0), result);
        EXPECT_EQ(folder.Read("local"), ToText(file));
    }
    sign.requests.clear();
    EXPECT_EQ(vxDirectTileReadFileEx("no/such", 7, 1, 2, 0), 1u);
    EXPECT_EQ(sign.progress.back(), 0u);
    EXPECT_TRUE(sign.requests.empty());
    sign.otherwise = nullptr;
    EXPECT_EQ(vxDirectTileReadFileEx("local", 7, 1, 2, 0), 20736u) << "silence";
}

TEST_F(DirectTile, WritingFailures)
{
    folder.Write("local", ToText(TileFile(265)));
    sign.Then(Good()).Then(Refusal(36882));
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 13, 1, 2, 0), 36882u);
    EXPECT_EQ(Printed(), "ProcCMD curPackNum = 0, Errorcode = 0ProcCMD curPackNum = 1, Errorcode = 36882");
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{0, 0, 100}));

    sign.requests.clear();
    folder.Write("local", "");
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 13, 1, 2, 0), 0u) << "an empty file";
    EXPECT_EQ(vxDirectTileWriteFileEx("none", 13, 1, 2, 0), 1u);
    EXPECT_EQ(vxDirectTileWriteFileEx("c:", 13, 1, 2, 0), 1u) << "a folder";
    EXPECT_TRUE(sign.requests.empty());
}

TEST_F(DirectTile, ProgramsForAllTilesGoOutTwice)
{
    folder.Write("local", ToText(TileFile(300)));
    using Row = std::pair<std::uint8_t, std::uint16_t>;
    for (const auto& [type, tile] : {Row{0, 65535}, {1, 65535}, {2, 65535}, {0, 65534}}) {
        sign.requests.clear();
        EXPECT_EQ(vxDirectTileWriteFileEx("local", type, 1, tile, 0), 0u);
        const bool twice = type < 2 && tile == 65535;
        ASSERT_EQ(sign.requests.size(), twice ? 4u : 2u);
        EXPECT_EQ(sign.requests[0].bytes == sign.requests[1].bytes, twice);
    }
    // The first answer is dropped, even one that runs over the request.
    sign.requests.clear();
    sign.Then(Good({}, Bytes(4000, 0xCC))).Then(Good()).Then(Refusal(1)).Then(Refusal(36882));
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 0, 1, 65535, 0), 36882u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].bytes, sign.requests[1].bytes);
}

TEST_F(DirectTile, CalibrationGoesOutInBlocks)
{
    files[7] = Status("00", kFourByFour);
    folder.Write("local", ToText(FlatCalibration()));
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 5, 1, 0x00AB, 0), 0u);
    EXPECT_EQ(folder.Read("localt"), ToText(CalibrationInBlocks()));
    written.resize(CalibrationInBlocks().size());
    EXPECT_EQ(written, CalibrationInBlocks());
    EXPECT_EQ(Sent(), "1.7 1.7 2.5 2.5 2.5 ");
    EXPECT_TRUE(folder.Has("c:/port1/00ab.sta"));

    sign.requests.clear();
    files[7] = Status("10", kFourByFour);
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 5, 1, 0x00AB, 0), 1u) << "locked";
    EXPECT_EQ(Sent(), "1.7 1.7 ");
    EXPECT_TRUE(folder.Has("localt"));
    files[7] = Status("EF", kFourByFour);
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 5, 1, 0x00AB, 0), 0u);
}

TEST_F(DirectTile, CalibrationThatCannotBeConverted)
{
    const Bytes flat = FlatCalibration();
    const Bytes good = Status("00", kFourByFour);
    const auto expectFailure = [&](const char* name, const Bytes& status, const Bytes& local) {
        SCOPED_TRACE(name);
        sign.requests.clear();
        files[7] = status;
        folder.Write("local", ToText(local));
        folder.Write("localt", "of an earlier call");
        EXPECT_EQ(vxDirectTileWriteFileEx("local", 5, 1, 2, 0), 1u);
        EXPECT_EQ(Sent().find("2.5"), std::string::npos) << "nothing of the earlier call goes out";
        EXPECT_EQ(folder.Read("local"), ToText(local));
        EXPECT_EQ(folder.Read("localt"), "of an earlier call");
        files[5] = CalibrationInBlocks();
        if (status == good)
            files[5].resize(files[5].size() - 1);
        EXPECT_EQ(vxDirectTileReadFileEx("other", 5, 1, 2, 0), 0u);
        EXPECT_TRUE(!status.empty() || !folder.Has("other")) << "the blocks are all there is";
    };
    expectFailure("no status", {}, flat);
    expectFailure("a short status", Part(good, 0, 127), flat);
    expectFailure("one byte less", good, Bytes(flat.begin(), flat.end() - 1));
    expectFailure("another magic", good, Bytes{0xAB} + Part(flat, 1));
    expectFailure("another type of file", good, Hex("AA55 2000 0000 0700") + Part(flat, 8));
    // No modules, modules of no pixels, beyond the tile, one row for all; a tile that is larger than the file, or any.
    for (const char* const sizes :
         {"0400 0400 0200 0200 00 02", "0400 0400 0200 0200 02 00", "FFFF FFFF 0000 FFFF FF FF",
          "FFFF FFFF FFFF 0000 FF FF", "0300 0400 0200 0200 02 02", "0400 0300 0200 0200 02 02",
          "0000 FFFF 0100 FFFF FF FF", "0400 0600 0200 0200 02 03", "FFFF FFFF 0101 0101 FF FF"})
        expectFailure(sizes, Status("00", sizes), flat);
    std::filesystem::remove_all("c:");
    folder.Write("local", ToText(flat));
    EXPECT_EQ(vxDirectTileWriteFileEx("local", 5, 1, 2, 0), 1u) << "no place for the status";
}

TEST_F(DirectTile, Coefficients)
{
    Bytes params(65, 0);
    const auto run = [&](std::size_t length) {
        sign.requests.clear();
        return vxDirectTilePHYWriteCoefficent2("local", 1, 2, 0, params.data(), static_cast<std::uint32_t>(length));
    };
    files[7] = Status("00", kFourByFour);
    files[13] = TileFile(72);
    folder.Write("local", ToText(FlatCalibration()));
    EXPECT_EQ(run(65), 0u);
    EXPECT_EQ(Sent(), "1.7 3.16 3.17 1.13 ");
    EXPECT_EQ(sign.requests[1].Extended(), params);
    EXPECT_EQ(sign.requests[2].Extended(), params);
    EXPECT_EQ(folder.Read("localt"), ToText(CalibrationInBlocks()));
    EXPECT_EQ(folder.Read("c:/port1/0002.mcc"), ToText(TileFile(72)));
    params[64] = 1;
    EXPECT_EQ(run(65), 0u);
    EXPECT_EQ(Sent(), "1.7 3.16 ");
    EXPECT_EQ(run(64), 0u);
    EXPECT_EQ(Sent(), "1.7 3.16 3.17 1.13 ");

    // How often the coefficients cannot be read, and what the last of 21 tries makes of it.
    for (const auto& [failures, result] : {std::pair{1, 0u}, {19, 0u}, {20, 1u}, {21, 0u}}) {
        SCOPED_TRACE(failures);
        int asked = 0;
        sign.otherwise = [&, refused = failures](const Packet& request) {
            const bool coefficients = request.Minor() == 1 && request.Payload()[1] == 13;
            return coefficients && ++asked <= refused ? Refusal(36872) : Serve(request);
        };
        EXPECT_EQ(run(0), result);
        EXPECT_EQ(asked, std::min(failures + 1, 21));
    }
}

TEST_F(DirectTile, RawBytes)
{
    const Bytes packet = Hex("55A7 0600 0000 0000 0000 0100 0401 0000");
    sign.Config().timeoutMs = 1234;
    EXPECT_EQ(vxWriteCmdBuf(packet.data(), 16), 0u);
    EXPECT_EQ(sign.requests.back().bytes, packet);
    EXPECT_EQ(sign.readWaits, (std::vector<std::uint32_t>{1234}));
    sign.raw = [](const Packet&) { return std::deque<Bytes>{{7}}; };
    EXPECT_EQ(vxWriteCmdBuf(packet.data(), 16), 0u) << "any byte will do";
    sign.raw = [](const Packet&) { return std::deque<Bytes>{}; };
    EXPECT_EQ(vxWriteCmdBuf(packet.data(), 16), 21061u);
    sign.Config().onWrite = [](vxApiConfig*, const std::uint8_t*, std::uint32_t, std::uint32_t) { return 0; };
    EXPECT_EQ(vxWriteCmdBuf(nullptr, 0), 21061u);
}

} // namespace
} // namespace vxsign::test
