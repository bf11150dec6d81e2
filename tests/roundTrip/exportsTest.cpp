// Whole ways: what one export leaves with the sign another one reads, or the face shows.
#include "roundTrip/roundTrip.h"
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

TEST_F(RoundTrip, FilesOfEveryKindGoAndComeBack)
{
    const std::string content = ToText(Ramp(2000));
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
        {[&] { return vxWritePictureFile('F', "LONGNAME.BMP", source); }, // fills its field
         [&] { return vxReadPictureFile('f', "LONGNAME.BMP", target); }, "F/P/LONGNAME.BMP"},
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
    std::size_t there = 0;
    using Row = std::tuple<std::size_t, const char*, std::size_t>;
    for (const auto& [total, header, pages] :
         {Row{0, "464C 0000 0C000000 00000000", 1}, Row{20, "464C 1400 8C020000 00000000", 1},
          Row{21, "464C 1500 AC020000 00000000", 2}, Row{50, "464C 3200 4C060000 00000000", 3}}) {
        SCOPED_TRACE(total);
        for (; there < total; ++there)
            folder.Write("E/" + std::to_string(1000 + there), "x");
        line.requests.clear();
        EXPECT_EQ(vxLstFolder(local.Path("list").c_str(), "E:\\"), 0u);
        EXPECT_EQ(line.requests.size(), pages);
        const std::string list = local.Read("list");
        EXPECT_EQ(FromText(list.substr(0, 12)), Hex(header));
        ASSERT_EQ(list.size(), 12 + 32 * total);
        for (std::size_t i = 0; i < total; ++i)
            EXPECT_EQ(list.substr(12 + 32 * i, 4), std::to_string(1000 + (i < 20 ? i : i - 20)));
    }

    std::uint32_t total = 0;
    Bytes entries(3200);
    EXPECT_EQ(vxGetDirFileEx("E:\\", 40, 20, &total, entries.data(), 100), 0u);
    EXPECT_EQ(total, 50u);
    EXPECT_EQ(ToText(Part(entries, 0, 4)), "1040");
    std::vector<std::string> names;
    const auto note = [](std::uint8_t* entry, void* user) {
        static_cast<std::vector<std::string>*>(user)->emplace_back(reinterpret_cast<const char*>(entry));
        return 0u;
    };
    EXPECT_EQ(vxLstLongFolderCB("E:\\", note, &names), 0u);
    ASSERT_EQ(names.size(), 50u);
    EXPECT_EQ(names.back(), "1049");
    EXPECT_FALSE(folder.Has("E/dlist.dlt")) << "the sign's own listing is deleted";
}

TEST_F(RoundTrip, TheUpdateTakesAFewPolls)
{
    Expect(0, {{12, 13}}); // without an update the program is there
    EXPECT_EQ(vxResetSystemToDataFlash(), 0u);
    EXPECT_EQ(line.Road(), "4.25 12.13 12.13 12.13 12.13");
    EXPECT_EQ(line.progress, (std::vector<std::uint32_t>{0, 1, 2, 3, 100}));
    EXPECT_EQ(line.Config().progressTotal, 100);
    EXPECT_EQ(line.Config().progressPos, 3);
    EXPECT_EQ(FakeClock::SleptMs(), 300u + 4 * 30);
    EXPECT_EQ(line.opened, 1) << "one channel for all of it";
    Expect(0, {{12, 13}, {4, 25}});
    Expect(7938, {{12, 13}});
}

TEST_F(RoundTrip, LogsOfTheSignAreRead)
{
    settings.localSecondsAtZero = 1589365230; // 2020-05-13 10:20:30
    Rebuild(16, 16);
    const Taken taken;
    for (int i = 0; i <= 10; ++i, FakeClock::Advance(6000))
        sign->KeepUp(Now());
    const std::string path = local.Path();
    const char* const where = path.c_str();
    const auto take = [](std::uint32_t number, const auto* record) { return Taken::WithUser(number, record); };
    EXPECT_EQ(vxReadRadarLog(where, 0, 0, take), 0u);
    EXPECT_EQ(vxReadNewRadarLog(where, 0, 0, take), 0u);
    EXPECT_EQ(vxReadTJRadarLog(where, 0, 0, take), 0u);
    EXPECT_EQ(vxReadBatInfoLog(where, 0, 0, 0, take), 0u);
    EXPECT_EQ(vxReadBatInfoLogII(where, 0, 0, 1, take), 0u);
    ASSERT_EQ(Taken::records.size(), 10u) << "a record a minute in each";
    const Bytes first = FromText("2020-05-13 10:20:15") + Hex("00"); // seconds by two
    const Bytes second = FromText("2020-05-13 10:21:15") + Hex("00");
    const Bytes lanes = Hex("01000000 0D000000 44000000") + Bytes(24);
    const Bytes battery = Hex("C8320000 E2040000 00000000 0000 5A16") + Bytes(12);
    const Bytes records[] = {Hex("0C000000 4A000000") + first, Hex("0D000000 44000000") + second};
    for (const std::size_t i : {0u, 1u, 2u, 3u})
        EXPECT_EQ(Taken::records[i], records[i % 2]) << i;
    EXPECT_EQ(Taken::records[5], lanes + second);
    EXPECT_EQ(Taken::records[6], battery + first);
    EXPECT_EQ(Taken::records[8], battery + first);
    EXPECT_EQ(vxReadBatInfoLogII(where, 0, 0, 1, take), 36872u) << "deleted when it was read";
    Tell("bad 3,4,all\nhot 1\ndoor open");
    EXPECT_EQ(vxPxlChk(local.Path("p").c_str(), local.Path("s").c_str()), 0u);
    EXPECT_NE(local.Read("p").find("1,3,4,1,\"Red Pixel Bad\""), std::string::npos);
    EXPECT_EQ(vxReadPixelInfo(where, 0, 2, take), 0u);
    EXPECT_EQ(Taken::records.size(), 11u) << "the board in its text";
    EXPECT_EQ(vxReadWaringReport([](const auto* record) { return Taken::Plain(record); }), 0u);
    EXPECT_EQ(Taken::records.size(), 15u) << "four more: the door, a hot tile, pixels, the box";
}

} // namespace
} // namespace vxsign::test
