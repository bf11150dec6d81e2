// Files by their names, and the picture of what the sign shows.
#include "support/scriptedSign.h"
#include "support/tempFolder.h"

#include <gtest/gtest.h>
#include <tuple>

namespace vxsign::test {
namespace {

constexpr std::uint32_t kRead = VX_MOVE_READ;
constexpr std::uint32_t kWrite = VX_MOVE_WRITE;

// What a converter was called with.
struct Conversion
{
    static inline std::string message;
    static inline std::string gif;
    static inline std::uint32_t first;
    static inline std::uint32_t second;
    static inline int calls;

    static std::uint32_t Take(vxApiConfig*, const char* messagePath, const char* gifPath, std::uint32_t a,
                              std::uint32_t b)
    {
        message = messagePath;
        gif = gifPath;
        first = a;
        second = b;
        ++calls;
        return 99; // does not count
    }
};

TEST(FileMover, OrdinaryFilesAndTheConfiguration)
{
    const TempFolder folder;
    const std::string plain = folder.Write("CONFIG.SYS2", "abc");
    const std::string config = folder.Write("Config.sys", "def");
    const Bytes path = FromText("D:\\A") + Hex("00000000");
    ScriptedSign sign;

    sign.Then(2, Good());
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kWrite), 0u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("03000000 0003 0100 0100") + FromText("D:\\A") + Hex("0000"));
    EXPECT_EQ(sign.requests[0].Extended(), FromText("abc"));
    EXPECT_EQ(vxRWFile(config.c_str(), nullptr, kWrite), 0u);
    EXPECT_EQ(sign.requests[1].Minor(), 2);
    EXPECT_EQ(sign.requests[1].Payload(), FromText("CONFIG.SYS") + Hex("0000 03000000 0003 0100 0100 0000"));
    EXPECT_EQ(sign.requests[1].Extended(), FromText("def"));

    sign.Then(2, Good(Hex("03000000"), FromText("new")));
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kRead), 0u);
    EXPECT_EQ(sign.requests[2].Minor(), 8);
    EXPECT_EQ(sign.requests[2].Payload(), Hex("0003 0100") + path);
    EXPECT_EQ(folder.Read("CONFIG.SYS2"), "new");
    EXPECT_EQ(vxRWFile(config.c_str(), nullptr, kRead), 0u);
    EXPECT_EQ(sign.requests[3].Minor(), 2);
    EXPECT_EQ(folder.Read("Config.sys"), "new");

    // A name without extension, and one longer than all that count.
    const std::string longName = folder.Path(std::string(250, 'n') + ".config.sys");
    sign.Then(2, Refusal(36872));
    EXPECT_EQ(vxRWFile(folder.Path("config").c_str(), "D:\\A", kRead), 36872u);
    EXPECT_EQ(vxRWFile(longName.c_str(), "D:\\A", kRead), 20737u);
    EXPECT_EQ(vxRWFile(plain.c_str(), nullptr, kRead), 2u);
    EXPECT_EQ(vxRWFile(plain.c_str(), "D:\\A", kWrite), 36872u);
}

TEST(FileMover, WhatItDoesNotMove)
{
    ScriptedSign sign;
    EXPECT_EQ(vxRWFile(nullptr, "D:\\A", kRead), 3u);
    EXPECT_EQ(vxRWFile("A", "D:\\A", 0), 3u);
    EXPECT_EQ(vxRWFile("A", "D:\\A", 3), 3u);
    for (const char* const package : {"PLAYFILE.PLS", "/no/such/playfile.plm", "C:\\X\\PlayFile.Pls"}) {
        EXPECT_EQ(vxRWFile(package, nullptr, kRead), 0u);
        EXPECT_EQ(vxRWFile(package, nullptr, kWrite), 20737u);
    }
    EXPECT_TRUE(sign.requests.empty());
}

TEST(FileMover, ReadsTheBeaconIntoAFile)
{
    const TempFolder folder;
    const std::string file = folder.Path("TrafficLight.sys");
    const auto contents = [&] {
        const std::string text = folder.Read("TrafficLight.sys");
        return Bytes(text.begin(), text.end());
    };
    ScriptedSign sign;
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
}

TEST(FileMover, SetsTheBeaconFromAFile)
{
    const TempFolder folder;
    const auto write = [&](const Bytes& bytes) {
        const std::string file =
            folder.Write("TRAFFICLIGHT.SYS", {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        return vxRWFile(file.c_str(), nullptr, kWrite);
    };
    ScriptedSign sign;
    EXPECT_EQ(vxRWFile(folder.Path("TRAFFICLIGHT.SYS").c_str(), nullptr, kWrite), 20737u);
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

TEST(CurrentMessage, IsConvertedByTheCaller)
{
    using Row = std::tuple<Answer, std::uint32_t, std::string>;
    for (const auto& [answer, result, message] :
         {Row{Good(FromText("D:\\T\\A.NMG")), 0, "tmp\\A.NMG"}, Row{Good(FromText("D:/T\\x/A.NMG")), 0, "tmp\\A.NMG"},
          Row{Good(FromText("D:\\../../../etc/shadow")), 0, "tmp\\shadow"}, Row{Good(FromText("D:\\..")), 0, "tmp\\"},
          Row{Good(FromText("/T/A.NMG")), 0, "tmp\\A.NMG"}, Row{Good(FromText("A.NMG")), 0, "tmp\\A.NMG"},
          Row{Good(), 0, "tmp\\"}, Row{Good(Bytes(1020, 'A')), 0, "tmp\\" + std::string(256, 'A')},
          Row{Refusal(26369), 26369, "tmp\\__BLANK.VXB"}}) {
        SCOPED_TRACE(message);
        ScriptedSign sign;
        sign.Config().onMessageToGif = Conversion::Take;
        Conversion::calls = 0;
        sign.Then(2, answer);
        EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), result);
        EXPECT_EQ(vxRWFile("/x/monitor.gif", "tmp", kWrite), result);
        EXPECT_EQ(sign.requests[1].Major(), 6);
        EXPECT_EQ(sign.requests[1].Minor(), 7);
        EXPECT_EQ(Conversion::calls, 2);
        EXPECT_EQ(Conversion::message, message);
        EXPECT_EQ(Conversion::gif, "/x/monitor.gif");
        EXPECT_EQ(Conversion::first, 20u);
        EXPECT_EQ(Conversion::second, 1000u);
    }
}

TEST(CurrentMessage, WithoutConverterOrSign)
{
    ScriptedSign sign;
    sign.Then(Good(FromText("A.NMG"))).Then(Refusal(26369));
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 0u);
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 26369u);
    sign.Config().onMessageToGif = Conversion::Take;
    Conversion::calls = 0;
    sign.Then(Refusal(26370));
    EXPECT_EQ(vxCurrentMsg2Gif("tmp", "out.gif"), 26370u);
    EXPECT_EQ(vxRWFile("MONITOR.GIF", nullptr, kRead), 2u);
    EXPECT_EQ(Conversion::calls, 0);
}

} // namespace
} // namespace vxsign::test
