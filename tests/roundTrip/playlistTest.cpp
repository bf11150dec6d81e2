// Lists to a whole sign and back.
#include "roundTrip/roundTrip.h"
#include "support/playlistTree.h"

namespace vxsign::test {
namespace {

using Paths = std::vector<std::string>;

class PlaylistTransfer : public RoundTrip
{
protected:
    // A sign that starts with these drives. Nothing is known of it yet.
    void Start(const std::string& drives, bool treeForm = false)
    {
        Bytes config(512);
        config[155] = treeForm ? 8 : 0;
        Make("C/CONFIG.SYS", config);
        for (const char* const drive : {"D", "E", "F"})
            std::filesystem::remove_all(folder.path / drive);
        Restart(drives);
        *ThreadState() = {};
    }

    void AddPictures()
    {
        for (const std::string& name : {std::string("A"), std::string("B")}) {
            local.Write(name + ".BMP", "BM" + name);
            AddTopFile(list, name + ".BMP");
        }
    }

    // The files that went over the line since the last call, "<" to the sign and ">" from it. Properties do not count.
    Paths Traffic()
    {
        Paths paths;
        for (const Packet& request : line.requests) {
            const Bytes payload = request.Payload();
            const char* const text = reinterpret_cast<const char*>(payload.data());
            if (request.Major() == 2 && request.Minor() == 13 && payload.at(10) == 1)
                paths.push_back(std::string("<") + (text + 14));
            if (request.Major() == 1 && request.Minor() == 17 && payload.at(4) == 1)
                paths.push_back(std::string(">") + (text + 8));
        }
        line.requests.clear();
        return paths;
    }

    std::uint16_t Steps() const { return line.Config().progressPos; }

    vxPlaylistState& list = FreshList(local.Path());
};

TEST_F(PlaylistTransfer, SendsWhatChanged)
{
    Start("CDEF");
    AddPictures();
    local.Write("C.BMP", "BMC");
    AddFile(Add(Add(list.items, "G", playlist::kGroup).children, "G", playlist::kGroup), "C.BMP");
    AddTopFile(list, "MISSING");

    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">D:\\FILELSTI.LST", "<F:\\P\\A.BMP", "<F:\\P\\B.BMP", "<F:\\P\\C.BMP",
                                "<D:\\FILELSTI.LST", "<C:\\SEQUENT.SYS"}));
    EXPECT_EQ(folder.Read("F/P/C.BMP"), "BMC");
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS").substr(0, 6), std::string("SQ\x04\0\x04\0", 6));
    EXPECT_EQ(line.Config().progressTotal, 128);
    EXPECT_EQ(Steps(), 127);

    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">D:\\FILELSTI.LST", "<C:\\SEQUENT.SYS"}));
    local.Write("B.BMP", "BM3");
    EXPECT_EQ(vxPLSpeSendToLED(3, 1), 0u);
    EXPECT_EQ(Traffic(),
              (Paths{">D:\\FILELSTI.LST", "<F:\\P\\B.BMP", "<D:\\FILELSTI.LST", "<c:\\playlist\\sequent3.sys"}));
    EXPECT_EQ(vxPLSendToLED(0), 0u);
    EXPECT_EQ(vxPLSpeSendToLED(255, 0), 0u);
    EXPECT_EQ(Traffic(), (Paths{"<C:\\SEQUENT.SYS", "<c:\\playlist\\sequent255.sys"}));

    // A file that the sign knows and the PC lost: nothing can be sent, but the list learns of it.
    std::filesystem::remove(local.Path("A.BMP"));
    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">D:\\FILELSTI.LST", "<D:\\FILELSTI.LST", "<C:\\SEQUENT.SYS"}));
    EXPECT_EQ(folder.Read("D/FILELSTI.LST").substr(0, 4), std::string("\0\0\4\0", 4));
}

TEST_F(PlaylistTransfer, SendsTheFormThatTheSignReads)
{
    Start("CDE", true);
    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">D:\\FILELSTI.LST", "<C:\\SEQUENT.SYS"}));
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), std::string("SQ\x06\0\0\0\0\0", 8));
    AddPictures();
    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(folder.Read("D/P/A.BMP"), "BMA");
    EXPECT_EQ(local.Read("SEQ_PC.SYS"), folder.Read("C/SEQUENT.SYS"));

    // A sign that tells nothing gets the flat form, if it takes it.
    *ThreadState() = {};
    line.raw = {};
    line.otherwise = [](const Packet& request) { return request.Major() == 2 ? Good() : Refusal(36872); };
    EXPECT_EQ(vxPLSendToLED(0), 0u);
    EXPECT_EQ(local.Read("SEQ_PC.SYS").substr(0, 4), std::string("SQ\x04\0", 4));
    line.otherwise = [](const Packet&) { return Refusal(8451); };
    EXPECT_EQ(vxPLSendToLED(1), 8451u);
    list.playlistDir.clear();
    EXPECT_EQ(vxPLSendToLED(1), 20737u) << "there is no directory to write to";
}

TEST_F(PlaylistTransfer, AnAbortEndsTheFiles)
{
    Start("CDEF");
    AddPictures();
    line.Config().abortFlag = 1;
    EXPECT_EQ(vxPLSendToLED(1), 20497u);
    EXPECT_EQ(Steps(), 127);
    EXPECT_TRUE(local.Has("SEQ_PC.SYS"));
    EXPECT_EQ(vxPLReadFromLED(1), 20497u);
    EXPECT_EQ(list.items.size(), 2u);

    // The same while the first file is on its way.
    line.Config().abortFlag = 0;
    Traffic();
    line.raw = [this](const Packet& request) {
        if (request.Major() == 2)
            line.Config().abortFlag = 1;
        return Answer(request);
    };
    EXPECT_EQ(vxPLSendToLED(1), 20497u);
    EXPECT_FALSE(folder.Has("F/P/B.BMP"));
    EXPECT_EQ(local.Read("FILELSTI.LST").substr(0, 4), std::string("\0\0\1\0", 4)) << "the first file alone";
}

TEST_F(PlaylistTransfer, ReadsTheListAndWhatDiffers)
{
    Start("CDE");
    EXPECT_EQ(vxPLReadFromLED(1), 36872u) << "there is none yet";
    AddPictures();
    EXPECT_EQ(vxPLReadFromLED(0), 36872u);
    EXPECT_EQ(list.items.size(), 2u) << "a failure leaves the list";
    ASSERT_EQ(vxPLSendToLED(1), 0u);
    Traffic();
    list.items.clear();

    EXPECT_EQ(vxPLReadFromLED(0), 0u);
    EXPECT_EQ(Traffic(), (Paths{">C:\\SEQUENT.SYS"}));
    EXPECT_EQ(Steps(), 2);
    EXPECT_EQ(Describe(list), ":0/0/255[:0/0/255[D\\P\\A.BMP 1x1 0/0/0;]]:0/0/0[:0/0/0[D\\P\\B.BMP 1x1 0/0/0;]]");
    EXPECT_EQ(vxPLReadFromLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">C:\\SEQUENT.SYS", ">D:\\FILELSTI.LST"}));
    EXPECT_EQ(Steps(), 2) << "the sign's file list is no step here";
    local.Write("B.BMP", "changed");
    EXPECT_EQ(vxPLReadFromLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">C:\\SEQUENT.SYS", ">D:\\FILELSTI.LST", ">D:\\P\\B.BMP"}));
    EXPECT_EQ(Steps(), 3);
    EXPECT_EQ(local.Read("B.BMP"), "BMB");
    std::filesystem::remove(folder.Path("D/FILELSTI.LST"));
    EXPECT_EQ(vxPLReadFromLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">C:\\SEQUENT.SYS", ">D:\\FILELSTI.LST", ">D:\\P\\A.BMP", ">D:\\P\\B.BMP"}));
}

TEST_F(PlaylistTransfer, NamesFromTheSignStayInTheDirectory)
{
    Start("CDE");
    list.playlistDir = local.Path("list");
    std::filesystem::create_directory(list.playlistDir);
    local.Write("up", "mine");
    const std::string longName = std::string(40, 'n');
    WriteBytes(folder, "C/SEQUENT.SYS",
               Hex("5351 0600 0200 0000 4653 0000 0000 01 00 20000000 00000000") + Padded("D:\\T\\../up", 12) +
                   Bytes(4) + Hex("4653 0000 0000 01 00 50000000 00000000") + Padded("D:\\T\\" + longName, 60) +
                   Bytes(4));
    EXPECT_EQ(vxPLReadFromLED(1), 0u);
    EXPECT_EQ(Traffic(), (Paths{">C:\\SEQUENT.SYS", ">D:\\FILELSTI.LST", ">D:\\T\\" + longName.substr(0, 26)}));
    EXPECT_EQ(Steps(), 4);
    EXPECT_EQ(local.Read("up"), "mine");
    // Nor are files from elsewhere sent.
    EXPECT_EQ(vxPLSendToLED(1), 0u);
    EXPECT_EQ(Traffic().back(), "<C:\\SEQUENT.SYS");
    EXPECT_FALSE(folder.Has("D/F/up"));
}

} // namespace
} // namespace vxsign::test
