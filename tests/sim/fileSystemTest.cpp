// Drives, folders and short names of the sign.
#include "sim/files/shortNames.h"

#include "support/signFixture.h"

#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace vxsign::test {
namespace {

namespace fs = std::filesystem;

class FileSystem : public SignTest
{
protected:
    unsigned On(unsigned minor, const std::string& text) { return CodeOf(Ask(7, minor, Path(text))); }

    // 2024-05-06 07:08:10 local time.
    void Date(const std::string& place)
    {
        std::tm local = {10, 8, 7, 6, 4, 124, 0, 0, -1, 0, nullptr};
        const timespec times[2] = {{std::mktime(&local), 0}, {std::mktime(&local), 0}};
        ::utimensat(AT_FDCWD, (folder.path / place).c_str(), times, 0);
    }

    bool Has(const std::string& place) const { return fs::exists(folder.path / place); }
};

TEST_F(FileSystem, FoldersAreMadeAndEntriesRenamedAndMoved)
{
    Make("D/NEW/A B.TXT", Text("ab"));
    Make("D/NEW/F.TXT");
    const std::tuple<unsigned, const char*, unsigned, const char*> rows[] = {
        {3, "D:\\NEW\\INNER", 0, "D/NEW/INNER"},
        {3, "D:\\new", 0, "D/NEW"}, // is there
        {3, "D:\\NEW\\A B.TXT", 29441, ""},
        {3, "G:\\X", 29441, ""},
        {4, "D:\\NEW\\A B.TXT C D.TXT", 0, "D/NEW/C D.TXT"}, // blanks in both names
        {4, "D:\\NEW\\C D.TXT d:/new/E.TXT", 0, "D/NEW/E.TXT"},
        {4, "D:\\NEW\\E.TXT e.txt", 0, "D/NEW/e.txt"}, // another case only
        {4, "D:\\NEW\\E.TXT F.TXT", 29697, ""},        // is taken
        {4, "D:\\NEW\\NONE F.TXT", 29697, ""},
        {4, "D:\\NEW\\E.TXT D:\\E.TXT", 29698, ""},
        {4, "D:\\NEW\\E.TXT ..", 29698, ""},
        {4, "D:\\NEW\\E.TXT", 29697, ""},
        {4, "D: E", 29697, ""}, // a drive stays
        {5, "D:\\NEW\\E.TXT E:\\G.TXT", 0, "E/G.TXT"},
        {5, "E:\\G.TXT D:\\NEW", 0, "D/NEW/G.TXT"}, // into a folder
        {5, "D:\\NEW\\G.TXT D:\\NEW\\F.TXT", 29953, ""},
        {5, "D:\\NEW\\G.TXT D:\\NONE\\G.TXT", 29953, ""},
        {5, "D:\\NEW D:\\NEW\\INNER", 29953, ""}, // into itself
        {5, "D:\\NEW E:\\NEW", 0, "E/NEW/G.TXT"},
        {14, "E:\\NEW\\G.TXT", 0, ""},
        {14, "E:\\NEW", 0, ""},
        {14, "E:\\NEW\\NONE", 32257, ""}};
    for (const auto& [minor, text, code, there] : rows) {
        EXPECT_EQ(On(minor, text), code) << text;
        EXPECT_TRUE(Has(there)) << text;
    }
    EXPECT_EQ(folder.Read("E/NEW/G.TXT"), "ab");
}

TEST_F(FileSystem, FormattingEmptiesADriveAndCOnlyWithItsWord)
{
    Make("D/T/A.NMG");
    Make("C/FONT/A.FNT");
    const Bytes config = OnSign("C/CONFIG.SYS");
    Expect(0, {{7, 2, {'D'}}});
    EXPECT_TRUE(fs::is_empty(folder.path / "D"));
    Expect(29185, {{7, 2, {'C'}}, {7, 2, {'c'}}, {7, 2, {'G'}}, {7, 2}});
    EXPECT_TRUE(Has("C/FONT/A.FNT"));
    Make("C/CONFIG.SYS", {1, 2, 3});
    Expect(0, {{7, 2, Text("CSYS")}});
    EXPECT_FALSE(Has("C/FONT"));
    EXPECT_EQ(OnSign("C/CONFIG.SYS"), config);
}

TEST_F(FileSystem, PlayFilesGoByKindOrAllTogether)
{
    const auto fill = [&] {
        for (const char* place : {"C/T/1", "D/T/2", "D/S/3", "D/P/4", "E/A/5", "D/T/DEEP/6", "D/KEEP"})
            Make(place);
    };
    fill();
    Expect(0, {{7, 7, {'d'}}});
    EXPECT_TRUE(Has("C/T/1") && !Has("D/T/2") && Has("D/T/DEEP/6") && Has("D/S/3"));
    Expect(0, {{7, 8, {2}}}); // D is the second
    EXPECT_FALSE(Has("D/S/3"));
    Expect(0, {{7, 9, {0}}});
    EXPECT_FALSE(Has("D/P/4"));
    Expect(0, {{7, 10, {'D'}}});
    EXPECT_TRUE(Has("E/A/5"));
    Expect(30209, {{7, 10, {5}}, {7, 10, {'G'}}});
    fill();
    Make("C/SEQUENT.SYS");
    int sequences = 0;
    sign->Observe({.sequenceWritten = [&] { ++sequences; }});
    EXPECT_EQ(PayloadOf(Ask(7, 15, {1})), (Bytes{6, 0, 0, 0}));
    EXPECT_EQ(sequences, 1);
    EXPECT_TRUE(Has("D/KEEP") && !Has("C/SEQUENT.SYS") && !Has("C/T/1"));
    EXPECT_EQ(PayloadOf(Ask(7, 15, {0})), Bytes{});
}

TEST_F(FileSystem, AListingIsMadeOfFatEntries)
{
    Make("D/L/zeta.txt", Bytes(300, 1));
    Make("D/L/A longer name.html", Bytes(2, 1));
    Make("D/L/A longer tale.html");
    Make("D/L/NOEXT");
    Make("D/L/SUB/X");
    fs::create_symlink("/etc/passwd", folder.path / "D/L/LINK");
    for (const char* place : {"zeta.txt", "A longer name.html", "A longer tale.html", "NOEXT", "SUB"})
        Date(std::string("D/L/") + place);
    const auto entry = [](const char* name, std::uint8_t attribute, std::uint8_t low, std::uint8_t high) {
        return Text(name) + Bytes{attribute} + Bytes(10, 0) + Bytes{0x05, 0x39, 0xA6, 0x58, 0, 0, low, high, 0, 0};
    };
    const Bytes sub = entry("SUB        ", 0x10, 0, 0);
    const Bytes one = entry("ALONGE~1HTM", 0x20, 2, 0);
    const Bytes two = entry("ALONGE~2HTM", 0x20, 1, 0);
    const Bytes three = entry("NOEXT      ", 0x20, 1, 0);
    const Bytes four = entry("ZETA    TXT", 0x20, 0x2C, 0x01);
    const Bytes reply = Ask(7, 11, Path("D:\\L"));
    EXPECT_EQ(PayloadOf(reply), (Bytes{5, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(reply), sub + one + two + three + four);
    EXPECT_EQ(ExtendedOf(Ask(7, 11, Path("D:\\L\\*.*"))), sub + one + two + three + four);

    const Bytes part = Ask(7, 12, Bytes{2, 0, 1, 0} + Path("D:\\L\\"));
    EXPECT_EQ(PayloadOf(part), (Bytes{5, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(part), one + two);
    EXPECT_EQ(ExtendedOf(Ask(7, 12, Bytes{255, 255, 4, 0} + Text("D:\\L"))), four);
    EXPECT_EQ(ExtendedOf(Ask(7, 12, Bytes{5, 0, 5, 0} + Text("D:\\L"))), Bytes{});
    EXPECT_EQ(PayloadOf(Ask(7, 11, Path("D:\\t\\*.*"))), Bytes(4)) << "a standard folder without anything in it";
    EXPECT_EQ(On(11, "D:\\NONE"), 31489U);
    EXPECT_EQ(On(11, "D:\\L\\NOEXT"), 31489U);

    for (int i = 0; i < 100; ++i)
        Make("E/many/" + std::to_string(i));
    const Bytes many = Ask(7, 12, Bytes{255, 0, 0, 0} + Text("E:\\many"));
    EXPECT_EQ(PayloadOf(many), (Bytes{100, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(many).size(), 40U * 32) << "what one reply holds";
}

// Processor time of the short names of that many files with one stem.
double ShortNameTime(int count)
{
    vxsim::ShortNames names;
    const std::clock_t begin = std::clock();
    for (int i = 0; i < count; ++i)
        names.Next("one stem " + std::to_string(i) + ".text");
    return static_cast<double>(std::clock() - begin);
}

TEST(ShortNames, EachTakesTheLeastNumberThatIsFreeAtTheSameCost)
{
    vxsim::ShortNames names;
    using Row = std::pair<const char*, const char*>;
    for (const auto& [name, shortName] :
         {Row{"longna~2.txt", "LONGNA~2TXT"}, Row{"longname1.txt", "LONGNA~1TXT"}, Row{"long names.txt", "LONGNA~3TXT"},
          Row{"LONGNA~1.TXT", "LONGNA~4TXT"}, Row{"long names", "LONGNA~1   "}, Row{"long names.text", "LONGNA~1TEX"},
          Row{"a+b", "AB~1       "}, Row{"a b", "AB~2       "}, Row{".profile", "PROFIL~1   "}, Row{"+", "~1         "},
          Row{"longna~5.txt", "LONGNA~5TXT"}, Row{"longname2.txt", "LONGNA~6TXT"}, Row{"longname3.txt", "LONGNA~7TXT"},
          Row{"longname4.txt", "LONGNA~8TXT"}, Row{"longname5.txt", "LONGNA~9TXT"}, Row{"longname6.txt", "LONGN~10TXT"},
          Row{"longnobody.txt", "LONGNO~1TXT"}, Row{"longname7.txt", "LONGN~11TXT"}})
        EXPECT_EQ(names.Next(name), shortName) << name;

    double few = 1e18;
    double many = 1e18;
    for (int i = 0; i < 3; ++i) {
        few = std::min(few, ShortNameTime(1000));
        many = std::min(many, ShortNameTime(8000));
    }
    EXPECT_LT(many / few, 24) << "8 if each name costs the same, 64 if each tries all numbers";
}

TEST_F(FileSystem, TheLongListingIsAFileOnDriveE)
{
    const std::string longName = std::string(200, 'n') + ".txt";
    Make("D/L/" + longName, Bytes(258, 1));
    Make("D/L/sub/X");
    Date("D/L/" + longName);
    Date("D/L/sub");
    EXPECT_EQ(On(16, "D:\\L"), 0U);
    const Bytes tail{0xA6, 0x58, 0x05, 0x39};
    const Bytes header = Text("LD") + Bytes{16, 0, 2, 0, 0, 0, 0x38, 0x02, 0, 0, 0, 0, 0, 0};
    const Bytes sub = Text("sub") + Bytes(257, 0) + Bytes{0, 0, 0, 0} + tail + Bytes{0x10} + Bytes(7, 0);
    const Bytes file = Text(longName) + Bytes(56, 0) + Bytes{2, 1, 0, 0} + tail + Bytes{0x20} + Bytes(7, 0);
    EXPECT_EQ(OnSign("E/dlist.dlt"), header + sub + file);
    EXPECT_EQ(On(16, "D:\\NONE"), 31489U);
    Restart("CD");
    EXPECT_EQ(On(16, "D:\\L"), 31489U);
}

TEST_F(FileSystem, DriveInformationCountsKilobytes)
{
    const Bytes record = PayloadOf(Ask(7, 13, {'D', ':'}));
    ASSERT_EQ(record.size(), 20U);
    std::uint32_t words[3] = {};
    std::memcpy(words, record.data(), sizeof words);
    EXPECT_EQ(words[0], std::min<std::uint64_t>(fs::space(folder.path).capacity / 1024, 0xFFFFFFFF));
    EXPECT_LE(words[1], words[0]);
    EXPECT_EQ(words[2], 1024U);
    Expect(32001, {{7, 13, {'G', ':'}}, {7, 13}});
}

} // namespace
} // namespace vxsign::test
