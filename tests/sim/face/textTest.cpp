// Text on the face: characters, lines, pages.
#include "faceSamples.h"

#include "sim/face/dotFont.h"
#include "sim/face/text.h"
#include "sim/face/utf8.h"

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

    std::string Face(std::string text, int width, int height, char fontCode = '1')
    {
        Canvas face(width, height);
        for (const Page& page : Set(std::move(text), width, height, fontCode))
            DrawPage(page, font, face);
        return Drawing(face);
    }

    int Width(std::string_view text) { return SetLine(text, 16, kRed, font).width; }

    Font font;
};

TEST_F(Text, DrawsBoldLettersFromTwelveRowsOnAndDotsBelow)
{
    EXPECT_EQ(Face("7g", 24, 16), "...#######..............\n...#######..............\n"
                                  "........##....###.##....\n.......##....#######....\n"
                                  ".......##...###..###....\n......##....##....##....\n"
                                  "......##....##....##....\n.....##.....##....##....\n"
                                  ".....##.....###..###....\n.....##......#######....\n"
                                  ".....##......####.##....\n..................##....\n"
                                  "............##...###....\n............#######.....\n"
                                  "..............####......\n........................\n");
    EXPECT_EQ(Face("7g\xC3\x84", 24, 7), "...#####........#.#.....\n.......#................\n"
                                         "......#...####..###.....\n.....#...#...#.#...#....\n"
                                         ".....#....####.#####....\n....#........#.#...#....\n"
                                         "....#.....###..#...#....\n");
}

// Every letter that a font of dots or the lettering can set: what is lit of it stays whole on its line.
TEST_F(Text, CutsNoLetterAtAnyHeight)
{
    const std::string letters = "Ag\xC3\x85j\xC3\x87";
    for (int height = 7; height <= 40; ++height) {
        const std::vector<Page> pages = Set(letters, 400, height, '9');
        ASSERT_EQ(pages.size(), 1U);
        Canvas face(400, height);
        Canvas roomy(400, 3 * height);
        DrawPage(pages[0], font, face);
        DrawPage(pages[0], font, roomy, 0, height);
        EXPECT_EQ(CountLit(face), CountLit(roomy)) << height;
        EXPECT_GT(CountLit(face), 0) << height;
    }
}

TEST_F(Text, WrapsBetweenWordsAndBreaksWhatIsTooWide)
{
    EXPECT_EQ(Lines("ab cd ef", Width("ab cd"), 32), "ab cd|ef");
    EXPECT_EQ(Lines("abcd ef", Width("abcd"), 32), "abcd|ef") << "the line is full at the space";
    EXPECT_EQ(Lines("abcd   ef", Width("abcd"), 32), "abcd|ef");
    EXPECT_EQ(Lines("abcd \nef", Width("abcd"), 32), "abcd|ef") << "no empty line behind the space";
    EXPECT_EQ(Lines("abcdef", Width("abcd"), 32), "abcd|ef");
    EXPECT_EQ(Lines("a bcdefg", Width("bcde"), 48), "a|bcde|fg");
    EXPECT_EQ(Lines("中中中", 40, 32), "**|*") << "wide characters need no space between them";
    EXPECT_EQ(Lines("ab", 1, 16), "a/b") << "a face narrower than a letter";
    EXPECT_EQ(Lines("EE", 11, 7), "EE") << "the gap behind the last letter may lie beyond the face";
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
    EXPECT_GT(Set("\na", 64, 32)[0][0].y, Set("a", 64, 32)[0][0].y) << "at the top too";
    EXPECT_TRUE(Set("", 64, 32).empty());
}

TEST_F(Text, StandsInTheMiddleByItsInkAndMixesSizesOnOneFoot)
{
    EXPECT_EQ(Face("H", 13, 14), Face("H\xC2\xA0", 13, 14)) << "spaces weigh nothing";
    EXPECT_EQ(Face("-", 7, 9), ".......\n.......\n.......\n.####..\n.####..\n.......\n.......\n.......\n.......\n");

    const TextRun runs[] = {{"a", '2', kRed}, {"b", '1', kGreen}};
    const Page mixed = SetText(runs, 64, 32, font)[0];
    EXPECT_EQ(mixed[0].y, mixed[1].y);
    EXPECT_EQ(mixed[0].glyph.pixels, 32);
    EXPECT_EQ(mixed[1].glyph.pixels, 16);
    EXPECT_EQ(mixed[1].colour, kGreen);
}

TEST_F(Text, EnlargesNoFurtherThanTheFaceAllows)
{
    const auto pixels = [&](std::string text, int width, int height, char fontCode) {
        return Set(std::move(text), width, height, fontCode)[0][0].glyph.pixels;
    };
    EXPECT_EQ(pixels("a", 128, 32, '9'), 32);
    EXPECT_EQ(pixels("a", 128, 24, '3'), 24);
    EXPECT_EQ(pixels("a", 128, 32, 'A'), 16) << "not in the table";
    EXPECT_EQ(Lines("HELLO 42", 64, 32, '0'), "HELLO|42");
    EXPECT_EQ(pixels("HELLO 42", 64, 32, '0'), 19) << "two lines of 13 rows and the space between them";
    EXPECT_LT(pixels("HELLO 421 HELLO", 64, 32, '0'), 19);
    EXPECT_EQ(Lines("longword", 64, 64, '0'), "longword") << "breaks no word to be larger";
    EXPECT_EQ(pixels("H", 128, 32, '0'), 46) << "a capital fills the face";
    EXPECT_EQ(pixels("H\fHELLO 42", 128, 32, '0'), 46) << "on each page for itself";
    EXPECT_EQ(pixels(std::string(200, 'x'), 64, 16, '0'), 16) << "what fits at no size has that of '1'";
}

// What belongs to no character of the encoding is shown as such, and loses nothing behind it.
TEST_F(Text, IsReadInTheEncodingOfTheFont)
{
    const auto texts = [&](const char* encoding, const std::string& text) {
        font.SetEncoding(encoding);
        const TextRun run{text, '1', kRed};
        return LayOut({&run, 1}, 256, 16, font).texts.at(0);
    };
    EXPECT_EQ(texts("gbk", "4 \xB8\xDB\xFFz\xB8"), "4 \u6E2F\uFFFDz\uFFFD");
    EXPECT_EQ(texts("iso-8859-2", "\xAF\xF3\xB3w"), "\u017B\u00F3\u0142w");
    EXPECT_EQ(texts("utf8", "\u6E2F\xB8z"), "\u6E2F\uFFFDz");
    font.SetEncoding("gbk");
    EXPECT_EQ(SetLine("\xB8\xDB", 16, kRed, font).glyphs.at(0).character, U'\u6E2F');
    EXPECT_THROW(font.SetEncoding("utf-16"), std::invalid_argument);
}

TEST_F(Text, TellsWhatBecomesOfIt)
{
    struct Row
    {
        std::string text;
        int width;
        int height;
        const char* texts; // pages, with '/' between
        std::size_t pagesMeant;
        char font = '1';
        bool brokenWord = false;
        bool isCut = false;
    };
    const Row rows[] = {
        {"ab cd", Width("ab"), 32, "ab\ncd", 1},
        {"ab cd\u00E9", Width("cd\u00E9"), 16, "ab/cd\u00E9", 1},
        {"ab\fcd\f", 64, 16, "ab/cd", 2},
        {"a\f\fb", 64, 16, "a//b", 3, '0'},
        {"abcd", Width("ab"), 32, "ab\ncd", 1, '1', true},
        {"ab", 2, 16, "a/b", 1, '1', true, true},
        {"gA", 64, 3, "gA", 1, '1', false, true},
    };
    for (const Row& row : rows) {
        const TextRun run{row.text, static_cast<std::uint8_t>(row.font), kRed};
        const Layout layout = LayOut({&run, 1}, row.width, row.height, font);
        std::string texts;
        for (const std::string& text : layout.texts)
            texts.append(&text == &layout.texts.front() ? "" : "/").append(text);
        EXPECT_EQ(texts, row.texts);
        EXPECT_EQ(layout.texts.size(), layout.pages.size()) << row.text;
        EXPECT_EQ(layout.pagesMeant, row.pagesMeant) << row.text;
        EXPECT_EQ(layout.brokenWord, row.brokenWord) << row.text;
        EXPECT_EQ(layout.isCut, row.isCut) << row.text;
    }
    const auto isCut = [&](const std::string& text) {
        const TextRun run{text, '1', kRed};
        return LayOut({&run, 1}, 4096, 16, font).isCut;
    };
    const std::string feeds(kMostPages - 1, '\f');
    EXPECT_FALSE(isCut(feeds + 'x'));
    EXPECT_TRUE(isCut(feeds + "\fx"));
    EXPECT_FALSE(isCut(std::string(kMostCharacters, 'i')));
    EXPECT_TRUE(isCut(std::string(kMostCharacters + 1, 'i')));

    EXPECT_LE(Set(std::string(1000000, '\f'), 1, 1).size(), kMostPages);
    std::size_t characters = 0;
    for (const Page& page : Set(std::string(1000000, 'x'), 4096, 4096, '0'))
        characters += page.size();
    EXPECT_EQ(characters, kMostCharacters);
}

TEST_F(Text, SetsOtherScriptsAsTheyAreWritten)
{
    EXPECT_EQ(Face("e\xCC\x81", 16, 16), Face("\xC3\xA9", 16, 16)) << "a letter and its accent are one";
    EXPECT_EQ(Lines("ab \u05D0\u05D1", 128, 16), "ab **");
    const Page hebrew = Set("\u05D0\u05D1", 64, 16)[0];
    EXPECT_EQ(hebrew[0].character, U'\u05D1') << "from right to left";
    const auto ink = [&](std::string text) {
        Canvas face(64, 16);
        DrawPage(Set(std::move(text), 64, 16)[0], font, face);
        return CountLit(face);
    };
    EXPECT_NE(ink("\u0628\u0628"), 2 * ink("\u0628")) << "Arabic letters join";
    EXPECT_GT(ink("\u0E01\u0E34"), ink("\u0E01")) << "a Thai vowel over its consonant";
    EXPECT_EQ(Set("\u0E01\u0E34x", 64, 16)[0].back().x - Set("\u0E01x", 64, 16)[0].back().x, 0);
    EXPECT_EQ(Set("\u0939\u093F", 64, 16)[0][0].character, U'\u093F') << "stands in front of its consonant";
}

TEST(Font, NamesTheFileThatItCannotOpenAndReplacesUnknownCharacters)
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

    Font font;
    EXPECT_EQ(font.KeyOf({U'\U0010FFFD', 16}), font.KeyOf({kReplacementCharacter, 16}));
    for (char32_t character = 0x4E00; character < 0x4E00 + 6000; ++character)
        ASSERT_EQ(font.GlyphOf(font.KeyOf({character, 16})).advance, 16) << "the store of glyphs turns over";
}

// The drawings hold what a road sign says, and put the accents of Latin letters together.
TEST(DotFont, HasLettersAndAccents)
{
    for (const DotFont* dots : {&DotFont::Of5x7(), &DotFont::Of7x9()}) {
        for (char32_t character = U' '; character <= U'~'; ++character)
            ASSERT_NE(dots->Find(character), nullptr) << static_cast<char>(character);
        for (const char32_t character : U"ÄÖÜäöüßÅÉèñçŁőŞşčřžėąįĐøæ€°→")
            ASSERT_TRUE(character == 0 || dots->Find(character) != nullptr) << static_cast<unsigned>(character);
        ASSERT_EQ(dots->Find(U'中'), nullptr);
    }
}

} // namespace
} // namespace vxsim::test
