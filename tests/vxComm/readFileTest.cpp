// Files on their way from the sign.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

using ReadFile = ScriptedTest;

TEST_F(ReadFile, RecordsOfEachMinor)
{
    const std::string file = folder.Path("out");
    const char* const local = file.c_str();
    // Records; NN is the number of the packet.
    const std::tuple<std::function<std::uint32_t()>, std::uint8_t, const char*> rows[] = {
        {[&] { return vxReadSysFile("CONFIG.SYS", local); }, 2, "434F4E4649472E5359530000 4000 NN00"},
        {[&] { return vxReadFontFile("A", local); }, 3, "410000000000000000000000 4000 NN00"},
        {[&] { return vxReadTextFile('D', "A", local); }, 4, "44000000 410000000000000000000000 4000 NN00"},
        {[&] { return vxReadStringFile('E', "A", local); }, 5, "45000000 410000000000000000000000 4000 NN00"},
        {[&] { return vxReadPictureFile('D', "A", local); }, 6, "44000000 410000000000000000000000 4000 NN00"},
        {[&] { return vxReadArrPicFile('D', "A", local); }, 7, "44000000 410000000000000000000000 4000 NN00"},
        {[&] { return vxReadSpecPathFile("D:\\ABC", local); }, 8, "4000 NN00 443A5C41 42430000"},
        {[&] { return vxReadPlayLog(local); }, 9, "4000 NN00"},
        {[&] { return vxReadSpecPathFileEx("D:\\A", local); }, 17, "4000 0000 NN000000 443A5C41 00000000"},
        {[&] { return vxReadVirtualFile("D:\\A", local); }, 31, "4000 0000 NN000000 443A5C41 00000000"},
        {[&] { return vxReadWarning(local); }, 8, "4000 NN00 453A5C65 72726F72 732E786D 6C000000"},
        {[&] { return vxReadPixResult(local); }, 8, "4000 NN00 443A5C50 584C2E43 53560000"},
        {[&] { return vxReadSignalResult(local); }, 8, "4000 NN00 443A5C53 49474E41 4C2E4353 56000000"},
    };
    for (const auto& [call, minor, record] : rows) {
        SCOPED_TRACE(int(minor));
        sign.Renew();
        sign.Config().dataSize = 64;
        sign.Then(Good(Hex("00000000 46000000"), Bytes(64, 'a'))).Then(Good({}, Bytes(6, 'b')));
        EXPECT_EQ(call(), 0u);
        ASSERT_EQ(sign.requests.size(), 2u);
        EXPECT_EQ(sign.requests[0].Major(), 1);
        EXPECT_EQ(sign.requests[0].Minor(), minor);
        EXPECT_EQ(sign.requests[0].Payload(), Numbered(record, 1));
        EXPECT_EQ(sign.requests[1].Payload(), Numbered(record, 2));
        EXPECT_TRUE(sign.requests[0].Extended().empty());
        EXPECT_EQ(folder.Read("out"), std::string(64, 'a') + std::string(6, 'b'));
        EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{100}) << "no report for the first packet";
    }
}

TEST_F(ReadFile, FormsOfTheAnnouncedSize)
{
    const std::string file = folder.Path("out");
    using Row = std::tuple<const char*, std::uint32_t, std::size_t>;
    for (const auto& [payload, result, requests] :
         {Row{"FFFFFFFF 01030000", 0, 2}, Row{"00030000", 0, 1}, Row{"01030000 00000000 00000000", 0, 2},
          Row{"FFFFFFFF 00000000", 36872, 1}, Row{"0000FFFF", 36872, 1}, Row{"", 36872, 1}}) {
        SCOPED_TRACE(payload);
        sign.Renew();
        sign.Then(Good(Hex(payload), {'x'}));
        sign.otherwise = [](const Packet&) { return Good({}, {'y'}); };
        EXPECT_EQ(vxReadSpecPathFile("D:\\A", file.c_str()), result);
        EXPECT_EQ(sign.requests.size(), requests);
        EXPECT_EQ(sign.progress.size(), requests - 1);
        const std::string pieces = result == 0 ? "x" + std::string(requests - 1, 'y') : "";
        EXPECT_EQ(folder.Read("out"), pieces) << "a size of 0 leaves an empty file, whatever came with it";
    }
}

TEST_F(ReadFile, FailuresLeaveWhatArrived)
{
    const std::string file = folder.Path("out");
    sign.Then(Refusal(36872));
    EXPECT_EQ(vxReadSpecPathFileEx("D:\\A", file.c_str()), 36872u);
    EXPECT_EQ(folder.Read("out"), "");
    sign.Then(Good(Hex("00000000 FFFF0000"), {'1'})).Then(Good({}, {'2'})).Then(Refusal(36873));
    EXPECT_EQ(vxReadSpecPathFileEx("D:\\A", file.c_str()), 36873u);
    EXPECT_EQ(folder.Read("out"), "12");

    // A local file that cannot be made or written.
    const std::size_t before = sign.requests.size();
    EXPECT_EQ(vxReadSpecPathFile("D:\\A", folder.Path("no/such/folder").c_str()), 20737u);
    EXPECT_EQ(sign.requests.size(), before);
    sign.Then(Good(Hex("00000000 05000000"), FromText("abcde")));
    EXPECT_EQ(vxReadSpecPathFile("D:\\A", "/dev/full"), 256u);

    // A size that 16-bit packet numbers do not reach.
    sign.Then(Good(Hex("00000000 FFFFFFFF"), {'1'}));
    EXPECT_EQ(vxReadSpecPathFile("D:\\A", file.c_str()), 4353u);
}

TEST_F(ReadFile, ADataFlashWaitsAndTakesTheProductOrTheCallersSize)
{
    const std::string file = folder.Path("out");
    sign.Config().dataSize = 100;
    // 15 * 10 bytes.
    sign.Then(Good({}, Hex("0F000A00 00000000"))).Then(Good({}, Bytes(100, 'a'))).Then(Good({}, Bytes(50, 'b')));
    EXPECT_EQ(vxReadDataFlashFile(file.c_str(), 0), 0u);
    EXPECT_EQ(sign.requests[0].Minor(), 28);
    EXPECT_EQ(sign.requests[2].Minor(), 29);
    EXPECT_EQ(sign.requests[2].Payload(), Hex("64000000 02000000"));
    EXPECT_EQ(folder.Read("out").size(), 150u);
    EXPECT_EQ(FakeClock::SleptMs(), 3000u);

    sign.Then(Good({}, Hex("0F000A00"))).Then(Good({}, {'c'}));
    EXPECT_EQ(vxReadDataFlashFile(file.c_str(), 7), 0u);
    EXPECT_EQ(FakeClock::SleptMs(), 6000u);
    sign.Then(Good({}, Hex("0F000000")));
    EXPECT_EQ(vxReadDataFlashFile(file.c_str(), 0), 36872u);
    sign.Then(Refusal(36869));
    EXPECT_EQ(vxReadDataFlashFile(file.c_str(), 7), 36869u);
}

} // namespace
} // namespace vxsign::test
