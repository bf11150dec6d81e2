#include "faceSamples.h"

#include "sim/face/text.h"
#include "sim/face/utf8.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace vxsim::test {
namespace {

std::u32string DecodeAll(std::string_view text)
{
    std::u32string characters;
    while (!text.empty())
        characters += TakeCharacter(text);
    return characters;
}

TEST(Utf8, TakesWellFormedTextAndMarksEveryBadByte)
{
    EXPECT_EQ(DecodeAll("A\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80"), U"Aü中\U0001F600");
    EXPECT_EQ(DecodeAll("\xF4\x8F\xBF\xBF"), U"\U0010FFFF");
    EXPECT_EQ(DecodeAll("a\x80z\xFF"), U"a\uFFFDz\uFFFD");
    EXPECT_EQ(DecodeAll("\xC3"), U"\uFFFD");
    EXPECT_EQ(DecodeAll("\xE4\xB8"
                        "A"),
              U"\uFFFD\uFFFDA");
    EXPECT_EQ(DecodeAll("\xC0\xAF"), U"\uFFFD\uFFFD") << "over-long";
    EXPECT_EQ(DecodeAll("\xE0\x80\xAF"), U"\uFFFD\uFFFD\uFFFD") << "over-long";
    EXPECT_EQ(DecodeAll("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD") << "half of a surrogate";
    EXPECT_EQ(DecodeAll("\xF4\x90\x80\x80"), U"\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last character";
}

class Text : public ::testing::Test
{
protected:
    std::vector<Page> Set(std::string text, int width, int height, char fontCode = '1')
    {
        const TextRun runs[] = {{std::move(text), static_cast<std::uint8_t>(fontCode), kRed}};
        return SetText(runs, width, height, font);
    }

    // The pages as lines of their characters, lines joined by '|' and pages by '/'.
    std::string Lines(std::string text, int width, int height, char fontCode = '1')
    {
        std::string lines;
        for (const Page& page : Set(std::move(text), width, height, fontCode)) {
            lines += lines.empty() ? "" : "/";
            for (std::size_t i = 0; i < page.size(); ++i) {
                lines += i > 0 && page[i].y != page[i - 1].y ? "|" : "";
                lines += page[i].character < 0x80 ? static_cast<char>(page[i].character) : '*';
            }
        }
        return lines;
    }

    Font font;
};

TEST_F(Text, DrawsTheFontsOwnPixels)
{
    Canvas face(8, 16);
    const std::vector<Page> pages = Set("A", 8, 16);
    ASSERT_EQ(pages.size(), 1U);
    DrawPage(pages[0], font, face);
    EXPECT_EQ(Drawing(face), "........\n........\n........\n........\n"
                             "...##...\n..#..#..\n..#..#..\n.#....#.\n.#....#.\n.######.\n"
                             ".#....#.\n.#....#.\n.#....#.\n.#....#.\n........\n........\n");

    Canvas large(16, 32);
    DrawPage(Set("A", 16, 32, '2')[0], font, large);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 16; ++x)
            ASSERT_EQ(large.At(x, y), face.At(x / 2, y / 2)) << x << ' ' << y;
    }
}

TEST_F(Text, WrapsBetweenWordsAndBreaksWhatIsTooWide)
{
    EXPECT_EQ(Lines("ab cd ef", 40, 32), "ab cd|ef");
    EXPECT_EQ(Lines("abcd ef", 32, 32), "abcd|ef") << "the line is full at the space";
    EXPECT_EQ(Lines("abcd   ef", 32, 32), "abcd|ef");
    EXPECT_EQ(Lines("abcd \nef", 32, 32), "abcd|ef") << "no empty line behind the space";
    EXPECT_EQ(Lines("abcdef", 32, 32), "abcd|ef");
    EXPECT_EQ(Lines("a bcdefg", 32, 48), "a|bcde|fg");
    EXPECT_EQ(Lines("中中中", 40, 32), "**|*") << "wide characters need no space between them";
    EXPECT_EQ(Lines("ab", 1, 16), "a/b") << "a face narrower than a letter";
}

TEST_F(Text, FeedsLinesAndPages)
{
    EXPECT_EQ(Lines("a\nb", 64, 32), "a|b");
    EXPECT_EQ(Lines("a\nb\n", 64, 32), "a|b");
    EXPECT_EQ(Lines("a\fb\f", 64, 32), "a/b");
    EXPECT_EQ(Lines("a\nb\nc", 64, 32), "a|b/c") << "the third line goes to a page of its own";
    const std::vector<Page> pages = Set("a\n\nb", 64, 48);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0][1].y - pages[0][0].y, 32) << "an empty line has its height";
    EXPECT_TRUE(Set("", 64, 32).empty());
}

TEST_F(Text, StandsInTheMiddleAndMixesSizesOnOneFoot)
{
    const std::vector<Page> one = Set("ab", 64, 32);
    EXPECT_EQ(one[0][0].x, 24);
    EXPECT_EQ(one[0][0].y, 8);

    const TextRun runs[] = {{"a", '2', kRed}, {"b", '1', kGreen}};
    const Page mixed = SetText(runs, 64, 32, font)[0];
    EXPECT_EQ(mixed[0].y, 0);
    EXPECT_EQ(mixed[1].y, 16);
    EXPECT_EQ(mixed[1].x, mixed[0].x + 16);
    EXPECT_EQ(mixed[1].colour, kGreen);
}

TEST_F(Text, EnlargesNoFurtherThanTheFaceAllows)
{
    EXPECT_EQ(Set("a", 128, 32, '9')[0][0].scale, 2);
    EXPECT_EQ(Set("a", 128, 8, '3')[0][0].scale, 1);
    EXPECT_EQ(Set("a", 128, 32, 'A')[0][0].scale, 1) << "not in the table";
    EXPECT_EQ(Set("HELLO 42", 128, 32, '0')[0][0].scale, 2) << "as large as it goes";
    EXPECT_EQ(Set("HELLO 421", 128, 32, '0')[0][0].scale, 1);
    EXPECT_EQ(Set("longword", 64, 64, '0')[0][0].scale, 1) << "breaks no word to be larger";
}

TEST_F(Text, DrawsMarksOverTheLetterBefore)
{
    const Page page = Set("e\xCC\x81x", 64, 16)[0];
    EXPECT_EQ(page[2].x, page[0].x + 8);
    Canvas plain(64, 16);
    Canvas marked(64, 16);
    DrawPage(Set("ex", 64, 16)[0], font, plain);
    DrawPage(page, font, marked);
    EXPECT_GT(CountLit(marked), CountLit(plain));
}

TEST_F(Text, IsBoundedWhateverItsLength)
{
    EXPECT_LE(Set(std::string(1000000, '\f'), 1, 1).size(), kMostPages);
    std::size_t characters = 0;
    for (const Page& page : Set(std::string(1000000, 'x'), 4096, 4096, '0'))
        characters += page.size();
    EXPECT_EQ(characters, kMostCharacters);
}

TEST(Font, NamesTheFileThatItCannotOpen)
{
    try {
        const Font font("/nowhere/unifont.otf");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("\"/nowhere/unifont.otf\""), std::string::npos);
        EXPECT_NE(std::string(error.what()).find("VXSIM_FONT"), std::string::npos);
    }
    setenv("VXSIM_FONT", "/elsewhere.otf", 1);
    EXPECT_EQ(Font::DefaultPath(), "/elsewhere.otf");
    unsetenv("VXSIM_FONT");
    EXPECT_NE(Font::DefaultPath(), "/elsewhere.otf");
}

TEST(Font, ShowsUnknownCharactersAsReplacements)
{
    Font font;
    const Glyph unknown = font.GlyphOf(U'\U0010FFFD');
    EXPECT_EQ(unknown.rows, font.GlyphOf(kReplacementCharacter).rows);
    EXPECT_EQ(unknown.advance, 8);
    for (char32_t character = 0x4E00; character < 0x4E00 + 6000; ++character)
        ASSERT_EQ(font.GlyphOf(character).advance, 16) << "the store of glyphs turns over";
}

} // namespace
} // namespace vxsim::test
