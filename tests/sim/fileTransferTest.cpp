// Files to the sign and back in packets, and all that may go wrong with them.
#include "support/fullDisk.h"
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

namespace fs = std::filesystem;

class FileTransfer : public SignTest
{
protected:
    // The codes of these packets of a file, one after the other.
    void Send(unsigned code, unsigned minor, const std::string& path, const Bytes& file,
              const std::vector<std::uint32_t>& numbers)
    {
        for (const std::uint32_t number : numbers)
            EXPECT_EQ(Put(minor, path, file, number), code) << path << ' ' << number;
    }
};

TEST_F(FileTransfer, ASequenceIsToldOfWhenItIsWhole)
{
    int sequences = 0;
    sign->Observe({.sequenceWritten = [&] { ++sequences; }});
    const Bytes content = Ramp(128);
    const Bytes record = Path("sequent.sys") + Bytes{128, 0, 0, 0, 64, 0, 2, 0};
    Expect(0, {{2, 2, record + Bytes{1}, Part(content, 0, 64)}});
    EXPECT_EQ(sequences, 0);
    Expect(0, {{2, 2, record + Bytes{2}, Part(content, 64)}});
    EXPECT_EQ(sequences, 1);
    EXPECT_EQ(OnSign("C/sequent.sys"), content);
    EXPECT_EQ(sign->SequenceFile(), folder.path / "C" / "sequent.sys");

    // The old commands announce a size below 65536 in 16 bits.
    ExpectPayload({128, 0, 0, 0}, {{1, 2, Path("SEQUENT.SYS") + Bytes{64, 0, 1}}});
    Expect(36873, {{1, 2, Path("SEQUENT.SYS") + Bytes{64, 0, 3}}});
}

TEST_F(FileTransfer, AnEmptyNameReachesNoFile)
{
    const Bytes empty(12, 0);
    const Bytes numbers{3, 0, 0, 0, 64, 0, 1, 0, 1, 0};
    Expect(36880, {{2, 2, empty + numbers + Bytes{0, 0}, {1, 2, 3}}, {2, 3, empty + numbers, {1, 2, 3}}});
    Expect(36880, {{2, 4, Bytes{'D', 0} + empty + numbers, {1, 2, 3}}});
    Expect(36880, {{2, 6, Bytes{'D', 0} + empty + numbers, {1, 2, 3}}, {2, 8, numbers + Bytes{0}, {1, 2, 3}}});
    Expect(36880, {{1, 2, empty + Bytes{64, 0, 1, 0}}, {1, 4, Bytes{'D', 0, 0, 0} + empty + Bytes{64, 0, 1, 0}}});
    Expect(36880, {{1, 8, Bytes{64, 0, 1, 0, 0, 0, 0, 0}}});
    EXPECT_TRUE(fs::is_empty(folder.path / "D"));
}

TEST_F(FileTransfer, PathsAnnounceTheirSizeIn32BitsInAllForms)
{
    const Bytes content = Ramp(200);
    Send(0, 8, "D:\\T\\QMSG.Nmg", content, {1, 2, 3, 4});
    EXPECT_EQ(OnSign("D/T/QMSG.Nmg"), content);
    for (const unsigned minor : {8U, 17U, 31U}) {
        const Bytes reply = Get(minor, "d:/t/qmsg.nmg", 4);
        EXPECT_EQ(PayloadOf(reply), (Bytes{0, 0, 0, 0, 200, 0, 0, 0}));
        EXPECT_EQ(ExtendedOf(reply), Part(content, 192));
    }
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\NONE", 1)), 36872U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T", 1)), 36880U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 0)), 36884U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 1, 63)), 36883U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 1, 1281)), 36883U);
    EXPECT_EQ(Get(17, "D:\\T\\QMSG.Nmg", 1, 1280).size(), 16U + 8 + 200);

    // A file of too many packets asks for the wide command.
    folder.Write("D/huge", "");
    fs::resize_file(folder.path / "D/huge", 64ULL * 65536);
    EXPECT_EQ(CodeOf(Get(8, "D:\\huge", 1)), 26371U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\huge", 65536)), 0U);
    fs::resize_file(folder.path / "D/huge", 1ULL << 32);
    EXPECT_EQ(CodeOf(Get(17, "D:\\huge", 1)), 4353U);
}

TEST_F(FileTransfer, WideWritesAreAnsweredWithProcessOkAndInAnyOrder)
{
    const std::string path = "E:\\big.bin";
    const Bytes content = Ramp(389);
    Send(36884, 13, path, content, {2}); // nothing begins with packet 2
    Send(36864, 13, path, content, {1, 4, 3, 4, 6, 2, 1});
    Send(36884, 13, path, content, {7}); // the last one comes when all others are there
    Send(36864, 13, path, content, {5});
    EXPECT_FALSE(fs::exists(folder.path / "E/big.bin"));
    Send(36864, 13, path, content, {7});
    EXPECT_EQ(OnSign("E/big.bin"), content);
    Send(36864, 13, path, content, {7, 3}); // answers that were lost: late copies of any packet are well
    EXPECT_EQ(sign->Counters().filesWritten, 1U);
    EXPECT_EQ(sign->Counters().refused, 2U);

    // Narrow ones keep their order and may repeat.
    const Bytes narrow = Ramp(256);
    Send(0, 8, "D:\\n", narrow, {1});
    Send(36884, 8, "D:\\n", narrow, {3});
    Send(0, 8, "D:\\n", narrow, {2, 2, 1, 2, 3, 4, 4}); // with a new start
    EXPECT_EQ(OnSign("D/n"), narrow);
}

TEST_F(FileTransfer, ABrokenTransferAndAFullDiskLeaveTheOldFile)
{
    const Bytes old = Ramp(64);
    Send(0, 8, "D:\\keep", old, {1});
    Send(0, 8, "D:\\keep", Ramp(640), {1});
    EXPECT_EQ(OnSign("D/keep"), old);
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\keep", 1)), old);
    Restart("CDEF");
    EXPECT_EQ(OnSign("D/keep"), old);
    for (const auto& entry : fs::directory_iterator(folder.path / "sign"))
        EXPECT_EQ(entry.path().stem(), "logs");

    {
        const FullDisk full(100);
        Send(0, 8, "D:\\keep", Ramp(128), {1});
        Send(36882, 8, "D:\\keep", Ramp(128), {2});
        Send(36884, 8, "D:\\keep", Ramp(128), {2}); // the transfer is over
        Expect(36882, {{2, 1, {90}, Bytes(64, 1), 1}});
    }
    EXPECT_EQ(OnSign("D/keep"), old);
}

TEST_F(FileTransfer, TheNinthTransferOfOneSenderEndsItsOldest)
{
    const Bytes content = Ramp(192);
    const auto path = [](int i) { return "D:\\f" + std::to_string(i); };
    for (int i = 0; i < 8; ++i)
        Send(0, 8, path(i), content, {1});
    Send(0, 8, path(0), content, {2}); // all eight go on
    Send(0, 8, path(8), content, {1});
    Send(36884, 8, path(0), content, {3}); // it began first
    for (int i = 1; i < 9; ++i)
        Send(0, 8, path(i), content, {2, 3});
    EXPECT_EQ(sign->Counters().filesWritten, 8U);
}

TEST_F(FileTransfer, TheLaterOfTwoSendersHearsThatTheSignIsInUse)
{
    const Bytes content = Ramp(128);
    const auto from = [&](std::uint64_t line, std::uint64_t nowMs) {
        arrival.line = line;
        arrival.nowMs = nowMs;
    };
    from(1, 0);
    Send(0, 8, "D:\\one", content, {1});
    from(2, 9000);
    Send(36917, 8, "D:\\one", content, {1}); // although its record is the same
    Send(36884, 8, "D:\\one", content, {2});
    from(1, 9000);
    Send(0, 8, "D:\\one", content, {2});
    from(2, 9000);
    Send(0, 8, "D:\\one", content, {1});
    from(1, 18999);
    Send(36917, 8, "D:\\one", content, {1});
    from(1, 19000); // the other has been silent for ten seconds
    Send(0, 8, "D:\\one", content, {1, 2});

    for (int i = 0; i < 8; ++i) {
        from(10 + static_cast<std::uint64_t>(i), 30000);
        Send(0, 8, "D:\\f" + std::to_string(i), content, {1});
    }
    from(18, 39999);
    Send(36917, 8, "D:\\f8", content, {1});
    from(18, 40000);
    Send(0, 8, "D:\\f8", content, {1, 2});
    from(10, 40000);
    Send(36884, 8, "D:\\f0", content, {2});
    from(11, 40000);
    Send(0, 8, "D:\\f1", content, {2});
}

TEST_F(FileTransfer, ReadingGoesOnWhileTheFileIsReplacedOrDeleted)
{
    const Bytes first = Ramp(128);
    const Bytes second(first.rbegin(), first.rend());
    Send(0, 8, "D:\\r", first, {1, 2});
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\r", 1)), Part(first, 0, 64));
    Send(0, 8, "D:\\r", second, {1, 2});
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\r", 2)), Part(second, 64));
    Expect(0, {{7, 6, Path("d:\\R")}});
    EXPECT_EQ(CodeOf(Get(8, "D:\\r", 2)), 36872U);
    Expect(32257, {{7, 6, Path("D:\\r")}});
    Expect(30209, {{7, 6, Path("D:\\")}});
}

TEST_F(FileTransfer, RefusesRecordsThatContradictThemselves)
{
    const auto put = [](const Bytes& numbers, std::size_t data) {
        return Request{2, 8, numbers + Path("D:\\x"), Ramp(data)};
    };
    Expect(36883, {put({0, 0, 0, 0, 64, 0, 0, 0, 1, 0}, 0),     // empty file
                   put({64, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 63),   // a byte missing
                   put({64, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 65),   // a byte too much
                   put({128, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 64),  // wrong total
                   put({64, 0, 0, 0, 0, 0, 1, 0, 1, 0}, 64)});  // no chunk size
    Expect(36884, {put({64, 0, 0, 0, 64, 0, 1, 0, 0, 0}, 64),   // packet 0
                   put({64, 0, 0, 0, 64, 0, 1, 0, 2, 0}, 64)}); // behind the last
    Expect(36870, {{2, 8, {1, 0, 0, 0, 64, 0, 1}, {1}}, {1, 17, {64}}, {1, 17, Bytes(260, 'x')}});
    EXPECT_TRUE(fs::is_empty(folder.path / "D"));
}

TEST_F(FileTransfer, NoPathLeavesItsDrive)
{
    folder.Write("outside", "secret");
    fs::create_symlink(folder.path, folder.path / "D" / "link");
    for (const char* path : {"D:\\..\\outside", "D:/T/../../outside", "D:..", "\\outside", "outside", "D", "", "G:\\x",
                             "1:\\x", "D:\\a:b", "D:\\link\\outside", "D:\\link", "D:\\.", "D:\\a\x01", "D:\\a?"}) {
        EXPECT_FALSE(sign->Resolve(path)) << path;
        Send(36880, 8, path, Bytes{1}, {1});
        EXPECT_EQ(CodeOf(Get(8, path, 1)), 36880U) << path;
        Expect(30209, {{7, 6, Path(path)}});
    }
    EXPECT_FALSE(sign->Resolve(std::string("D:\\a\0b", 6)));
    EXPECT_FALSE(sign->Resolve("D:\\" + std::string(300, 'a')));
    EXPECT_TRUE(folder.Has("outside"));
    // Bare names stay in their folder.
    const Bytes numbers{1, 0, 0, 0, 64, 0, 1, 0, 1, 0};
    Expect(36880, {{2, 2, Text("..\\outside") + Bytes{0, 0} + numbers + Bytes{0, 0}, {1}},
                   {2, 4, Bytes{'G', 0} + Text("A.TXT") + Bytes(7, 0) + numbers, {1}}});
    // A path that fills its record has no terminator.
    Expect(0, {{2, 8, numbers + Text("D:\\" + std::string(243, 'n')), {9}}});
    EXPECT_EQ(OnSign("D/" + std::string(243, 'n')), Bytes{9});

    Send(36880, 8, "D:\\t", Ramp(64), {1});
    Send(36880, 8, "C:\\FONT", Ramp(64), {1});
    Send(0, 8, "D:\\X\\T", Ramp(64), {1});
}

TEST_F(FileTransfer, AnExistingNameKeepsItsCase)
{
    fs::create_directories(folder.path / "D" / "Bilder");
    Send(0, 8, "D:\\BILDER\\Eins.bmp", Bytes{1}, {1});
    Send(0, 8, "d:/bilder/EINS.BMP", Bytes{2}, {1});
    EXPECT_EQ(OnSign("D/Bilder/Eins.bmp"), Bytes{2});
    EXPECT_EQ(sign->Resolve("D:bilder\\eins.BMP"), folder.path / "D/Bilder/Eins.bmp");
    EXPECT_EQ(sign->Resolve("D:\\T\\New.nmg"), folder.path / "D/T/New.nmg");
}

TEST_F(FileTransfer, DataFlashPadsToItsPages)
{
    EXPECT_EQ(ExtendedOf(Ask(1, 28)), (Bytes{0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    // 300 bytes announced, but the host's file has only 70.
    const Bytes head = Little(300, 4) + Little(128, 2) + Little(3, 4);
    Expect(0, {{2, 19, head + Little(1, 4) + Bytes{0, 0}, Bytes(70, 1)}, {2, 19, head + Little(2, 4) + Bytes{0, 0}}});
    Expect(0, {{2, 19, head + Little(3, 4) + Bytes{0, 0}}});
    EXPECT_EQ(ExtendedOf(Ask(1, 28)), (Bytes{0, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(Ask(1, 29, Little(500, 4) + Little(1, 4))), Bytes(70, 1) + Bytes(430, 0xFF));
    EXPECT_EQ(ExtendedOf(Ask(1, 29, Little(500, 4) + Little(2, 4))), Bytes(12, 0xFF));
    const Bytes tooMuch = Little(0xFFFF01, 4) + Little(1280, 2) + Little(13107, 4) + Little(1, 4) + Bytes{0, 0};
    Expect(8450, {{2, 19, tooMuch, {1}}});
}

} // namespace
} // namespace vxsign::test
