// Play lists of PC programs.
#include "support/playlistTree.h"

namespace vxsign::test {
namespace {

// A directory for the list that is still to be made, and a file elsewhere.
class PcPlaylist : public testing::Test
{
protected:
    std::string Load(const Bytes& file)
    {
        EXPECT_EQ(vxLoadPLSFromPC(WriteBytes(folder, "IN.PL", file).c_str()), 0u);
        return Describe(list);
    }
    const VXPLAYLIST_FILE_INFO& File(std::size_t item, std::size_t child = 0) const
    {
        return *list.items[item]->children[child]->children[0];
    }

    TempFolder folder;
    vxPlaylistState& list = FreshList(folder.Path("list"));
    std::string source = folder.Write("source.txt", "contents");
};

Bytes FlatEntry(std::string_view name)
{
    return Hex("44 54 0F 1F 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 00000000") + Padded(name, 12);
}

// A file's record up to its schedules; `behind` are bytes 2 and 3, `more` is its length beyond what is read of it.
Bytes FileRecord(std::string_view path, std::size_t behind, std::uint8_t schedules, std::uint8_t more = 0)
{
    const Bytes size{static_cast<std::uint8_t>(behind), static_cast<std::uint8_t>(behind >> 8)};
    const Bytes length{static_cast<std::uint8_t>(0x54 + more), 0x01, 0, 0};
    return FromText("FS") + size + Bytes{schedules, 0} + Hex("02 00") + length + Bytes(4) + Padded(path, 320) +
           Hex("3412 56 78") + Bytes(more, 0xEE);
}

Bytes Source(const std::string& path)
{
    return Bytes{static_cast<std::uint8_t>(path.size())} + FromText(path);
}

TEST_F(PcPlaylist, FlatFormTakesALineForEachFile)
{
    const Bytes records = Hex("5351 0400 0200 0000 A1A2A3A4A5A6A7A8") + FlatEntry("A.TXT") + FlatEntry("B.TXT");
    const std::string loaded = ":0/0/255[:0/0/255[D\\T\\A.TXT 1x1 1/1/1;]]:0/0/0[:0/0/0[D\\T\\B.TXT 1x1 1/1/1;]]";
    const std::string lines = source + "\r\nno such file";
    for (const std::string& wrong : {source + "\r\n", std::string(), source, lines + "\r\nx", lines + "\r\n\r\n"}) {
        EXPECT_EQ(Load(records + FromText(wrong)), loaded);
        EXPECT_STREQ(File(0).pcFileName, "");
        EXPECT_FALSE(folder.Has("list/A.TXT"));
    }
    for (const std::string& right : {lines, lines + "\r\n", lines + std::string("\0x\r\n", 4)}) {
        EXPECT_EQ(Load(records + FromText(right)), loaded);
        EXPECT_EQ(File(0).pcFileName, source);
        EXPECT_STREQ(File(1).pcFileName, "no such file");
        EXPECT_EQ(folder.Read("list/A.TXT"), "contents");
        EXPECT_FALSE(folder.Has("list/B.TXT"));
        folder.Write("list/A.TXT", "overwritten");
    }
    EXPECT_EQ(Load(records + FromText(source + "\r\n" + std::string(600, 'p'))), loaded);
    EXPECT_EQ(File(1).pcFileName, std::string(511, 'p'));
}

TEST_F(PcPlaylist, TreeFormBringsPlayTypesSchedulesAndFiles)
{
    const Bytes first = Hex("1F 00 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01");
    const Bytes always = Hex("FF 00 0820 01 01 00 00 01 01 0820 01 01 23 59 01 01");
    const Bytes sevenSchedules = always + first + first + first + first + first + first;
    const Bytes tree = Hex("4750 0000 0200 04 00 14000000 00 00 0000") + Padded("GRP", 4) +
                       Hex("4750 0000 0100 05 00 58000000 01 00 0000") + Padded("SUB!", 72) +
                       FileRecord("D:\\T\\A.TXT", 126 + 1 + source.size(), 7) + sevenSchedules + Source(source) +
                       FileRecord("F:\\P\\B.TXT", 18 + 1 + 4 + 3, 1, 20) + always + Source("none") + Bytes(3, 0xEE) +
                       FileRecord("E:\\Q\\" + std::string(300, 'c'), 1, 0) + Source("");
    for (const char* const head : {"5351 0600 0200 0000", "0000 0500 0200 0000"}) {
        EXPECT_EQ(Load(Hex(head) + tree), "GRP:1/4/0[SUB!:2/5/0[D\\T\\A.TXT 5x2 4660/86/120;]"
                                          "GRP:0/2/0[F\\P\\B.TXT 1x2 4660/86/120;]]"
                                          ":0/0/1[:0/0/2[E\\Q\\" +
                                              std::string(251, 'c') + " 1x2 4660/86/120;]]");
        EXPECT_EQ(folder.Read("list/A.TXT"), "contents");
        std::filesystem::remove(folder.Path("list/A.TXT"));
    }
    EXPECT_EQ(File(0).pcFileName, source);
    EXPECT_EQ(BytesOf(File(0).SCH, 7), Bytes(sevenSchedules.begin(), sevenSchedules.end() - 18) + Bytes(18));
    EXPECT_STREQ(File(0, 1).pcFileName, "none");
    EXPECT_EQ(BytesOf(File(0, 1).SCH, 1), Hex("7F 00 0820 01 01 00 00 01 01 0820 01 01 23 59 01 01"));
}

TEST_F(PcPlaylist, NamesDoNotLeaveTheDirectory)
{
    for (const char* const name : {"../up.txt", "x/../../up.txt", "..\\up.txt", "..", "", "..up.txt"})
        EXPECT_EQ(Load(Hex("5351 0600 0100 0000") + FileRecord(std::string("D:\\T\\") + name, 1 + source.size(), 0) +
                       Source(source)),
                  std::string(":0/0/0[:0/0/1[D\\T\\") + name + " 1x2 4660/86/120;]]");
    EXPECT_FALSE(folder.Has("up.txt"));
    EXPECT_EQ(folder.Read("list/..up.txt"), "contents") << "two dots, but no step";
}

TEST_F(PcPlaylist, WhatIsNone)
{
    const Bytes flat = Hex("5351 0400 0100 0000 0000000000000000") + FlatEntry("A.TXT") + FromText("none");
    const std::string loaded = Load(flat);
    EXPECT_EQ(Load(Hex("5351 0401 0100 0000")), loaded);
    EXPECT_EQ(Load({}), loaded);
    EXPECT_EQ(vxLoadPLSFromPC(folder.Path("no such").c_str()), 0u);
    EXPECT_EQ(vxLoadPLSFromPC(nullptr), 1u);
    EXPECT_EQ(Describe(list), loaded);
    EXPECT_EQ(Load(Hex("5351 0600 FFFF 0000")), "");

    // A file with a hole of many gigabytes.
    const std::string path =
        WriteBytes(folder, "IN.PL", Hex("5351 0400 0100 0000 0000000000000000") + FlatEntry("A.TXT"));
    std::filesystem::resize_file(path, std::uint64_t{5} << 30);
    EXPECT_EQ(vxLoadPLSFromPC(path.c_str()), 0u);
    EXPECT_EQ(Describe(list), ":0/0/255[:0/0/255[D\\T\\A.TXT 1x1 1/1/1;]]");
}

} // namespace
} // namespace vxsign::test
