// The sign's sequence files, written and read.
#include "playlist/sequenceWrite.h"
#include "support/playlistTree.h"

#include <tuple>

namespace vxsign::test {
namespace {

using namespace std::string_literals;
using playlist::kFile;
using playlist::kGroup;
using playlist::kSubGroup;

constexpr std::string_view kFirst = "1F 00 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01";
const SCH kFirstSchedule{0x1F, 0, 0x2024, 3, 4, 5, 6, 1, 0, 0x2025, 7, 8, 9, 0x10, 0, 1};

std::string Load(const TempFolder& folder, const Bytes& file)
{
    EXPECT_EQ(vxLoadSYSFromLED(WriteBytes(folder, "IN.SYS", file).c_str()), 0u);
    return Describe(*ThreadPlaylist());
}

using SequenceFiles = FolderTest;

TEST_F(SequenceFiles, FlatFormIsWrittenAsTheSignReadsIt)
{
    folder.Write("A.BMP", "BM");
    folder.Write("a long name.bmp", "BM");
    vxPlaylistState& list = FreshList(folder.Path());
    const std::string out = folder.Path("OUT.SYS");
    AddTopFile(list, "A.BMP").SCH[0].bweek_rep = 5;
    VXPLAYLIST_FILE_INFO& scheduled = AddTopFile(list, "MISSING.BMP");
    scheduled.schCount = 2;
    scheduled.SCH[0] = kFirstSchedule;
    Add(Add(list.items, "", kFile).children, "", kFile);
    Add(list.items, "", kFile);
    playlist::Item& group = Add(list.items, "G", kGroup);
    AddFile(Add(group.children, "G", kGroup), "A.BMP").SCH[0].bweek_rep = 5;
    AddFile(Add(group.children, "S", kSubGroup), "a long name.bmp");

    const Bytes none(16), noName(12);
    EXPECT_EQ(playlist::WriteFlatForm(list, out, 'F'), 0u);
    const Bytes written = ReadBytes(folder, "OUT.SYS");
    ASSERT_EQ(written.size(), 152u);
    EXPECT_EQ(Bytes(written.begin(), written.end() - 12),
              Hex("5351 0400 0400 9800") + Hex("46 50 0F FF") + none + Hex("00000000") + Padded("A.BMP", 12) +
                  Hex("46 00 0F 1F 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 00000000") + noName +
                  Hex("46 50 0F 05") + none + Hex("00000000") + Padded("A.BMP", 12) + Hex("46 50 0F 00") + none +
                  Hex("00000000"));
    EXPECT_EQ(std::string(written.end() - 12, written.end()).substr(8), ".BMP");
    EXPECT_EQ(playlist::WriteFlatForm(list, folder.Path("no/OUT.SYS"), 'F'), 1u);
    EXPECT_EQ(playlist::WriteTreeForm(list, folder.Path("no/OUT.SYS"), 'F'), 1u);
}

TEST_F(SequenceFiles, FlatFormIsRead)
{
    FreshList();
    const Bytes file = Hex("5351 04FF 0300 0000") + Hex("44 54 0F 1F 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01") +
                       Hex("00000000") + FromText("EIGHTCHR.NMG") + Hex("46 50 0F FF") + Bytes(20) +
                       Padded("B.BMP", 12);
    // The count says three, the file holds two.
    EXPECT_EQ(Load(folder, file), ":0/0/255[:0/0/255[D\\T\\EIGHTCHR.NMG 1x1 0/0/0;]]"
                                  ":0/0/0[:0/0/0[F\\P\\B.BMP 1x1 0/0/0;]]");
    EXPECT_EQ(BytesOf(ThreadPlaylist()->items[0]->children[0]->children[0]->SCH, 1), Hex(kFirst));

    // Neither a file of another form nor a missing one touches the list.
    for (const char* const head : {"5351 0500 0000 0000", "", "5351 0004 0000 0000"})
        EXPECT_EQ(Load(folder, Hex(head)).substr(0, 11), ":0/0/255[:0");
    EXPECT_EQ(vxLoadSYSFromLED(folder.Path("none").c_str()), 0u);
    EXPECT_EQ(vxLoadSYSFromLED(nullptr), 1u);
    EXPECT_EQ(ThreadPlaylist()->items.size(), 2u);
    EXPECT_EQ(Load(folder, Hex("0000 0400 FFFF 0000")), "");
}

// A group with a default child, a sub-group and a file of its own; a top-level file.
vxPlaylistState& BuildTree(const std::string& directory, bool defaultChild)
{
    vxPlaylistState& list = FreshList(directory);
    playlist::Item& group = Add(list.items, "ABCD", kGroup, 7, 0);
    if (defaultChild)
        AddFile(Add(group.children, "ABCD", kGroup, 0, 1), "X").Drive = 'Z';
    VXPLAYLIST_FILE_INFO& inSub = AddFile(Add(group.children, "S", kSubGroup, 5, 0), "A.BMP");
    inSub.playTimes = 3;
    inSub.schCount = 1;
    inSub.SCH[0] = kFirstSchedule;
    VXPLAYLIST_FILE_INFO& single = AddFile(Add(group.children, "", kFile), "missing long name.txt");
    single.Type = 'Q';
    single.PicStaySec = 0x1234;
    single.PicInMode = 0x56;
    single.PicOutMode = 0x78;
    AddTopFile(list, "A.BMP");
    return list;
}

Bytes FileRecord(std::string_view head, std::string_view path, std::string_view picture)
{
    return FromText("FS") + Hex(head) + Hex("54010000 00000000") + Padded(path, 320) + Hex(picture);
}

TEST_F(SequenceFiles, TreeFormIsWrittenAndReadBack)
{
    folder.Write("A.BMP", "BM");
    const Bytes plain = FileRecord("0000 0000 00 00", "D:\\P\\A.BMP", "0000 00 00");
    const Bytes sub = Hex("4750 6601 0100 05 00 14000000 01 00 0000") + FromText("S") + Bytes(3) +
                      FileRecord("1200 0100 03 00", "D:\\P\\A.BMP", "0000 00 00") + Hex(kFirst);
    const Bytes single = FileRecord("0000 0000 00 00", "D:\\Q\\missing long name.txt", "3412 56 78");

    vxPlaylistState& list = BuildTree(folder.Path(), false);
    EXPECT_EQ(playlist::WriteTreeForm(list, folder.Path("OUT.SYS"), 'D'), 0u);
    const Bytes written = Hex("5351 0600 0200 3604") + Hex("4750 CE02 0200 07 00 14000000 00 00 0000") +
                          FromText("ABCD") + sub + single + plain;
    EXPECT_EQ(ReadBytes(folder, "OUT.SYS"), written);
    // A sub-group's play type reads back as 1.
    EXPECT_EQ(Load(folder, written),
              "ABCD:1/7/0[S:2/1/0[D\\P\\A.BMP 1x3 0/0/0;]ABCD:0/0/0[D\\Q\\missing long name.txt 0x0 4660/86/120;]]"
              ":0/0/1[:0/0/2[D\\P\\A.BMP 0x0 0/0/0;]]");
    EXPECT_EQ(BytesOf(&list.items[0]->children[0]->children[0]->SCH[0], 1), Hex(kFirst));

    // A default child goes out with a mark that is refused on the way back: its group gets an empty child, and the rest
    // is read out of step.
    BuildTree(folder.Path(), true);
    EXPECT_EQ(playlist::WriteTreeForm(list, folder.Path("OUT.SYS"), 'D'), 0u);
    const Bytes refused = Hex("4750 5401 0100 00 00 14000000 00 01 0000") + FromText("ABCD");
    const Bytes whole = ReadBytes(folder, "OUT.SYS");
    EXPECT_EQ(Part(whole, 28, 20), refused);
    EXPECT_EQ(Load(folder, whole), "ABCD:1/7/0[:0/0/0[]:0/0/0[]:0/0/0[]]:0/0/0[]");
}

TEST_F(SequenceFiles, TreeFormNamesAndLengthsThatDoNotFit)
{
    vxPlaylistState& list = FreshList(folder.Path());
    Add(Add(list.items, std::string(2000, 'n'), kGroup).children, "", kSubGroup);
    EXPECT_EQ(playlist::WriteTreeForm(list, folder.Path("OUT.SYS"), 'D'), 0u);
    const Bytes whole = ReadBytes(folder, "OUT.SYS");
    EXPECT_EQ(whole, Hex("5351 0600 0100 2004 4750 1000 0100 00 00 10040000 00 00 0000") + Bytes(1024, 'n') +
                         Hex("4750 0000 0000 00 00 10000000 01 00 0000"));
    EXPECT_EQ(Load(folder, whole), std::string(1023, 'n') + ":1/0/0[:2/1/0[]]");

    // Records of other lengths than the writer's: a short one, one longer than any path, one beyond the file.
    const Bytes path = Padded("E:\\T\\" + std::string(300, 'p'), 320);
    const std::string cut = ":0/0/0[:0/0/1[E\\T\\" + std::string(255, 'p');
    const std::tuple<const char*, Bytes, std::string> rows[] = {
        {"1A000000", FromText("D:\\T\\N") + Hex("0100 02 03") + Hex(kFirst), ":0/0/0[:0/0/1[D\\T\\N 1x2 1/2/3;]]"},
        {"10040000", path + Bytes(1000) + Hex(kFirst), cut + " 1x2 0/0/0;]]"},
        {"FFFFFFFF", path, cut + " 0x2 0/0/0;]]"}};
    for (const auto& [length, rest, loaded] : rows)
        EXPECT_EQ(Load(folder, Hex("5351 0600 0100 0000 4653 0000 0100 02 00") + Hex(length) + Bytes(4) + rest),
                  loaded);
}

TEST_F(SequenceFiles, TreeFormCountsSchedulesThatRestrict)
{
    FreshList();
    const Bytes always = Hex("FF 00 0820 01 01 00 00 01 01 0820 01 01 23 59 01 01");
    Bytes noDate = always, noTime = always, everyDay = always;
    noDate[8] = 0;
    noTime[9] = 2;
    everyDay[0] = 127;
    const Bytes file = Hex("5351 0600 0100 0000 4653 0000 0500 01 00 1A000000 00000000") + FromText("D:\\T\\N") +
                       Bytes(4) + always + Hex(kFirst) + noDate + noTime + everyDay;
    EXPECT_EQ(Load(folder, file), ":0/0/0[:0/0/1[D\\T\\N 4x1 0/0/0;]]");
    const VXPLAYLIST_FILE_INFO& info = *ThreadPlaylist()->items[0]->children[0]->children[0];
    EXPECT_EQ(BytesOf(info.SCH, 2), always + Hex(kFirst)) << "the one that does not count keeps its place";
    // A sub-group passes over what is no file, which uses up one of its count.
    const Bytes one = Hex("4653 0000 0000 01 00 1A000000 00000000") + FromText("D:\\T\\N") + Bytes(4);
    EXPECT_EQ(Load(folder, Hex("5351 0600 0100 0000 4750 0000 0200 00 00 10000000 00 00 0000") +
                               Hex("4750 0000 0200 09 00 12000000 01 00 0000 5300") +
                               Hex("5858 0000 0100 00 00 12000000 00 00 0000") + Bytes(20) + one + one),
              ":1/0/0[S:2/1/0[D\\T\\N 0x1 0/0/0;]:0/1/0[D\\T\\N 0x1 0/0/0;]]");
}

TEST_F(SequenceFiles, OfAnyBytesEndWithTheFile)
{
    FreshList();
    // Records that would lead back to themselves, and counts that promise more than there is.
    EXPECT_EQ(Load(folder, Hex("5351 0600 FFFF 0000")), "");
    EXPECT_EQ(Load(folder, Hex("5351 0600 FFFF 0000 4653 0000 0000 01 00 00000000 00000000")),
              ":0/0/0[:0/0/1[\0\\\0\\ 0x1 0/0/0;]]"s);
    EXPECT_EQ(Load(folder, Hex("5351 0600 FFFF 0000 4750 0000 FFFF 01 00 00000000 00000000")), ":1/1/0[]");
    EXPECT_EQ(Load(folder, Hex("5351 0600 FFFF 0000 4750 0000 FFFF 01 00 00000000 00000000"
                               "4750 0000 FFFF 01 00 00000000 01000000")),
              ":1/1/0[:2/1/0[]]");
}

} // namespace
} // namespace vxsign::test
