// Whole ways: what one export leaves with the sign another one reads, or the face shows.
#include "roundTrip/roundTrip.h"

namespace vxsign::test {
namespace {

std::string FromBytes(const Bytes& bytes)
{
    return {bytes.begin(), bytes.end()};
}

TEST_F(RoundTrip, FilesOfEveryKindGoAndComeBack)
{
    const std::string content = FromBytes(Ramp(2000));
    const std::string up = local.Write("up", content);
    const char* const source = up.c_str();
    const std::string down = local.Path("down");
    const char* const target = down.c_str();
    using Call = std::function<std::uint32_t()>;
    const std::tuple<Call, Call, const char*> rows[] = {
        {[&] { return vxWriteSystemFile("A.SYS", source); }, [&] { return vxReadSysFile("A.SYS", target); }, "C/A.SYS"},
        {[&] { return vxWriteFontFile("A.FNT", source); }, [&] { return vxReadFontFile("A.FNT", target); },
         "C/FONT/A.FNT"},
        {[&] { return vxWriteTextFile('D', "A", source); }, [&] { return vxReadTextFile('D', "A", target); }, "D/T/A"},
        {[&] { return vxWriteStringFile('E', "A", source); }, [&] { return vxReadStringFile('E', "A", target); },
         "E/S/A"},
        {[&] { return vxWritePictureFile('F', "A", source); }, [&] { return vxReadPictureFile('F', "A", target); },
         "F/P/A"},
        {[&] { return vxWriteArrPicFile('D', "A", source); }, [&] { return vxReadArrPicFile('D', "A", target); },
         "D/A/A"},
        {[&] { return vxWriteSpecFile("D:\\X\\A", source); }, [&] { return vxReadSpecPathFile("D:\\X\\A", target); },
         "D/X/A"},
        {[&] { return vxWriteSpecFileEx("D:\\X\\B", source); }, [&] { return vxReadVirtualFile("D:\\X\\B", target); },
         "D/X/B"},
        {[&] { return vxWriteFileOptimize("D:\\X\\C", source); },
         [&] { return vxReadSpecPathFileEx("D:\\X\\C", target); }, "D/X/C"},
        {[&] { return vxWriteDataFlashFile(source, 2000); }, [&] { return vxReadDataFlashFile(target, 2000); },
         "sign/data-flash.bin"}};
    for (const auto& [write, read, place] : rows) {
        SCOPED_TRACE(place);
        std::filesystem::remove(down);
        EXPECT_EQ(write(), 0u);
        EXPECT_EQ(folder.Read(place).substr(0, 2000), content);
        EXPECT_EQ(read(), 0u);
        EXPECT_EQ(local.Read("down").substr(0, 2000), content);
    }
}

TEST_F(RoundTrip, FoldersAreListedInEveryForm)
{
    for (int i = 0; i < 45; ++i)
        folder.Write("E/" + std::to_string(1000 + i), "x");
    std::uint32_t total = 0;
    Bytes entries(3200);
    EXPECT_EQ(vxGetDirFileEx("E:\\", 40, 20, &total, entries.data(), 100), 0u);
    EXPECT_EQ(total, 45u);
    EXPECT_EQ(FromBytes({entries.begin(), entries.begin() + 4}), "1040");
    EXPECT_EQ(vxLstFolder(local.Path("list").c_str(), "E:\\"), 0u);
    EXPECT_EQ(local.Read("list").size(), 12u + 45 * 32) << "the first page is there twice";
    std::vector<std::string> names;
    const auto note = [](std::uint8_t* entry, void* user) {
        static_cast<std::vector<std::string>*>(user)->emplace_back(reinterpret_cast<const char*>(entry));
        return 0u;
    };
    EXPECT_EQ(vxLstLongFolderCB("E:\\", note, &names), 0u);
    ASSERT_EQ(names.size(), 45u);
    EXPECT_EQ(names.back(), "1044");
    EXPECT_FALSE(folder.Has("E/dlist.dlt")) << "the sign's own listing is deleted";
}

TEST_F(RoundTrip, TheFaceShowsWhatExportsPut)
{
    PlayThree();
    EXPECT_EQ(vxPlayNext(), 0u);
    EXPECT_EQ(Seen(Now()), "G");
    EXPECT_EQ(vxPatternTest(2), 0u);
    EXPECT_EQ(Seen(Now()), "W");
    EXPECT_EQ(vxStopTest(), 0u);
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(Seen(Now()), ".");
    EXPECT_EQ(vxEndBlackScreen(), 0u);
    EXPECT_EQ(vxTickerStart(1, 0, '3'), 0u);
    const std::string block = "\u2588";
    EXPECT_EQ(vxUploadBuffer(reinterpret_cast<const std::uint8_t*>(block.data()), 3), 0u);
    std::uint16_t status = 0;
    EXPECT_EQ(vxGetBufferStatus(&status), 0u);
    EXPECT_EQ(status, 33538) << "one of three";
    FakeClock::Advance(1000);
    EXPECT_NE(At(Now(), 13), kDark);
    EXPECT_EQ(vxTickerStop(), 0u);
    // A page of one zone with a text in green.
    const ZoneHead head{{}, 1, {}};
    const Bytes area = Little(0, 4) + Little(16, 2) + Little(16, 2) + Bytes(4, 0);
    DisplayHead style{};
    style.head[5] = '2';
    const ContentHead content{{1}, 3};
    EXPECT_EQ(vxDivideZone(1, 0, head, area.data()), 0u);
    EXPECT_EQ(vxSetDisplay(1, 1, 0, style, nullptr), 0u);
    EXPECT_EQ(vxSetContentDisplay(1, 1, content, block.data()), 0u);
    EXPECT_EQ(vxSetEnableMulitZone(1), 0u);
    EXPECT_NE(Drawing(Now()).find_first_not_of(".\n"), std::string::npos);
    std::uint8_t enable = 0;
    std::uint8_t pages = 0;
    EXPECT_EQ(vxGetMulitZoneSetting(&enable, &pages), 0u);
    EXPECT_EQ(enable, 1);
}

TEST_F(RoundTrip, LogsOfTheSignAreRead)
{
    for (int i = 0; i <= 10; ++i, FakeClock::Advance(6000))
        sign->KeepUp(Now());
    static int records;
    records = 0;
    const std::string path = local.Path();
    const char* const where = path.c_str();
    const auto count = [](std::uint32_t, const auto*) { return ++records, 0u; };
    EXPECT_EQ(vxReadRadarLog(where, 0, 0, count), 0u);
    EXPECT_EQ(vxReadNewRadarLog(where, 0, 0, count), 0u);
    EXPECT_EQ(vxReadTJRadarLog(where, 0, 0, count), 0u);
    EXPECT_EQ(vxReadBatInfoLog(where, 0, 0, 0, count), 0u);
    EXPECT_EQ(vxReadBatInfoLogII(where, 0, 0, 1, count), 0u);
    EXPECT_EQ(records, 10) << "a record a minute in each";
    EXPECT_EQ(vxReadBatInfoLogII(where, 0, 0, 1, count), 36872u) << "deleted when it was read";
    Tell("bad 3,4,all\nhot 1\ndoor open");
    EXPECT_EQ(vxPxlChk(local.Path("p").c_str(), local.Path("s").c_str()), 0u);
    EXPECT_NE(local.Read("p").find("1,3,4,1,\"Red Pixel Bad\""), std::string::npos);
    records = 0;
    EXPECT_EQ(vxReadPixelInfo(where, 0, 2, count), 0u);
    EXPECT_EQ(records, 1) << "the board in its text";
    EXPECT_EQ(vxReadWaringReport([](const auto*) { return ++records, 0u; }), 0u);
    EXPECT_EQ(records, 5) << "four more: the door, a hot tile, pixels, the box";
}

} // namespace
} // namespace vxsign::test
