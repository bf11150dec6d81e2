#include "signFixture.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace vxsim_tests {
namespace {

namespace fs = std::filesystem;

using FileTransfer = SignTest;

TEST_F(FileTransfer, SystemFileGoesToDriveCAndComesBack)
{
    int sequences = 0;
    sign->Observe({.sequenceWritten = [&] { ++sequences; }});
    const Bytes name{'s', 'e', 'q', 'u', 'e', 'n', 't', '.', 's', 'y', 's', 0};
    const Bytes content = Pattern(100);
    const Bytes record = name + Bytes{100, 0, 0, 0, 64, 0, 2, 0};
    const Bytes first(content.begin(), content.begin() + 64);
    const Bytes second(content.begin() + 64, content.end());
    EXPECT_EQ(CodeOf(Ask(2, 2, record + Bytes{1, 0, 0, 0}, first)), 0U);
    EXPECT_EQ(sequences, 0);
    EXPECT_EQ(CodeOf(Ask(2, 2, record + Bytes{2, 0, 0, 0}, second)), 0U);
    EXPECT_EQ(sequences, 1);
    EXPECT_EQ(FileBytes(folder.path / "C" / "sequent.sys"), content);
    EXPECT_EQ(sign->SequenceFile(), folder.path / "C" / "sequent.sys");

    // The old commands announce a size below 65536 in 16 bits.
    const Bytes reply = Ask(1, 2, Text("SEQUENT.SYS") + Bytes{0, 64, 0, 1, 0});
    EXPECT_EQ(PayloadOf(reply), (Bytes{100, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(reply), first);
    EXPECT_EQ(ExtendedOf(Ask(1, 2, Text("SEQUENT.SYS") + Bytes{0, 64, 0, 2, 0})), second);
    EXPECT_EQ(CodeOf(Ask(1, 2, Text("SEQUENT.SYS") + Bytes{0, 64, 0, 3, 0})), 36873U);
}

TEST_F(FileTransfer, EveryKindHasItsFolder)
{
    const std::vector<std::pair<std::uint8_t, fs::path>> kinds{{4, "D/T"}, {5, "D/S"}, {6, "D/P"}, {7, "D/A"}};
    for (const auto& [minor, place] : kinds) {
        const Bytes name = Text("LONGNAME.BMP"); // fills its field
        EXPECT_EQ(CodeOf(Ask(2, minor, Bytes{'D', 0} + name + Bytes{3, 0, 0, 0, 64, 0, 1, 0, 1, 0}, {7, 8, minor})),
                  0U);
        EXPECT_EQ(FileBytes(folder.path / place / "LONGNAME.BMP"), (Bytes{7, 8, minor}));
        const Bytes reply = Ask(1, minor, Bytes{'d', 0, 0, 0} + name + Bytes{64, 0, 1, 0});
        EXPECT_EQ(ExtendedOf(reply), (Bytes{7, 8, minor}));
    }
    EXPECT_EQ(CodeOf(Ask(2, 3, Text("A.FNT") + Bytes(7, 0) + Bytes{1, 0, 0, 0, 64, 0, 1, 0, 1, 0}, {5})), 0U);
    EXPECT_EQ(FileBytes(folder.path / "C/FONT/A.FNT"), Bytes{5});
}

TEST_F(FileTransfer, PathsAnnounceTheirSizeIn32BitsInAllForms)
{
    const Bytes content = Pattern(200);
    for (const std::uint32_t number : {1U, 2U, 3U, 4U})
        EXPECT_EQ(Put(8, "D:\\T\\QMSG.Nmg", content, number), 0U);
    EXPECT_EQ(FileBytes(folder.path / "D/T/QMSG.Nmg"), content);
    for (const unsigned minor : {8U, 17U, 31U}) {
        Bytes all;
        for (const std::uint32_t number : {1U, 2U, 3U, 4U}) {
            const Bytes reply = Get(minor, "d:/t/qmsg.nmg", number);
            EXPECT_EQ(PayloadOf(reply), (Bytes{0, 0, 0, 0, 200, 0, 0, 0}));
            all = all + ExtendedOf(reply);
        }
        EXPECT_EQ(all, content);
    }
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\NONE", 1)), 36872U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T", 1)), 36880U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 0)), 36884U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 1, 63)), 36883U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\T\\QMSG.Nmg", 1, 1281)), 36883U);
    EXPECT_EQ(Get(17, "D:\\T\\QMSG.Nmg", 1, 1280).size(), 16U + 8 + 200);
}

TEST_F(FileTransfer, WideWritesAreAnsweredWithProcessOkAndInAnyOrder)
{
    const Bytes content = Pattern(389);
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 2), 36884U); // nothing begins with packet 2
    for (const std::uint32_t number : {1U, 4U, 3U, 4U, 6U, 2U, 1U})
        EXPECT_EQ(Put(13, "E:\\big.bin", content, number), 36864U);
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 7), 36884U); // the last one comes when all others are there
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 5), 36864U);
    EXPECT_FALSE(fs::exists(folder.path / "E/big.bin"));
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 7), 36864U);
    EXPECT_EQ(FileBytes(folder.path / "E/big.bin"), content);
    // Answers that were lost: late copies of any packet are well.
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 7), 36864U);
    EXPECT_EQ(Put(13, "E:\\big.bin", content, 3), 36864U);
    EXPECT_EQ(sign->Counters().filesWritten, 1U);
    EXPECT_EQ(sign->Counters().refused, 2U);
}

TEST_F(FileTransfer, NarrowWritesKeepTheirOrderAndMayRepeat)
{
    const Bytes content = Pattern(256);
    EXPECT_EQ(Put(8, "D:\\a", content, 1), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 3), 36884U);
    EXPECT_EQ(Put(8, "D:\\a", content, 2), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 2), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 1), 0U); // started again
    EXPECT_EQ(Put(8, "D:\\a", content, 2), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 3), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 4), 0U);
    EXPECT_EQ(Put(8, "D:\\a", content, 4), 0U);
    EXPECT_EQ(FileBytes(folder.path / "D/a"), content);
}

TEST_F(FileTransfer, BrokenTransferLeavesTheOldFileAndNothingElse)
{
    const Bytes old = Pattern(64);
    EXPECT_EQ(Put(8, "D:\\keep", old, 1), 0U);
    EXPECT_EQ(Put(8, "D:\\keep", Pattern(640), 1), 0U);
    EXPECT_EQ(FileBytes(folder.path / "D/keep"), old);
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\keep", 1)), old);
    for (int i = 0; i < 12; ++i) // more than the sign receives at once: the oldest gives way
        EXPECT_EQ(Put(8, "D:\\f" + std::to_string(i), Pattern(128), 1), 0U);
    EXPECT_EQ(Put(8, "D:\\f0", Pattern(128), 2), 36884U);
    EXPECT_EQ(Put(8, "D:\\f11", Pattern(128), 2), 0U);
    Restart("CDEF");
    EXPECT_EQ(FileBytes(folder.path / "D/keep"), old);
    for (const auto& entry : fs::directory_iterator(folder.path / "sign"))
        EXPECT_EQ(entry.path().stem(), "logs");
}

TEST_F(FileTransfer, ADiskThatTakesNoMoreIsToldAndKeepsTheOldFile)
{
    EXPECT_EQ(Put(8, "D:\\keep", Bytes{1}, 1), 0U);
    rlimit former = {};
    ::getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{100, former.rlim_max};
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(Put(8, "D:\\keep", Pattern(128), 1), 0U);
    EXPECT_EQ(Put(8, "D:\\keep", Pattern(128), 2), 36882U);
    EXPECT_EQ(Put(8, "D:\\keep", Pattern(128), 2), 36884U); // the transfer is over
    EXPECT_EQ(CodeOf(Ask(2, 1, {90, 0, 0, 0}, Bytes(64, 1), 1)), 36882U);
    ::setrlimit(RLIMIT_FSIZE, &former);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(FileBytes(folder.path / "D/keep"), Bytes{1});
}

TEST_F(FileTransfer, ReadingGoesOnWhileTheFileIsReplacedOrDeleted)
{
    const Bytes first = Pattern(128);
    Bytes second = first;
    std::ranges::reverse(second);
    for (const std::uint32_t number : {1U, 2U})
        EXPECT_EQ(Put(8, "D:\\r", first, number), 0U);
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\r", 1)), Bytes(first.begin(), first.begin() + 64));
    for (const std::uint32_t number : {1U, 2U})
        EXPECT_EQ(Put(8, "D:\\r", second, number), 0U);
    EXPECT_EQ(ExtendedOf(Get(8, "D:\\r", 2)), Bytes(second.begin() + 64, second.end()));
    EXPECT_EQ(CodeOf(Ask(7, 6, Path("d:\\R"))), 0U);
    EXPECT_EQ(CodeOf(Get(8, "D:\\r", 2)), 36872U);
    EXPECT_EQ(CodeOf(Ask(7, 6, Path("D:\\r"))), 32257U);
    EXPECT_EQ(CodeOf(Ask(7, 6, Path("D:\\"))), 30209U);
}

TEST_F(FileTransfer, RefusesRecordsThatContradictThemselves)
{
    const Bytes path = Path("D:\\x");
    const auto put = [&](const Bytes& numbers, std::size_t data) {
        return CodeOf(Ask(2, 8, numbers + path, Pattern(data)));
    };
    EXPECT_EQ(put({0, 0, 0, 0, 64, 0, 0, 0, 1, 0}, 0), 36883U);           // empty file
    EXPECT_EQ(put({64, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 63), 36883U);         // a byte missing
    EXPECT_EQ(put({64, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 65), 36883U);         // a byte too much
    EXPECT_EQ(put({128, 0, 0, 0, 64, 0, 1, 0, 1, 0}, 64), 36883U);        // wrong total
    EXPECT_EQ(put({64, 0, 0, 0, 0, 0, 1, 0, 1, 0}, 64), 36883U);          // no chunk size
    EXPECT_EQ(put({64, 0, 0, 0, 64, 0, 1, 0, 0, 0}, 64), 36884U);         // packet 0
    EXPECT_EQ(put({64, 0, 0, 0, 64, 0, 1, 0, 2, 0}, 64), 36884U);         // behind the last
    EXPECT_EQ(CodeOf(Ask(2, 8, {1, 0, 0, 0, 64, 0, 1, 0}, {1})), 36870U); // no room for a path
    EXPECT_EQ(CodeOf(Ask(1, 17, {64, 0, 0, 0})), 36870U);
    EXPECT_EQ(CodeOf(Ask(1, 17, Bytes(260, 'x'))), 36870U);
    EXPECT_TRUE(fs::is_empty(folder.path / "D"));
}

TEST_F(FileTransfer, NoPathLeavesItsDrive)
{
    std::ofstream(folder.path / "outside") << "secret";
    fs::create_symlink(folder.path, folder.path / "D" / "link");
    for (const char* path : {"D:\\..\\outside", "D:/T/../../outside", "D:..", "\\outside", "outside", "D", "", "G:\\x",
                             "1:\\x", "D:\\a:b", "D:\\link\\outside", "D:\\link", "D:\\.", "D:\\a\x01", "D:\\a?"}) {
        EXPECT_FALSE(sign->Resolve(path)) << path;
        EXPECT_EQ(Put(8, path, Bytes{1}, 1), 36880U) << path;
        EXPECT_EQ(CodeOf(Get(8, path, 1)), 36880U) << path;
        EXPECT_EQ(CodeOf(Ask(7, 6, Path(path))), 30209U) << path;
    }
    EXPECT_FALSE(sign->Resolve(std::string("D:\\a\0b", 6)));
    EXPECT_FALSE(sign->Resolve("D:\\" + std::string(300, 'a')));
    EXPECT_TRUE(fs::exists(folder.path / "outside"));
    // Bare names stay in their folder.
    EXPECT_EQ(CodeOf(Ask(2, 2, Text("..\\outside") + Bytes{0, 0, 1, 0, 0, 0, 64, 0, 1, 0, 1, 0, 0, 0}, {1})), 36880U);
    EXPECT_EQ(
        CodeOf(Ask(2, 4, Bytes{'G', 0} + Text("A.TXT") + Bytes(7, 0) + Bytes{1, 0, 0, 0, 64, 0, 1, 0, 1, 0}, {1})),
        36880U);
    // A path that fills its record has no terminator.
    const std::string full = "D:\\" + std::string(243, 'n');
    EXPECT_EQ(CodeOf(Ask(2, 8, Bytes{1, 0, 0, 0, 64, 0, 1, 0, 1, 0} + Text(full), {9})), 0U);
    EXPECT_EQ(FileBytes(folder.path / "D" / std::string(243, 'n')), Bytes{9});
}

TEST_F(FileTransfer, AnExistingNameKeepsItsCase)
{
    fs::create_directories(folder.path / "D" / "Bilder");
    EXPECT_EQ(Put(8, "D:\\BILDER\\Eins.bmp", Bytes{1}, 1), 0U);
    EXPECT_EQ(Put(8, "d:/bilder/EINS.BMP", Bytes{2}, 1), 0U);
    EXPECT_EQ(FileBytes(folder.path / "D/Bilder/Eins.bmp"), Bytes{2});
    EXPECT_EQ(sign->Resolve("D:bilder\\eins.BMP"), folder.path / "D/Bilder/Eins.bmp");
    EXPECT_EQ(sign->Resolve("D:\\T\\New.nmg"), folder.path / "D/T/New.nmg");
}

TEST_F(FileTransfer, AFileOfTooManyPacketsAsksForTheWideCommand)
{
    std::ofstream(folder.path / "D/huge").close();
    fs::resize_file(folder.path / "D/huge", 64ULL * 65536);
    EXPECT_EQ(CodeOf(Get(8, "D:\\huge", 1)), 26371U);
    EXPECT_EQ(CodeOf(Get(17, "D:\\huge", 65536)), 0U);
    fs::resize_file(folder.path / "D/huge", 1ULL << 32);
    EXPECT_EQ(CodeOf(Get(17, "D:\\huge", 1)), 4353U);
}

TEST_F(FileTransfer, DataFlashPadsToItsPages)
{
    EXPECT_EQ(ExtendedOf(Ask(1, 28)), (Bytes{0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    // 300 bytes announced, but the host's file has only 70.
    const Bytes head = Little(300, 4) + Little(128, 2) + Little(3, 4);
    EXPECT_EQ(CodeOf(Ask(2, 19, head + Little(1, 4) + Bytes{0, 0}, Bytes(70, 1))), 0U);
    EXPECT_EQ(CodeOf(Ask(2, 19, head + Little(2, 4) + Bytes{0, 0})), 0U);
    EXPECT_EQ(CodeOf(Ask(2, 19, head + Little(3, 4) + Bytes{0, 0})), 0U);
    EXPECT_EQ(ExtendedOf(Ask(1, 28)), (Bytes{0, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    const Bytes piece = ExtendedOf(Ask(1, 29, Little(500, 4) + Little(1, 4)));
    EXPECT_EQ(piece, Bytes(70, 1) + Bytes(430, 0xFF));
    EXPECT_EQ(ExtendedOf(Ask(1, 29, Little(500, 4) + Little(2, 4))), Bytes(12, 0xFF));
    EXPECT_EQ(
        CodeOf(Ask(2, 19, Little(0xFFFF01, 4) + Little(1280, 2) + Little(13107, 4) + Little(1, 4) + Bytes{0, 0}, {1})),
        8450U);
}

} // namespace
} // namespace vxsim_tests
