// Files by their names, and the picture of what the sign shows.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

constexpr std::uint32_t kRead = VX_MOVE_READ;
constexpr std::uint32_t kWrite = VX_MOVE_WRITE;

// What a converter was called with, one behind the other.
std::vector<std::string> converted;

std::uint32_t Convert(vxApiConfig*, const char* message, const char* gif, std::uint32_t first, std::uint32_t second)
{
    converted.push_back(std::string(message) + " " + gif + " " + std::to_string(first) + " " + std::to_string(second));
    return 99; // does not count
}

using FileMover = ScriptedTest;

TEST_F(FileMover, OrdinaryFilesAndTheConfiguration)
{
    const std::string plain = folder.Write("CONFIG.SYS2", "abc");
    const std::string config = folder.Write("Config.sys", "def");
    sign.Then(2, Good()).Then(2, Good(Hex("03000000"), FromText("new")));
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kWrite), 0u);
    EXPECT_EQ(vxRWFile(config.c_str(), nullptr, kWrite), 0u);
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kRead), 0u);
    EXPECT_EQ(vxRWFile(config.c_str(), nullptr, kRead), 0u);
    ASSERT_EQ(sign.Road(), "2.8 2.2 1.8 1.2");
    EXPECT_EQ(Part(sign.requests[0].Payload(), 10), FromText("D:\\A") + Hex("0000"));
    EXPECT_EQ(sign.requests[0].Extended(), FromText("abc"));
    EXPECT_EQ(Part(sign.requests[1].Payload(), 0, 12), FromText("CONFIG.SYS") + Bytes(2));
    EXPECT_EQ(sign.requests[1].Extended(), FromText("def"));
    EXPECT_EQ(Part(sign.requests[2].Payload(), 4), FromText("D:\\A") + Bytes(4));
    EXPECT_EQ(Part(sign.requests[3].Payload(), 0, 12), FromText("CONFIG.SYS") + Bytes(2));
    EXPECT_EQ(folder.Read("CONFIG.SYS2"), "new");
    EXPECT_EQ(folder.Read("Config.sys"), "new");

    // A name without extension, and one longer than all that count.
    const std::string longName = folder.Path(std::string(250, 'n') + ".config.sys");
    sign.Then(2, Refusal(36872));
    EXPECT_EQ(vxRWFile(folder.Path("config").c_str(), "D:\\A", kRead), 36872u);
    EXPECT_EQ(vxRWFile(longName.c_str(), "D:\\A", kRead), 20737u);
    EXPECT_EQ(vxRWFile(plain.c_str(), nullptr, kRead), 2u);
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kWrite), 36872u);
}

TEST_F(FileMover, WhatItDoesNotMove)
{
    EXPECT_EQ(vxRWFile(nullptr, "D:\\A", kRead), 3u);
    EXPECT_EQ(vxRWFile("A", "D:\\A", 0), 3u);
    EXPECT_EQ(vxRWFile("A", "D:\\A", 3), 3u);
    for (const char* const package : {"PLAYFILE.PLS", "/no/such/playfile.plm", "C:\\X\\PlayFile.Pls"}) {
        EXPECT_EQ(vxRWFile(package, nullptr, kRead), 0u);
        EXPECT_EQ(vxRWFile(package, nullptr, kWrite), 20737u);
    }
    EXPECT_TRUE(sign.requests.empty());
}

TEST_F(FileMover, ReadsTheBeaconIntoAFileAndSetsItFromOne)
{
    const std::string file = folder.Path("TrafficLight.sys");
    const auto contents = [&] { return FromText(folder.Read("TrafficLight.sys")); };
    sign.Then(Good(Hex("0102030405060708"))).Then(Good(Hex("A1A2A3A4"))).Then(Refusal(36881));
    EXPECT_EQ(vxRWFile(file.c_str(), nullptr, kRead), 0u);
    EXPECT_EQ(contents(), Hex("4C54 0100 14000000 00000000 0102030405060708"));
    EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{90});
    EXPECT_EQ(vxRWFile(file.c_str(), nullptr, kRead), 0u);
    EXPECT_EQ(contents(), Hex("4C54 0100 14000000 00000000 A1A2A3A400000000"));
    EXPECT_EQ(vxRWFile(file.c_str(), nullptr, kRead), 36881u);
    EXPECT_EQ(contents(), Hex("4C54 0000 0C000000 00000000"));
    EXPECT_EQ(vxRWFile(folder.Path("no/such/TRAFFICLIGHT.SYS").c_str(), nullptr, kRead), 20737u);
    EXPECT_EQ(sign.progress.size(), 3u);

    const auto write = [&](const Bytes& bytes) {
        return vxRWFile(folder.Write("TRAFFICLIGHT.SYS", ToText(bytes)).c_str(), nullptr, kWrite);
    };
    EXPECT_EQ(vxRWFile(folder.Path("no/such/TRAFFICLIGHT.SYS").c_str(), nullptr, kWrite), 20737u);
    sign.Renew();
    sign.Then(Good()).Then(Refusal(36912));
    EXPECT_EQ(write(Hex("4C54 0100 14000000 00000000 0102030405060708 99")), 0u);
    EXPECT_EQ(sign.requests[0].Minor(), 10);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("0102030405060708"));
    EXPECT_EQ(write(Hex("4C54 0000 00000000 00000000 0102")), 36912u);
    EXPECT_EQ(sign.requests[1].Payload(), Hex("0102000000000000"));
    EXPECT_EQ(write(Hex("544C 0100 14000000 00000000 0102030405060708")), 258u);
    EXPECT_EQ(write({}), 258u);
    EXPECT_EQ(sign.requests.size(), 2u);
}

TEST_F(FileMover, TheCurrentMessageIsConvertedByTheCaller)
{
    using Row = std::tuple<Answer, std::uint32_t, std::string>;
    for (const auto& [answer, result, message] :
         {Row{Good(FromText("D:\\T\\A.NMG")), 0, "tmp\\A.NMG"}, Row{Good(FromText("D:/T\\x/A.NMG")), 0, "tmp\\A.NMG"},
          Row{Good(FromText("D:\\../../../etc/shadow")), 0, "tmp\\shadow"}, Row{Good(FromText("D:\\..")), 0, "tmp\\"},
          Row{Good(FromText("/T/A.NMG")), 0, "tmp\\A.NMG"}, Row{Good(FromText("A.NMG")), 0, "tmp\\A.NMG"},
          Row{Good(), 0, "tmp\\"}, Row{Good(Bytes(1020, 'A')), 0, "tmp\\" + std::string(256, 'A')},
          Row{Refusal(26369), 26369, "tmp\\__BLANK.VXB"}}) {
        SCOPED_TRACE(message);
        sign.Renew();
        sign.Config().onMessageToGif = Convert;
        converted.clear();
        sign.Then(2, answer);
        EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), result);
        EXPECT_EQ(vxRWFile("/x/monitor.gif", "tmp", kWrite), result);
        EXPECT_EQ(sign.Road(), "6.7 6.7");
        EXPECT_EQ(converted, (std::vector{message + " out.gif 20 1000", message + " /x/monitor.gif 20 1000"}));
    }

    // No message without converter or sign.
    sign.Renew();
    sign.Then(Good(FromText("A.NMG"))).Then(Refusal(26369));
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 0u);
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 26369u);
    sign.Config().onMessageToGif = Convert;
    converted.clear();
    sign.Then(Refusal(26370));
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 26370u);
    EXPECT_EQ(vxRWFile("MONITOR.GIF", nullptr, kRead), 2u);
    EXPECT_TRUE(converted.empty());
}

} // namespace
} // namespace vxsign::test
