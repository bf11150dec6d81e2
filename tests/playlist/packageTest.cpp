// Packages of a play list and its files, on their way to a sign, and the codes of the sign's file list.
#include "playlist/fileList.h"
#include "support/playlistTree.h"
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

class Packages : public ScriptedTest
{
protected:
    // The files that were sent, of one packet each, as "path=contents"; of the last one the path alone.
    std::string Sent() const
    {
        std::string text;
        for (const Packet& request : sign.requests) {
            text += request.Minor() == 8 ? ToText(Part(request.Payload(), 10)).c_str() : "?";
            if (&request != &sign.requests.back())
                text += "=" + ToText(request.Extended()) + " ";
        }
        return text;
    }

    std::uint32_t Send(const char* name, const Bytes& package) const
    {
        return vxRWFile(WriteBytes(folder, name, package).c_str(), nullptr, VX_MOVE_WRITE);
    }
};

Bytes FlatEntry(std::string_view name, const Bytes& contents)
{
    return Bytes{static_cast<std::uint8_t>(contents.size()), 0, 0, 0} +
           Hex("54 1F EEEE 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01") + Padded(name, 64) + contents;
}

Bytes TreeEntry(std::string_view name, const Bytes& contents)
{
    return Bytes{static_cast<std::uint8_t>(contents.size()), 0, 0, 0} + Hex("54EE 0200") +
           Hex("1F EEEEEE 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01") + Hex("FF EEEEEE") + Bytes(16, 1) +
           Padded(name, 64) + contents;
}

const Bytes kFlatHead = Hex("4C50 0200 EEEEEEEEEEEEEEEE");
const Bytes kTreeHead = Hex("4D50 0200 EEEEEEEEEEEEEEEE");

TEST_F(Packages, FlatOnesAreUnpackedAndSent)
{
    sign.Then(3, Good());
    // The last file's contents are cut short.
    Bytes package = kFlatHead + FlatEntry("A.BMP", FromText("BMabc")) + FlatEntry("B.TXT", FromText("xyz"));
    package.pop_back();
    EXPECT_EQ(Send("PlayFile.PLS", package), 0u);
    // The entry's folder counts, whatever the contents are.
    EXPECT_EQ(Sent(), "D:\\T\\A.BMP=BMabc D:\\T\\B.TXT=xy C:\\SEQUENT.SYS");
    const Bytes record = Hex("44 54 0F 1F 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 00000000");
    const Bytes sequence = Hex("5351 0400 0200 0000") + record + Padded("A.BMP", 12) + record + Padded("B.TXT", 12);
    EXPECT_EQ(sign.requests.back().Extended(), sequence);
    EXPECT_EQ(ReadBytes(folder, "SEQUENT.SYS"), sequence);
    EXPECT_EQ(folder.Read("A.BMP"), "BMabc");
    EXPECT_EQ(sign.Config().progressTotal, 3);
    EXPECT_EQ(sign.Config().progressPos, 3);
}

TEST_F(Packages, TreeOnesKeepAllSchedules)
{
    sign.Then(2, Good());
    // It promises a second file.
    EXPECT_EQ(Send("PLAYFILE.PLM", kTreeHead + TreeEntry("A.BMP", FromText("BMabc"))), 0u);
    EXPECT_EQ(Sent(), "D:\\T\\A.BMP=BMabc C:\\SEQUENT.SYS");
    EXPECT_EQ(sign.requests.back().Extended(),
              Hex("5351 0600 0100 0000 4653 2400 0200 01 01 1F000000 00000000") + FromText("D:\\P\\A.BMP") +
                  Hex("00 00000000 1F 00 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 FF 00") + Bytes(16, 1));
    EXPECT_EQ(sign.Config().progressTotal, 3);
    EXPECT_EQ(sign.Config().progressPos, 2);
}

TEST_F(Packages, EndWithTheFirstFailure)
{
    sign.Then(Good()).Then(Refusal(8451));
    EXPECT_EQ(Send("PLAYFILE.PLS", kFlatHead + FlatEntry("A.TXT", {1}) + FlatEntry("B.TXT", {2})), 8451u);
    EXPECT_EQ(sign.requests.size(), 2u);
    EXPECT_EQ(sign.Config().progressPos, 1);
    EXPECT_EQ(Part(ReadBytes(folder, "SEQUENT.SYS"), 0, 8), Hex("5351 0400 0000 0000"));
    sign.Renew();
    for (const char* const name : {"../up", "x/../../up", "..\\up", "no/such", ""}) {
        EXPECT_EQ(Send("PLAYFILE.PLS", kFlatHead + FlatEntry(name, {1})), 20737u);
        EXPECT_EQ(Send("PLAYFILE.PLM", kTreeHead + TreeEntry(name, {1})), 20737u);
    }
    EXPECT_EQ(vxRWFile(folder.Path("no/PLAYFILE.PLM").c_str(), nullptr, VX_MOVE_WRITE), 20737u);
    EXPECT_TRUE(sign.requests.empty());
    // What is no package sends the list that is there.
    WriteBytes(folder, "SEQUENT.SYS", {7, 8, 9});
    sign.Then(Good()).Then(Refusal(8451));
    EXPECT_EQ(Send("PLAYFILE.PLS", kTreeHead + TreeEntry("A", {1})), 0u);
    EXPECT_EQ(sign.requests[0].Extended(), Bytes({7, 8, 9}));
    EXPECT_EQ(Send("PLAYFILE.PLM", {}), 8451u);
    std::filesystem::remove(folder.Path("SEQUENT.SYS"));
    EXPECT_EQ(Send("PLAYFILE.PLM", {}), 20737u);
    EXPECT_EQ(sign.Config().progressTotal, 1);
    // More entries than there are bytes.
    sign.Then(Good());
    EXPECT_EQ(Send("PLAYFILE.PLS", Hex("4C50 FFFF EEEEEEEEEEEEEEEE")), 0u);
    EXPECT_EQ(sign.requests.back().Extended(), Hex("5351 0400 0000 0000"));
}

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
