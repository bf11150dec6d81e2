// Folders and paths of a sign; text that a terminal may have.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/shown.h"
#include "vxctl/files/directoryEntry.h"
#include "vxctl/files/signPaths.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string_view>
#include <tuple>

namespace vxctl::test {
namespace {

using ShortEntry = std::array<std::uint8_t, 32>;
using LongEntry = std::array<std::uint8_t, 276>;

ShortEntry Entry(std::string_view name, std::uint8_t attribute)
{
    ShortEntry entry{};
    std::copy(name.begin(), name.end(), entry.begin());
    entry[11] = attribute;
    return entry;
}

TEST(DirectoryEntry, OfAPageHasNameSizeAndTime)
{
    ShortEntry entry{'H', 'E', 'L', 'L', 'O', ' ', ' ',  ' ',  'N',  'M',  ' ', 0x20, 0,    0,    0, 0,
                     0,   0,   0,   0,   0,   0,   0xBD, 0x70, 0x75, 0x5D, 0,   0,    0x04, 0x03, 2, 0x81};
    const auto file = DecodeShortEntry(entry);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->name, "HELLO.NM");
    EXPECT_FALSE(file->isFolder);
    EXPECT_EQ(file->size, 0x81020304U);
    EXPECT_EQ(file->changed, (ClockTime{2026, 11, 21, 14, 5, 58}));

    const auto folder = DecodeShortEntry(Entry("PLAYLIST   ", 0x10));
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->name, "PLAYLIST");
    EXPECT_TRUE(folder->isFolder);
    EXPECT_EQ(folder->changed, std::nullopt);
    EXPECT_EQ(DecodeShortEntry(Entry("\x05 B     TXT", 0x20))->name, "\xE5 B.TXT");
}

TEST(DirectoryEntry, IsPassedOverWhenItIsNoFile)
{
    const ShortEntry none{};
    EXPECT_TRUE(IsEnd(none));
    EXPECT_FALSE(DecodeShortEntry(none));
    const ShortEntry deleted = Entry("\xE5"
                                     "ELLO   NMG",
                                     0x20);
    EXPECT_FALSE(IsEnd(deleted));
    EXPECT_FALSE(DecodeShortEntry(deleted));
    for (const ShortEntry& passed : {Entry("SIGN       ", 0x08), Entry("Ah.e.l.l.o.", 0x0F), Entry(".          ", 0x10),
                                     Entry("..         ", 0x10), Entry("           ", 0x20)})
        EXPECT_FALSE(DecodeShortEntry(passed));
    EXPECT_FALSE(DecodeLongEntry(LongEntry{}));
}

TEST(DirectoryEntry, OfALongListingKeepsTheWholeName)
{
    LongEntry entry{};
    constexpr std::string_view kName = "a name of its own.bmp";
    std::copy(kName.begin(), kName.end(), entry.begin());
    constexpr std::array<std::uint8_t, 9> kRest{0x04, 0x03, 2, 1, 0x75, 0x5D, 0xBD, 0x70, 0x20};
    std::copy(kRest.begin(), kRest.end(), entry.begin() + 260);
    const auto file = DecodeLongEntry(entry);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->name, kName);
    EXPECT_EQ(file->size, 0x01020304U);
    EXPECT_EQ(file->changed, (ClockTime{2026, 11, 21, 14, 5, 58}));
    EXPECT_FALSE(file->isFolder);

    entry.fill(0xFF); // a name without an end stays within its field
    const auto full = DecodeLongEntry(entry);
    ASSERT_TRUE(full);
    EXPECT_EQ(full->name.size(), 260U);
    EXPECT_TRUE(full->isFolder);
    EXPECT_EQ(full->changed, std::nullopt);
}

TEST(SignPaths, NameADrive)
{
    for (const char* const text : {"D", "d", "D:", "d:\\", "D:/"})
        EXPECT_EQ(ParseDrive(text), 'D') << text;
    for (const char* const text : {"", "1", "DE", "D:\\T", ":", "D::"})
        EXPECT_THROW(ParseDrive(text), UsageError) << text;
}

TEST(SignPaths, TellARenameFromAMove)
{
    EXPECT_TRUE(IsSameFolder("D:\\T\\A.NMG", "d:/t/B.NMG"));
    EXPECT_TRUE(IsSameFolder("D:\\T\\A.NMG", "B.NMG"));
    EXPECT_TRUE(IsSameFolder("D:A.NMG", "D:B.NMG"));
    EXPECT_FALSE(IsSameFolder("D:\\T\\A.NMG", "E:\\T\\A.NMG"));
    EXPECT_FALSE(IsSameFolder("D:\\T\\A.NMG", "D:\\T\\S\\A.NMG"));
    EXPECT_FALSE(IsSameFolder("D:\\T\\A.NMG", "D:\\S"));
}

TEST(SignPaths, SayWhatPlays)
{
    EXPECT_EQ(ParsePlayFile("HELLO.NMG"), (PlayFile{0, 0, "HELLO.NMG"}));
    EXPECT_EQ(ParsePlayFile("e:/t/LONGNA~1.TXT"), (PlayFile{'E', 'T', "LONGNA~1.TXT"}));
    EXPECT_EQ(ParsePlayFile("D:\\P\\A"), (PlayFile{'D', 'P', "A"}));
    for (const char* const text : {"", "THIRTEENCHARS", "D:A.NMG", "D:\\A.NMG", "D:\\TT\\A.NMG", "D:\\T\\",
                                   "\\T\\A.NMG", "1:\\T\\A.NMG", "D:\\1\\A.NMG", "D:\\T\\S\\A.NMG"})
        EXPECT_THROW(ParsePlayFile(text), UsageError) << text;
}

TEST(ShownText, GivesNoOrdersToATerminal)
{
    using Case = std::tuple<std::string_view, std::string_view>;
    constexpr Case kCases[] = {
        {"a\x1b[2J\r\n\t\x7f b", "a?[2J???? b"},
        {"\x9bK \xC2\x9BK \xC2\x80\xC2\x9F", "?K ?K ??"},
        {"\xC3\x9B \xC2\xA0 \xE6\xBC\xA2 \xF0\x9F\x98\x80", "\xC3\x9B \xC2\xA0 \xE6\xBC\xA2 \xF0\x9F\x98\x80"},
        {"\xE2\x80\xAE\xE2\x80\xAA\xE2\x81\xA6\xE2\x81\xA9\xE2\x80\x8E\xE2\x80\x8F\xD8\x9C", "???????"},
        {"\xE2\x80\xA8\xE2\x80\xA9", "??"},
        {"\xE2\x80\x8D\xE2\x80\x90\xE2\x80\xAF", "\xE2\x80\x8D\xE2\x80\x90\xE2\x80\xAF"}, // beside those above
        {"\xC2", "?"},
        {"\xE2\x80", "??"},
        {"\xC0\x9B \xED\xA0\x80 \xEF\xBF\xBD", "?? ??? \xEF\xBF\xBD"},
    };
    for (const auto& [text, shown] : kCases) {
        EXPECT_EQ(Shown(text).Text(), shown);
        EXPECT_EQ(Printable(shown), shown);
    }
    EXPECT_EQ((Shown("\xC2") + std::string("\x9B") + "K").Text(), "??K");
}

} // namespace
} // namespace vxctl::test
