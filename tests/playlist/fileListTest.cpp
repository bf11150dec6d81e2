// The codes of the sign's file list.
#include "playlist/fileList.h"
#include "support/playlistTree.h"

#include <tuple>

namespace vxsign::test {
namespace {

using playlist::CodeOfLocalFile;
using playlist::FileList;

using FileLists = FolderTest;

TEST_F(FileLists, CodesOfLocalFiles)
{
    using Row = std::tuple<std::string, std::string, std::uint32_t>;
    const std::string longFile(1024, 'x');
    for (const auto& [contents, name, code] : {
             Row{"abc", "A.NMG", 0x3C17C8F2}, Row{"abc", "", 0x3C170000}, Row{"", "B.NMG", 0x5CDE04EF},
             Row{std::string(2048, 'x'), "A", 0xA1EAF5A3},
             Row{longFile + std::string(1025, 'y'), "A", 0x3603F5A3}, // nothing behind byte 1024 counts
             Row{longFile + std::string(5000, 'z'), "A", 0x3603F5A3},
             Row{"\xB9\xBC", "A", 0}, // contents of code 0 give 0
         })
        EXPECT_EQ(CodeOfLocalFile(folder.Write("F", contents), name), code) << contents.size();
    EXPECT_EQ(CodeOfLocalFile(folder.Path("none"), "A"), 0u);
    EXPECT_EQ(CodeOfLocalFile("", "A"), 0u);
}

TEST_F(FileLists, BlockFindsStoresAndKeepsWhatItDoesNotKnow)
{
    const std::string path = WriteBytes(folder, "L", Hex("A1A2 0200 B1B2B3B4") + Hex("F2C8 0100 F2C8 0200 A3F5 0300"));
    FileList list = FileList::Load(path);
    EXPECT_EQ(list.Find("A.NMG"), 0x0001C8F2u) << "the first of two";
    EXPECT_EQ(list.Find("A"), 0u) << "an entry not in use";
    list.Store(0x0007C8F2);
    list.Store(0x000904EF);
    ASSERT_TRUE(list.Save(path));
    Bytes expected = Hex("A1A2 0300 B1B2B3B4") + Hex("F2C8 0700 F2C8 0200 EF04 0900");
    expected.resize(4104);
    EXPECT_EQ(ReadBytes(folder, "L"), expected);
    EXPECT_FALSE(list.Save(folder.Path("no/L")));
    EXPECT_EQ(FileList::Load(folder.Path("none")).Find("A"), 0u);
}

TEST_F(FileLists, BlockThatIsFullLosesItsLastEntry)
{
    for (const char* const head : {"0000 FF03 00000000", "0000 FFFF 00000000"}) {
        const std::string path = WriteBytes(folder, "L", Hex(head) + Bytes(4096, 0x11));
        FileList list = FileList::Load(path);
        list.Store(0x0005F5A3);
        EXPECT_EQ(list.Find("A"), 0x0005F5A3u);
        list.Store(0x0006C8F2);
        ASSERT_TRUE(list.Save(path));
        EXPECT_EQ(ReadBytes(folder, "L"), Hex("0000 FF03 00000000") + Bytes(4 * 1022, 0x11) + Hex("F2C80600 11111111"));
    }
}

} // namespace
} // namespace vxsign::test
