// Quick show over a real UDP socket, against a whole sign on loopback.
#include "support/signFixture.h"
#include "support/udpPeer.h"
#include "thread/threadRecords.h"

#include <vxsign/vxsign.h>

namespace vxsign::test {
namespace {

constexpr const char* kHost = "127.0.0.1";

// A sign with a folder of its own, and a folder for the library's temporary files.
class QuickShow : public SignTest
{
protected:
    QuickShow()
    {
        ::setenv("TMPDIR", temp.Path().c_str(), 1);
        Forget();
    }
    ~QuickShow() override
    {
        ::unsetenv("TMPDIR");
        Forget();
    }

    // What the thread knows of its sign.
    static void Forget()
    {
        *ThreadState() = {};
        *ThreadConfig() = {};
    }

    Bytes Serve(const Bytes& request)
    {
        const Packet packet{request};
        const bool isRefused = refused == packet.Major() * 100 + packet.Minor();
        return isRefused ? MakeReply(packet, 1, {0x03, 0x21, 0, 0}, {}) : sign->Answer(request); // 8451
    }

    // Major and minor of what the sign was asked, as "1.16 2.8". Nothing is remembered of it, unless it is told to.
    std::string Road(bool remembers = false)
    {
        std::string road;
        for (const Packet& request : peer.TakeRequests()) {
            lastAddress = request.Word(8);
            road += (road.empty() ? "" : " ") + std::to_string(request.Major()) + "." + std::to_string(request.Minor());
        }
        if (!remembers)
            Forget();
        return road;
    }

    std::uint16_t Port() const { return peer.Port(); }

    std::uint32_t ShowHello(std::uint32_t toE = 0, int sendSequence = 1) const
    {
        return vxShowMsg(AsBytes("HELLO"), 5, '2', '3', '1', 7, kHost, Port(), toE, sendSequence);
    }
    static const std::uint8_t* AsBytes(const char* text) { return reinterpret_cast<const std::uint8_t*>(text); }

    const TempFolder temp;
    std::uint16_t lastAddress = 0;
    std::atomic<int> refused = 0; // major and minor in one number
    UdpPeer peer{[this](const Bytes& request) { return Serve(request); }};
};

const std::string kHello = std::string("\x01Z00\x02"
                                       "AA\x1A"
                                       "2\x1C"
                                       "3\x0A"
                                       "I1\x0A"
                                       "O1\x0E"
                                       "20007HELLO\x04",
                                       29);

TEST_F(QuickShow, TextGoesItsWholeRoad)
{
    EXPECT_EQ(ShowHello(1), 0u);
    // The style is written once: the second time it is as it should be. The configuration is read once for the thread.
    EXPECT_EQ(Road(true), "1.16 1.2 1.16 2.12 2.8 2.2");
    EXPECT_EQ(ShowHello(1), 0u);
    EXPECT_EQ(Road(true), "1.16 2.8 2.2");
    EXPECT_EQ(ThreadConfig()->initialised, 1u) << "its configuration stays";
    EXPECT_EQ(ThreadConfig()->progressTotal, 1);
    EXPECT_EQ(ThreadConfig()->progressPos, 1);
    EXPECT_EQ(folder.Read("E/T/QMSG.Nmg"), kHello);
    EXPECT_EQ(OnSign("C/SEQUENT.SYS"), FlatList({"QMSG.Nmg"}, "ET"));
    EXPECT_TRUE(temp.IsEmpty());
}

TEST_F(QuickShow, TheDriveFollowsTheSign)
{
    EXPECT_EQ(ShowHello(0, 0), 0u);
    EXPECT_EQ(folder.Read("F/T/QMSG.Nmg"), kHello);
    EXPECT_FALSE(folder.Has("C/SEQUENT.SYS")) << "without the sequence the play list stays";
    Road();
    Restart("CDE");
    Road(); // the peer's thread sees the new sign
    EXPECT_EQ(ShowHello(), 0u);
    EXPECT_EQ(folder.Read("D/T/QMSG.Nmg"), kHello);
    EXPECT_EQ(OnSign("C/SEQUENT.SYS"), FlatList({"QMSG.Nmg"}));
    EXPECT_TRUE(temp.IsEmpty());
}

TEST_F(QuickShow, PicturesGoWholeAndUnchanged)
{
    EXPECT_EQ(vxShowPic(AsBytes("BMpicture"), 9, '1', 3, kHost, Port(), 0), 0u);
    const std::string message = folder.Read("F/T/PMSG.Nmg");
    EXPECT_EQ(message.size(), 63u + 9);
    EXPECT_EQ(message.substr(63), "BMpicture");
    EXPECT_EQ(message[31], 9);
    EXPECT_EQ(OnSign("C/SEQUENT.SYS"), FlatList({"PMSG.Nmg"}, "FT"));

    // An empty picture is a header alone.
    EXPECT_EQ(vxShowPicEx(AsBytes(""), 0, '1', 3, kHost, Port(), 1, VX_CHANNEL_UDP, nullptr, 0, 0), 0u);
    EXPECT_EQ(folder.Read("E/T/PMSG.Nmg").size(), 63u);
    EXPECT_TRUE(temp.IsEmpty());
}

// What a refused transfer leaves behind differs from function to function.
TEST_F(QuickShow, RefusedMessages)
{
    refused = 208;
    EXPECT_EQ(
        vxShowMsgTimeout(AsBytes("x"), 1, '1', '1', '1', 1, kHost, Port(), 0, 1, 2, 100, VX_CHANNEL_UDP, nullptr, 0, 0),
        8451u);
    EXPECT_EQ(vxShowMsgEx(AsBytes("x"), 1, '1', '1', '1', 1, kHost, Port(), 0, 1, VX_CHANNEL_UDP, nullptr, 0, 0),
              8451u);
    EXPECT_EQ(vxShowPic(AsBytes("x"), 1, '1', 1, kHost, Port(), 0), 8451u);
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(ShowHello(), 8451u);
    EXPECT_FALSE(temp.IsEmpty()) << "the plain form leaves its message";
    EXPECT_FALSE(folder.Has("C/SEQUENT.SYS"));

    // The former place for temporary files counts for texts.
    const TempFolder own;
    static std::string ownPath;
    ownPath = own.Path();
    ThreadConfig()->onTempPath = [](vxApiConfig*, char* buffer, std::uint32_t capacity) {
        std::snprintf(buffer, capacity, "%s", ownPath.c_str());
    };
    ShowHello();
    EXPECT_FALSE(own.IsEmpty());
}

TEST_F(QuickShow, ASignThatCannotBeReached)
{
    refused = 116;
    EXPECT_EQ(vxShowMsgEx(AsBytes("x"), 1, '1', '1', '1', 1, kHost, Port(), 0, 1, VX_CHANNEL_UDP, nullptr, 0, 0x0102),
              8451u);
    EXPECT_EQ(peer.TakeRequests().at(0).Word(8), 0x0102);
    EXPECT_FALSE(temp.IsEmpty()) << "the text forms leave their message";
    for (const char* const host : {"", "999.1.1.1", "sign.local", "12345678901234567890123456789012"})
        EXPECT_EQ(vxShowMsgTimeout(AsBytes("x"), 1, '1', '1', '1', 1, host, Port(), 0, 1, 1, 50, VX_CHANNEL_TCP,
                                   nullptr, 0, 0),
                  20736u)
            << host;
}

TEST_F(QuickShow, ListsOfFiles)
{
    const std::string picture = temp.Write("PIC.BMP", "BM123");
    const std::string message = temp.Write("TEXT.NMG", "\x01Z00\x02"
                                                       "AA\x04");
    const char* files[] = {picture.c_str(), message.c_str()};
    EXPECT_EQ(vxShowFiles(files, 2, '4', 300, kHost, Port(), 0), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.12 2.8 2.8 2.2");
    EXPECT_EQ(folder.Read("F/P/PIC.BMP"), "BM123");
    EXPECT_EQ(folder.Read("F/T/TEXT.NMG").size(), 8u);
    Bytes list = FlatList({"PIC.BMP"}, "FP") + Part(FlatList({"TEXT.NMG"}, "FT"), 8);
    list[4] = 2;
    EXPECT_EQ(OnSign("C/SEQUENT.SYS"), list);
    const auto style = sign->Records().DisplayStyle();
    EXPECT_EQ(style[11], '4');
    EXPECT_EQ(style[12], '4');
    EXPECT_EQ(style[14], 255);
    EXPECT_EQ(style[16] + 256 * style[17], 300);

    // The same wish again writes no style. It gives a destination, too.
    EXPECT_EQ(vxShowFilesEx(files, 2, '4', 300, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0x0102), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.8 2.2");
    EXPECT_EQ(lastAddress, 0x0102);

    // Parts of the work.
    const auto part = [&](std::uint8_t what) {
        return vxShowFilesSpe(files, 2, '4', 300, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0, what);
    };
    EXPECT_EQ(part(1), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.8");
    EXPECT_EQ(part(2), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.2");
    EXPECT_EQ(OnSign("C/SEQUENT.SYS"), list) << "folder and name come from the files' first bytes all the same";
    EXPECT_EQ(part(3), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16");

    // A file that fails ends the list; no sequence goes out.
    files[0] = "/nowhere/at/all";
    EXPECT_EQ(vxShowFiles(files, 2, '4', 300, kHost, Port(), 0), 20737u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16");

    const std::string file = temp.Write("A.BMP", "BM");
    std::vector<const char*> many(200, file.c_str());
    EXPECT_EQ(vxShowFiles(many.data(), 200, '1', 1, kHost, Port(), 0), 0u);
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS").size(), 8u + 128 * 36);
    EXPECT_EQ(static_cast<unsigned char>(folder.Read("C/SEQUENT.SYS")[4]), 128);
}

TEST_F(QuickShow, TreeForm)
{
    const std::string picture = temp.Write("PIC.BMP", "BM123");
    const char* files[] = {"/nowhere/at/all", picture.c_str()};
    const std::uint8_t types[] = {5, 9};
    EXPECT_EQ(vxShowFilesII(files, 2, types, 0, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0, 0), 0u)
        << "a file that fails does not stop the list";
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.2") << "no style";
    const std::string list = folder.Read("C/SEQUENT.SYS");
    ASSERT_EQ(list.size(), 8u + 2 * 358);
    EXPECT_EQ(FromText(list.substr(0, 8)), Hex("5351 06 00 0200 CC02"));
    const Bytes record = FromText(list.substr(8 + 358));
    EXPECT_EQ(record, Hex("4653 1200 0100 01 01 54010000 00000000") + FromText("F:\\P\\PIC.BMP") + Bytes(308) +
                          Hex("09 00 FF FF 7F00 0820 01 01 00 00 01 01 0820 01 01 23 59 01 01"));
}

TEST_F(QuickShow, TubesAndEasyFiles)
{
    EXPECT_EQ(vxTubeCtrl(5, AsBytes("tube"), 4, kHost, Port()), 0u);
    EXPECT_EQ(Road(), "14.5");
    EXPECT_EQ(sign->Records().TubeData().at(5), FromText("tube"));
    EXPECT_EQ(vxTubeCtrlEx(6, AsBytes("tube"), 4, kHost, Port(), VX_CHANNEL_UDP, nullptr, 0, 0), 0u);
    EXPECT_EQ(Road(), "14.6");
    EXPECT_EQ(sign->Records().TubeData().count(6), 1u);
    EXPECT_EQ(vxTubeCtrl(7, nullptr, 0, kHost, Port()), 0u);
    EXPECT_EQ(Road(), "14.7");

    const std::string file = temp.Write("up", std::string(2000, 'u'));
    const std::string back = temp.Path("down");
    EXPECT_EQ(vxEasyWriteFile(file.c_str(), "D:\\X\\A.BIN", kHost, Port()), 0u);
    EXPECT_EQ(vxEasyReadFile(back.c_str(), "D:\\X\\A.BIN", kHost, Port()), 0u);
    EXPECT_EQ(temp.Read("down"), std::string(2000, 'u'));
    EXPECT_EQ(vxEasyReadFileEx(back.c_str(), "D:\\X\\NO.BIN", kHost, Port(), VX_CHANNEL_UDP, nullptr, 0, 7), 36872u);
    EXPECT_EQ(peer.TakeRequests().back().Word(8), 7);
    EXPECT_EQ(vxEasyWriteFileEx(file.c_str(), "D:\\X\\B.BIN", kHost, Port(), VX_CHANNEL_UDP, nullptr, 0, 7), 0u);
    EXPECT_EQ(peer.TakeRequests().back().Word(8), 7);
    EXPECT_EQ(folder.Read("D/X/B.BIN"), std::string(2000, 'u'));
}

} // namespace
} // namespace vxsign::test
