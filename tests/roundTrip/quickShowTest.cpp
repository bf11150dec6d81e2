// Quick show over a real UDP socket, against a whole sign on loopback.
#include "support/signFixture.h"
#include "support/udpPeer.h"

#include <vxsign/vxsign.h>

#include <atomic>
#include <cstdlib>
#include <thread>

namespace vxsign::test {
namespace {

constexpr const char* kHost = "127.0.0.1";

// A sign with a folder of its own, and a folder for the library's temporary files. Each call runs on a thread of its
// own, so that nothing of an earlier sign is remembered, unless it is told to stay on the test's.
class QuickShow : public SignTest
{
protected:
    void SetUp() override { ::setenv("TMPDIR", temp.Path().c_str(), 1); }
    void TearDown() override { ::unsetenv("TMPDIR"); }

    void Start(const std::string& drives = "CDEF")
    {
        Restart(drives);
        peer = std::make_unique<UdpPeer>([this](const Bytes& request) {
            const Packet packet{request};
            if (packet.Major() == refusedMajor && packet.Minor() == refusedMinor)
                return MakeReply(packet, 1, {0x03, 0x21, 0, 0}, {}); // 8451
            return sign->Answer(request);
        });
    }

    std::uint32_t OnFreshThread(const std::function<std::uint32_t()>& call)
    {
        std::uint32_t result = 0;
        std::thread([&] { result = call(); }).join();
        return result;
    }

    // Major and minor of what the sign was asked, as "1.16 2.8".
    std::string Road()
    {
        std::string road;
        for (const Packet& request : peer->TakeRequests())
            road += (road.empty() ? "" : " ") + std::to_string(request.Major()) + "." + std::to_string(request.Minor());
        return road;
    }

    std::uint16_t Port() const { return peer->Port(); }

    TempFolder temp;
    std::unique_ptr<UdpPeer> peer;
    std::atomic<int> refusedMajor = 0;
    std::atomic<int> refusedMinor = 0;
};

std::uint32_t ShowHello(std::uint16_t port, std::uint32_t toE = 0, int sendSequence = 1)
{
    return vxShowMsg(reinterpret_cast<const std::uint8_t*>("HELLO"), 5, '2', '3', '1', 7, kHost, port, toE,
                     sendSequence);
}

const std::string kHello = std::string("\x01Z00\x02"
                                       "AA\x1A"
                                       "2\x1C"
                                       "3\x0A"
                                       "I1\x0A"
                                       "O1\x0E"
                                       "20007HELLO\x04",
                                       29);

std::string FlatList(char drive, char folder, const std::string& name)
{
    std::string list("SQ\x04\0\x01\0\0\0", 8);
    list += std::string{drive, folder, '\x0F', '\xFF'} + std::string(20, '\0') + name;
    list.resize(44);
    return list;
}

TEST_F(QuickShow, TextGoesItsWholeRoad)
{
    Start();
    std::string roads[2];
    EXPECT_EQ(OnFreshThread([&] {
                  const std::uint32_t result = ShowHello(Port(), 1);
                  roads[0] = Road();
                  EXPECT_EQ(ShowHello(Port(), 1), 0u);
                  roads[1] = Road();
                  const auto& config = *static_cast<const vxApiConfig*>(vxTLSGet(0));
                  EXPECT_EQ(config.initialised, 1u) << "its configuration stays";
                  EXPECT_EQ(config.progressTotal, 1);
                  EXPECT_EQ(config.progressPos, 1);
                  return result;
              }),
              0u);
    EXPECT_EQ(folder.Read("E/T/QMSG.Nmg"), kHello);
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), FlatList('E', 'T', "QMSG.Nmg"));
    // The style is written once: the second time it is as it should be. The configuration is read once for the thread.
    EXPECT_EQ(roads[0], "1.16 1.2 1.16 2.12 2.8 2.2");
    EXPECT_EQ(roads[1], "1.16 2.8 2.2");
    EXPECT_TRUE(temp.IsEmpty());
}

TEST_F(QuickShow, TheDriveFollowsTheSign)
{
    Start("CDE");
    EXPECT_EQ(OnFreshThread([&] { return ShowHello(Port()); }), 0u);
    EXPECT_EQ(folder.Read("D/T/QMSG.Nmg"), kHello);
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), FlatList('D', 'T', "QMSG.Nmg"));
}

TEST_F(QuickShow, WithoutTheSequenceThePlayListStays)
{
    Start();
    EXPECT_EQ(OnFreshThread([&] { return ShowHello(Port(), 0, 0); }), 0u);
    EXPECT_EQ(folder.Read("F/T/QMSG.Nmg"), kHello);
    EXPECT_FALSE(folder.Has("C/SEQUENT.SYS"));
    EXPECT_TRUE(temp.IsEmpty());
}

TEST_F(QuickShow, PicturesGoWholeAndUnchanged)
{
    Start();
    const std::string picture = "BMpicture";
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowPic(reinterpret_cast<const std::uint8_t*>(picture.data()), 9, '1', 3, kHost, Port(), 0);
              }),
              0u);
    const std::string message = folder.Read("F/T/PMSG.Nmg");
    EXPECT_EQ(message.size(), 63u + 9);
    EXPECT_EQ(message.substr(63), picture);
    EXPECT_EQ(message[31], 9);
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), FlatList('F', 'T', "PMSG.Nmg"));

    // An empty picture is a header alone.
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowPicEx(reinterpret_cast<const std::uint8_t*>(""), 0, '1', 3, kHost, Port(), 1,
                                     VX_CHANNEL_UDP, nullptr, 0, 0);
              }),
              0u);
    EXPECT_EQ(folder.Read("E/T/PMSG.Nmg").size(), 63u);
    EXPECT_TRUE(temp.IsEmpty());
}

// What a refused transfer leaves behind differs from function to function.
TEST_F(QuickShow, RefusedMessages)
{
    Start();
    refusedMajor = 2;
    refusedMinor = 8;
    const auto* const text = reinterpret_cast<const std::uint8_t*>("x");
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowMsgTimeout(text, 1, '1', '1', '1', 1, kHost, Port(), 0, 1, 2, 100, VX_CHANNEL_UDP,
                                          nullptr, 0, 0);
              }),
              8451u);
    EXPECT_EQ(OnFreshThread([&] { return vxShowPic(text, 1, '1', 1, kHost, Port(), 0); }), 8451u);
    EXPECT_TRUE(temp.IsEmpty());
    EXPECT_EQ(OnFreshThread([&] { return ShowHello(Port()); }), 8451u);
    EXPECT_FALSE(temp.IsEmpty()) << "the plain form leaves its message";
    EXPECT_FALSE(folder.Has("C/SEQUENT.SYS"));
}

TEST_F(QuickShow, ASignThatCannotBeReached)
{
    Start();
    refusedMajor = 1;
    refusedMinor = 16;
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowMsgEx(reinterpret_cast<const std::uint8_t*>("x"), 1, '1', '1', '1', 1, kHost, Port(), 0,
                                     1, VX_CHANNEL_UDP, nullptr, 0, 0x0102);
              }),
              8451u);
    EXPECT_EQ(peer->TakeRequests().at(0).Word(8), 0x0102);
    EXPECT_FALSE(temp.IsEmpty()) << "the text forms leave their message";
    for (const char* const host : {"", "999.1.1.1", "sign.local", "12345678901234567890123456789012"})
        EXPECT_EQ(OnFreshThread([&] {
                      return vxShowMsgTimeout(reinterpret_cast<const std::uint8_t*>("x"), 1, '1', '1', '1', 1, host,
                                              Port(), 0, 1, 1, 50, VX_CHANNEL_TCP, nullptr, 0, 0);
                  }),
                  20736u)
            << host;
}

TEST_F(QuickShow, TheFormerTempPathCountsForTexts)
{
    Start();
    refusedMajor = 2;
    refusedMinor = 8;
    const TempFolder own;
    static std::string ownPath;
    ownPath = own.Path();
    OnFreshThread([&] {
        vxApiConfig config{};
        config.onTempPath = [](vxApiConfig*, char* buffer, std::uint32_t capacity) {
            std::snprintf(buffer, capacity, "%s", ownPath.c_str());
        };
        vxInitAPI(&config);
        return ShowHello(Port());
    });
    EXPECT_FALSE(own.IsEmpty());
}

TEST_F(QuickShow, ListsOfFiles)
{
    Start();
    const std::string picture = temp.Write("PIC.BMP", "BM123");
    const std::string message = temp.Write("TEXT.NMG", "\x01Z00\x02"
                                                       "AA\x04");
    const char* files[] = {picture.c_str(), message.c_str()};
    EXPECT_EQ(OnFreshThread([&] { return vxShowFiles(files, 2, '4', 300, kHost, Port(), 0); }), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.12 2.8 2.8 2.2");
    EXPECT_EQ(folder.Read("F/P/PIC.BMP"), "BM123");
    EXPECT_EQ(folder.Read("F/T/TEXT.NMG").size(), 8u);
    std::string list = FlatList('F', 'P', "PIC.BMP") + FlatList('F', 'T', "TEXT.NMG").substr(8);
    list[4] = 2;
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), list);
    const auto style = sign->Records().DisplayStyle();
    EXPECT_EQ(style[11], '4');
    EXPECT_EQ(style[12], '4');
    EXPECT_EQ(style[14], 255);
    EXPECT_EQ(style[16] + 256 * style[17], 300);

    // The same wish again writes no style. It gives a destination, too.
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowFilesEx(files, 2, '4', 300, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0x0102);
              }),
              0u);
    EXPECT_EQ(peer->Last().Word(8), 0x0102);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.8 2.2");

    // Parts of the work.
    const auto part = [&](std::uint8_t what) {
        return OnFreshThread(
            [&] { return vxShowFilesSpe(files, 2, '4', 300, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0, what); });
    };
    EXPECT_EQ(part(1), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.8");
    EXPECT_EQ(part(2), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.2");
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS"), list) << "folder and name come from the files' first bytes all the same";
    EXPECT_EQ(part(3), 0u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16");

    // A file that fails ends the list; no sequence goes out.
    files[0] = "/nowhere/at/all";
    EXPECT_EQ(OnFreshThread([&] { return vxShowFiles(files, 2, '4', 300, kHost, Port(), 0); }), 20737u);
    EXPECT_EQ(Road(), "1.16 1.2 1.16");
}

TEST_F(QuickShow, AtMost128Files)
{
    Start();
    const std::string file = temp.Write("A.BMP", "BM");
    const std::vector<const char*> files(200, file.c_str());
    EXPECT_EQ(OnFreshThread(
                  [&] { return vxShowFiles(const_cast<const char**>(files.data()), 200, '1', 1, kHost, Port(), 0); }),
              0u);
    EXPECT_EQ(folder.Read("C/SEQUENT.SYS").size(), 8u + 128 * 36);
    EXPECT_EQ(static_cast<unsigned char>(folder.Read("C/SEQUENT.SYS")[4]), 128);
}

TEST_F(QuickShow, TreeForm)
{
    Start();
    const std::string picture = temp.Write("PIC.BMP", "BM123");
    const char* files[] = {"/nowhere/at/all", picture.c_str()};
    const std::uint8_t types[] = {5, 9};
    EXPECT_EQ(OnFreshThread([&] {
                  return vxShowFilesII(files, 2, types, 0, kHost, Port(), 0, VX_CHANNEL_UDP, nullptr, 0, 0, 0);
              }),
              0u)
        << "a file that fails does not stop the list";
    EXPECT_EQ(Road(), "1.16 1.2 1.16 2.8 2.2") << "no style";
    const std::string list = folder.Read("C/SEQUENT.SYS");
    ASSERT_EQ(list.size(), 8u + 2 * 358);
    EXPECT_EQ(FromText(list.substr(0, 8)), Hex("5351 06 00 0200 CC02"));
    const Bytes record = FromText(list.substr(8 + 358));
    EXPECT_EQ(Bytes(record.begin(), record.begin() + 16), Hex("4653 1200 0100 01 01 54010000 00000000"));
    EXPECT_EQ(Bytes(record.begin() + 16, record.begin() + 28), FromText("F:\\P\\PIC.BMP"));
    EXPECT_EQ(Bytes(record.begin() + 28, record.begin() + 336), Bytes(308));
    EXPECT_EQ(Bytes(record.begin() + 336, record.end()),
              Hex("09 00 FF FF 7F00 0820 01 01 00 00 01 01 0820 01 01 23 59 01 01"));
}

TEST_F(QuickShow, TubesAndEasyFiles)
{
    Start();
    const auto* const data = reinterpret_cast<const std::uint8_t*>("tube");
    EXPECT_EQ(OnFreshThread([&] { return vxTubeCtrl(5, data, 4, kHost, Port()); }), 0u);
    EXPECT_EQ(Road(), "14.5");
    EXPECT_EQ(sign->Records().TubeData().at(5), FromText("tube"));
    EXPECT_EQ(OnFreshThread([&] { return vxTubeCtrlEx(6, data, 4, kHost, Port(), VX_CHANNEL_UDP, nullptr, 0, 0); }),
              0u);
    EXPECT_EQ(Road(), "14.6");
    EXPECT_EQ(sign->Records().TubeData().count(6), 1u);
    EXPECT_EQ(OnFreshThread([&] { return vxTubeCtrl(7, nullptr, 0, kHost, Port()); }), 0u);
    EXPECT_EQ(Road(), "14.7");

    const std::string file = temp.Write("up", std::string(2000, 'u'));
    const std::string back = temp.Path("down");
    EXPECT_EQ(OnFreshThread([&] { return vxEasyWriteFile(file.c_str(), "D:\\X\\A.BIN", kHost, Port()); }), 0u);
    EXPECT_EQ(OnFreshThread([&] { return vxEasyReadFile(back.c_str(), "D:\\X\\A.BIN", kHost, Port()); }), 0u);
    EXPECT_EQ(temp.Read("down"), std::string(2000, 'u'));
    EXPECT_EQ(OnFreshThread([&] {
                  return vxEasyReadFileEx(back.c_str(), "D:\\X\\NO.BIN", kHost, Port(), VX_CHANNEL_UDP, nullptr, 0, 7);
              }),
              36872u);
    EXPECT_EQ(peer->TakeRequests().back().Word(8), 7);
    EXPECT_EQ(vxEasyReadFile(nullptr, "p", kHost, 1), 2u);
    EXPECT_EQ(vxEasyWriteFile("l", nullptr, kHost, 1), 2u);
    EXPECT_EQ(vxEasyWriteFileEx("l", "p", nullptr, 1, 0, nullptr, 0, 0), 2u);
}

} // namespace
} // namespace vxsign::test
