// Texts with marks, and the codes that they become.
#include "vxctl/show/markup.h"

#include "vxctl/cli/failure.h"

#include <gtest/gtest.h>

namespace vxctl::test {
namespace {

constexpr TextStyle kStyle{'1', 0x00FFFF2F}; // yellow

MarkedText Read(std::string_view text, std::uint32_t staySeconds = 5)
{
    return ReadMarkup(text, kStyle, staySeconds);
}

TEST(Markup, BecomesTheCodesOfAMessage)
{
    using namespace std::string_literals;
    const std::pair<const char*, std::string> rows[] = {
        {"Lane 2 closed}", "Lane 2 closed}"},
        {"a{line}b{page}c", "a\rb\fc"},
        {"{red}a", "\x1C/\xFF\0\0a"s},
        {"{#0A1B04}a{plain}b", "\x1C/\x0A\x1B\x04"s + "a\x1C/\xFF\xFF\0b"s},
        {"{colour 4}a{color 5}b", "\x1C"s + "4a\x1C"s + "5b"},
        {"{font 0}a{red}{font 1}{plain}b", "\x1A"s + "0a\x1A"s + "1b"},
        {"{yellow}{font 49}a", "a"}, // as the message begins
        {"{{red}} {{", "{red}} {"},
        {"{page}", "\f"},
        {"", ""},
    };
    for (const auto& [text, wanted] : rows) {
        const MarkedText marked = Read(text);
        EXPECT_EQ(marked.text, wanted) << text;
        EXPECT_FALSE(marked.flashes) << text;
    }
}

// A page that flashes is there lit and dark in turn, and one that does not for as long. Each begins with what holds.
TEST(Markup, FlashingPagesComeOnceASecond)
{
    using namespace std::string_literals;
    const std::string dark = "\x1C/\0\0\0"s;
    const std::string yellow = "\x1C/\xFF\xFF\0"s;
    const std::string red = "\x1C/\xFF\0\0"s;
    EXPECT_EQ(Read("a{flash}b{/flash}c", 1).text, "abc\f"s + "a" + dark + "b" + yellow + "c");
    EXPECT_EQ(Read("{flash}a{red}b", 2).text, "a" + red + "b\f" + dark + "ab");
    EXPECT_EQ(Read("{flash}a{/flash}{page}{red}b", 3).text,
              "a\f" + dark + "a\f" + yellow + "a\f" + dark + "a\f" + red + "b\fb\fb\fb");
    EXPECT_TRUE(Read("{flash}a").flashes);
    EXPECT_NO_THROW(Read("{flash}a", 256));
    EXPECT_THROW(Read("{flash}a", 257), UsageError);
}

TEST(Markup, WrongMarksAreNamedWithTheirPlace)
{
    const std::pair<const char*, const char*> rows[] = {
        {"ab{rde}c", "'{rde}' at character 3: there is no such mark (did you mean {red}?)"},
        {"\xC3\xA4{line}\xC3\xB6\r{/flsh}", "'{/flsh}' in line 2 at character 1: there is no such mark (did you mean "
                                            "{/flash}?)"},
        {"{}", "'{}' at character 1: there is no such mark; {{ stands for a brace"},
        {"a{red", "'{' at character 2 has no '}' behind it; {{ stands for a brace"},
        {"{/flash}", "'{/flash}' at character 1: nothing flashes here"},
        {"{flash}{flash}", "'{flash}' at character 8: it flashes already"},
        {"{font big}", "'{font big}' at character 1: 'big' is no font: a character, or a number from 48 to 169"},
        {"{#12}", "'{#12}' at character 1: '#12' is no colour such as #FF8000"},
    };
    for (const auto& [text, complaint] : rows) {
        try {
            Read(text);
            ADD_FAILURE() << text;
        } catch (const UsageError& error) {
            EXPECT_STREQ(error.what(), complaint);
        }
    }
    std::string pages;
    for (int i = 0; i < 256; ++i)
        pages += "{page}";
    EXPECT_THROW(Read(pages), UsageError);
}

} // namespace
} // namespace vxctl::test
