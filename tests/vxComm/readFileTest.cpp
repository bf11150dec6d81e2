// Files on their way from the sign, listings of folders, and what it plays.
#include "support/scriptedSign.h"

#include <cstring>

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

    // Failures leave what arrived.
    sign.Renew();
    sign.otherwise = {};
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

class Listing : public ScriptedTest
{
protected:
    const std::string local = folder.Path("list");
};

TEST_F(Listing, LstFolderFailures)
{
    EXPECT_EQ(vxLstFolder(folder.Path("no/such").c_str(), "D:"), 20737u);
    EXPECT_TRUE(sign.requests.empty());
    sign.Then(Refusal(29441));
    EXPECT_EQ(vxLstFolder(local.c_str(), "D:"), 29441u);
    EXPECT_EQ(folder.Read("list"), ToText(Hex("464C 0000 0C000000 00000000")));
    // A later page: the header still has the first answer's number.
    sign.Then(Good(Hex("FFFF0000"), Bytes(32, 'x'))).Then(Refusal(36912));
    EXPECT_EQ(vxLstFolder(local.c_str(), "D:"), 36912u);
    EXPECT_EQ(folder.Read("list"),
              ToText(Hex("464C FFFF ECFF1F00 00000000")) + std::string(32, 'x') + std::string(608, '\0'))
        << "what a page lacks is zeros";
    sign.Then(Good(Hex("01000000"), Bytes(32, 'x')));
    EXPECT_EQ(vxLstFolder("/dev/full", "D:"), 256u);
}

TEST_F(Listing, LongListingIsReadAndDeleted)
{
    const Bytes listing = Hex("453A5C646C6973742E646C7400");
    sign.Then(Refusal(30209)).Then(Good()).Then(Good(Hex("03000000"), FromText("abc"))).Then(Refusal(30209));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 0u);
    EXPECT_EQ(folder.Read("list"), "abc");
    ASSERT_EQ(sign.Road(), "7.6 7.16 1.8 7.6");
    const Bytes deletion = listing + Hex("000000");
    EXPECT_EQ(sign.requests[0].Payload(), deletion);
    EXPECT_EQ(sign.requests[1].Payload(), Hex("443A5C54 00000000"));
    EXPECT_EQ(sign.requests[2].Payload(), Hex("0003 0100") + deletion);
    EXPECT_EQ(sign.requests[3].Payload(), deletion);
    EXPECT_EQ(sign.opened, 2) << "the reading has a command object of its own";

    sign.Then(Good()).Then(Refusal(36881));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 36881u);
    // A listing that cannot be read stays on the sign.
    sign.Then(2, Good()).Then(Refusal(36880));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 36880u);
    EXPECT_EQ(sign.requests.back().Major(), 1);
}

struct Seen
{
    std::vector<Bytes> entries;
    std::uint32_t result; // goes up by 1
};

std::uint32_t Collect(std::uint8_t* entry, void* user)
{
    auto* const seen = static_cast<Seen*>(user);
    seen->entries.emplace_back(entry, entry + 276);
    return seen->result++;
}

TEST_F(Listing, LongListingByCallback)
{
    const Bytes a(276, 'a');
    const std::tuple<const char*, Bytes, std::uint32_t, std::vector<Bytes>> rows[] = {
        {"two", Hex("4C44 1000 02000000 38020000 00000000") + a + a, 8, {a, a}},
        {"more behind the last", Hex("4C44 1000 01000000 11000000 00000000") + a + a, 7, {a}},
        {"fewer than announced, the last cut short",
         Hex("4C44 1000 FFFFFFFF FFFFFFFF 00000000") + a + Hex("0102"),
         8,
         {a, Hex("0102") + Bytes(274, 0)}},
        {"none", Hex("4C44 1000 00000000 11000000 00000000"), 0, {}},
        {"total of 0", Hex("4C44 0000 01000000 00000000 00000000") + a, 258, {}},
        {"total of the header alone", Hex("4C44 1000 01000000 10000000 00000000") + a, 258, {}},
        {"another magic", Hex("4C45 1000 01000000 24010000 00000000") + a, 258, {}},
        {"header cut short", Hex("4C44 1000 01000000"), 258, {}},
    };
    for (const auto& [name, file, result, entries] : rows) {
        SCOPED_TRACE(name);
        sign.Renew();
        const auto size = static_cast<std::uint8_t>(file.size());
        const auto high = static_cast<std::uint8_t>(file.size() >> 8);
        sign.Then(2, Good()).Then(Good({size, high, 0, 0}, file)).Then(Good());
        Seen seen{{}, 7};
        EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, &seen), result);
        EXPECT_EQ(seen.entries, entries);
        EXPECT_TRUE(folder.IsEmpty());
    }
    sign.Renew();
    sign.Then(Good()).Then(Refusal(29441));
    EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, nullptr), 29441u);
    EXPECT_TRUE(folder.IsEmpty());
}

class PlayFiles : public ScriptedTest
{
protected:
    const std::string local = folder.Path("out");
};

TEST_F(PlayFiles, ScreenshotIsAskedForUntilItIsThere)
{
    sign.Then(Good()).Then(2, Refusal(36872)).Then(Good(Hex("03000000"), FromText("JPG")));
    EXPECT_EQ(vxReadCurScreentshot(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), "JPG");
    ASSERT_EQ(sign.Road(), "6.25 1.17 1.17 1.17");
    EXPECT_EQ(sign.requests[0].Payload(), Hex("00000000"));
    EXPECT_EQ(sign.requests[3].Payload(), Hex("00030000 01000000") + FromText("E:\\screenshot.jpeg") + Hex("0000"));
    EXPECT_EQ(FakeClock::SleptMs(), 600u);
    EXPECT_EQ(sign.opened, 4) << "each reading has a command object of its own";

    sign.Then(Good()).Then(9, Refusal(36872)).Then(Refusal(36880));
    EXPECT_EQ(vxReadCurScreenshot(local.c_str()), 36880u);
    EXPECT_EQ(FakeClock::SleptMs(), 2600u);
    sign.Then(Refusal(36881));
    EXPECT_EQ(vxReadCurScreenshot(local.c_str()), 36881u);
    EXPECT_EQ(FakeClock::SleptMs(), 2600u);
    EXPECT_EQ(vxReadCurScreenshot(folder.Path("no/such").c_str()), 20737u);
}

TEST_F(PlayFiles, RadarLogByPages)
{
    sign.Then(100, Good({}, Bytes(80, 'r'))).Then(Good({}, Bytes(64, 's')));
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), std::string(8000, 'r') + std::string(64, 's'));
    EXPECT_EQ(sign.requests[0].Minor(), 23);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("05000000"));
    EXPECT_EQ(sign.requests[100].Payload(), Hex("0500F401"));
    EXPECT_EQ(sign.progress[98], 0u);
    EXPECT_EQ(sign.progress[99], 1u);
    EXPECT_EQ(sign.progress.size(), 101u);

    sign.Then(Good({}, Bytes(100, 'r'))).Then(Refusal(36873));
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 36873u);
    EXPECT_EQ(folder.Read("out"), std::string(100, 'r'));
    sign.Then(Good());
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(folder.Read("out"), "");
    EXPECT_EQ(vxReadTJRadarLog2File(folder.Path("no/such").c_str()), 20737u);
    sign.Then(Good({}, Bytes(3, 'r')));
    EXPECT_EQ(vxReadTJRadarLog2File("/dev/full"), 256u);

    // A sign that never ends.
    sign.requests.clear();
    sign.otherwise = [](const Packet&) { return Good({}, Bytes(80, 'r')); };
    EXPECT_EQ(vxReadTJRadarLog2File(local.c_str()), 0u);
    EXPECT_EQ(sign.requests.size(), 10000u);
    EXPECT_EQ(sign.requests.back().Payload(), Hex("05004BC3"));
    EXPECT_EQ(sign.progress.back(), 100u);
}

TEST_F(PlayFiles, DefaultScreenSettings)
{
    const Bytes path = FromText("c:\\config\\RB27_233.cfg") + Hex("00");
    const std::string ini = "[DefaultSet]\r\nShowDefultBmpTime=30\r\nBlackScreenTime=65537\r\n";
    const auto size = static_cast<std::uint8_t>(ini.size());
    sign.Then(Good({size, 0, 0, 0}, FromText(ini)));
    std::uint16_t set[2] = {7, 7};
    EXPECT_EQ(vxReadDefaultScreenSet(set), 0u);
    EXPECT_EQ(set[0], 30);
    EXPECT_EQ(set[1], 1) << "the lower 16 bits";
    EXPECT_EQ(sign.requests[0].Minor(), 8);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("0003 0100") + path + Hex("00"));
    sign.Then(Refusal(36872));
    EXPECT_EQ(vxReadDefaultScreenSet(set), 0u);
    EXPECT_EQ(set[0], 0);
    EXPECT_EQ(set[1], 0);

    const std::uint16_t wanted[2] = {65535, 5};
    sign.Then(Good()).Then(Refusal(36912));
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 0u);
    const Packet& sent = sign.requests.back();
    EXPECT_EQ(sent.Major(), 2);
    EXPECT_EQ(sent.Minor(), 8);
    EXPECT_EQ(sent.Extended(), FromText("[DefaultSet]\r\nShowDefultBmpTime=65535\r\nBlackScreenTime=5\r\n"));
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 36912u);
    EXPECT_TRUE(folder.IsEmpty());

    // No place for the temporary file.
    sign.Config().onTempPath = [](vxApiConfig*, char* buffer, std::uint32_t) { std::strcpy(buffer, "/no/such/"); };
    EXPECT_EQ(vxWriteDefaultScreenSet(wanted), 1u);
    sign.Config().onTempPath = nullptr;
}

} // namespace
} // namespace vxsign::test
