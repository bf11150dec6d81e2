// Texts in the encoding of a sign.
#include "vxctl/cli/encoding.h"
#include "vxctl/cli/failure.h"
#include "vxctl/show/markup.h"

#include <gtest/gtest.h>

namespace vxctl::test {
namespace {

template <class Act>
std::string ComplaintOf(const Act& act)
{
    try {
        act();
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

TEST(Encoding, TextsBecomeTheBytesOfTheSign)
{
    using namespace std::string_literals;
    const std::tuple<std::string, const char*, std::string> rows[] = {
        {"Nebel\r\u6E2F 4", "gbk", "Nebel\r\xB8\xDB 4"},
        {"\u8868 ~", "cp932", "\x95\x5C ~"}, // a backslash behind the first byte
        {"\u017B\u00F3\u0142w", "iso-8859-2", "\xAF\xF3\xB3w"},
        {"\u0422\u0443\u043C\u0430\u043D", "Windows-1251", "\xD2\xF3\xEC\xE0\xED"},
        {"a\u00CA", "big5-hkscs", "a\x88\x66"}, // an accent behind it would make another letter
        {"a\0b"s, "latin1", "a\0b"s},
        {std::string(5000, 'x') + "\u00E9", "latin1", std::string(5000, 'x') + "\xE9"},
        {"\xFF\u6E2F", "UTF8", "\xFF\u6E2F"}, // as it stands
        {"", "gbk", ""},
    };
    for (const auto& [text, encoding, bytes] : rows)
        EXPECT_EQ(Encoded(text, encoding), bytes) << encoding;
}

// A mark is found in the text as it is written, not in bytes of a letter that look like it.
TEST(Encoding, MarksStandBetweenEncodedTexts)
{
    EXPECT_EQ(ReadMarkup("\u7D0D{line}\u7D0F{colour 2}\u6E2F", {'1', '1'}, 5, "gbk").text,
              "\xBC\x7B\r\xBC\x7D\x1C\x32\xB8\xDB");
}

TEST(Encoding, NamesWhatItCannotSay)
{
    const std::tuple<std::string, const char*, const char*> rows[] = {
        {"a\u00DF", "gbk", "gbk has no '\u00DF' (U+00DF), at character 2"},
        {"a\r\u6E2F\U0001F600", "gbk", "gbk has no '\U0001F600' (U+1F600), in line 2 at character 2"},
        {"\u00E9\xE9", "latin1", "the text is no UTF-8 at character 2: a byte 0xE9"},
        {"\xE6\xB8", "gbk", "the text is no UTF-8 at character 1: a byte 0xE6"},
        {"\uFFFD", "gbk", "gbk has no '\uFFFD' (U+FFFD), at character 1"},
    };
    for (const auto& row : rows) {
        const char* const complaint = std::get<2>(row);
        EXPECT_EQ(ComplaintOf([&row] { Encoded(std::get<0>(row), std::get<1>(row)); }), complaint);
        EXPECT_EQ(ComplaintOf([&row] { ReadMarkup(std::get<0>(row), {}, 5, std::get<1>(row)); }), complaint);
    }
    for (const char* const name : {"", "none", "gbk//TRANSLIT", "gbk\n", "../gbk"})
        EXPECT_EQ(ComplaintOf([&] { CheckedEncoding(name); }),
                  "'" + std::string(name) + "' is no encoding that this PC knows");
    for (const char* const name : {"utf-16", "utf-32le", "utf-7", "ebcdic-us"})
        EXPECT_EQ(ComplaintOf([&] { CheckedEncoding(name); }),
                  "'" + std::string(name) + "' is no encoding for a sign: its ASCII is none");
    for (const char* const name : {"utf-8", "gbk", "gb18030", "big5", "shift_jis", "euc-kr", "koi8-r"})
        EXPECT_EQ(ComplaintOf([&] { CheckedEncoding(name); }), "none") << name;
}

} // namespace
} // namespace vxctl::test
