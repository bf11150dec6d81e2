// The book of signs: what it says, what it refuses and where, and how it is changed.
#include "vxctl/book/signBook.h"
#include "vxctl/book/bookEdit.h"
#include "vxctl/cli/failure.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace vxctl::test {
namespace {

constexpr const char* kBook = R"(# the A7
timeout = 500
site = "a7"
labels = { road = "A7" }

[sign.z-first]
url = "udp://10.7.0.12:9520"
groups = ["north", "portal"]
labels = { km = 12.4, hard_shoulder = true }
size = "2048x64"
encoding = "gbk"
destination = 257
login = { user = "operator", password-file = "z.pass" }

# the second one
[sign."a.second"]
url = "tcp://10.7.0.13"
timeout = 0x1F4
retries = 9
groups = ["south"]
interval = 5

[sign.m]
url = "udp://10.7.0.12" # the same line as the first, but another place on it
)";

std::string Complaint(const std::string& text, const std::string& file = "b.toml")
{
    try {
        ParseBook(text, file);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

std::string NamesOf(const SignBook& book)
{
    std::string names;
    for (const BookSign& sign : book)
        names += sign.name + " ";
    return names;
}

TEST(SignBook, SaysWhatHoldsForEachSign)
{
    const SignBook book = ParseBook(kBook, "/etc/vx/b.toml");
    ASSERT_EQ(NamesOf(book), "z-first a.second m ");
    EXPECT_EQ(
        book[0],
        (BookSign{
            "z-first",
            "a7",
            {"udp://10.7.0.12:9520", 500, 3, 768, 257, Login{"operator", "/etc/vx/z.pass", ""}, {2048, 64}, "gbk"},
            {"north", "portal"},
            {{"hard_shoulder", "true"}, {"km", "12.4"}, {"road", "A7"}},
            60}));
    EXPECT_EQ(book[1],
              (BookSign{"a.second", "a7", {"tcp://10.7.0.13", 500, 9, 768, 0}, {"south"}, {{"road", "A7"}}, 5}));
    EXPECT_EQ(NamesOf(ParseBook("", "b.toml")), "");
}

TEST(SignBook, GivesTheSignsThatWordsName)
{
    const SignBook book = ParseBook(kBook, "b.toml");
    EXPECT_EQ(NamesOf(Select(book, {"all"})), "z-first a.second m ");
    EXPECT_EQ(NamesOf(Select(book, {"m", "group:portal", "m", "group:north"})), "z-first m ");
    EXPECT_THROW(Select(book, {"m", "n"}), UsageError);
    EXPECT_THROW(Select(book, {"group:m"}), UsageError);
    EXPECT_THROW(Select({}, {"all"}), UsageError);
    for (const char* const word : {"m", "all", "group:north", "a.second"})
        EXPECT_TRUE(IsBookWord(word)) << word;
    for (const char* const word : {"udp://h", "serial:/dev/ttyUSB0", "", "..", "-s", "a/b"})
        EXPECT_FALSE(IsBookWord(word)) << word;
}

TEST(SignBook, NamesThePlaceOfWhatIsWrong)
{
    const std::pair<std::string, const char*> rows[] = {
        {"timeout = 3", "b.toml:1:11: timeout: '3' is no number from 50 to 60000"},
        {"retries = \"3\"", "b.toml:1:11: retries is a whole number"},
        {"chunk = -1", "b.toml:1:9: chunk: '-1' is no number from 64 to 1280"},
        {"timout = 3000", "b.toml:1:10: 'timout' is no key for all signs (did you mean timeout?)"},
        {"url = \"udp://h\"", "b.toml:1:7: 'url' is no key for all signs"},
        {"\n[sign.a]\nsite = \"a/b\"", "b.toml:3:8: 'a/b' is no name: "},
        {"[sign.a]", "b.toml:1:1: sign a has no url"},
        {"[sign.all]\nurl = \"udp://h\"", "b.toml:1:1: 'all' is no name: "},
        {"[sign.'a+b']\nurl = \"udp://h\"", "b.toml:1:1: 'a+b' is no name: "},
        {"[sign.a]\nurl = \"ftp://h\"", "b.toml:2:7: 'ftp://h' names no sign: "},
        {"[sign.a]\nurl = \"udp://h\\u0000x\"", "b.toml:2:7: url is a text"},
        {"[sign.a]\nurl = \"udp://h\"\n[sign.a]", "b.toml:3:1: "},
        {"[sign.a]\nurl = \"udp://h\"\n[sign.b]\nurl = \"UDP://h:9520/\"", "b.toml:3:1: sign b is reached as a is"},
        {"login = { user = \"a\", password = \"b\" }", "b.toml:1:34: a login has user, and password-file or "
                                                       "password-env: the book itself keeps none"},
        {"login = { user = \"a\" }", "b.toml:1:9: a login has "},
        {"login = { user = \"fourteen-signs\", password-env = \"A\" }", "b.toml:1:18: a user has 13 characters"},
        {"labels = { 1st = \"x\" }", "b.toml:1:18: '1st' is no label"},
        {"labels = { site = \"x\" }", "b.toml:1:19: the label site is taken"},
        {"encoding = \"kgb\"", "b.toml:1:12: 'kgb' is no encoding that this PC knows"},
        {"groups = \"a\"", "b.toml:1:10: groups is a list of texts"},
        {"sign = 3", "b.toml:1:8: sign is a table"},
        {"[sign.a", "b.toml:1:"},
        {"\xFF", "b.toml:1:"},
        {std::string(100000, '['), "b.toml:1:"},
    };
    for (const auto& [text, start] : rows)
        EXPECT_EQ(Complaint(text).rfind(start, 0), 0U) << start << "\n" << Complaint(text);
}

TEST(SignBook, IsChangedAroundWhatPeopleWrote)
{
    const std::string added = WithSign(kBook, "b.toml", "n.4", "url = " + BookText("serial:/dev/odd'\"name") + "\n");
    EXPECT_EQ(added.rfind(kBook, 0), 0U);
    EXPECT_EQ(ParseBook(added, "b.toml").back().options.url, "serial:/dev/odd'\"name");
    EXPECT_EQ(WithoutSign(added, "b.toml", "n.4"), std::string(kBook) + "\n");

    const std::string text = kBook;
    const auto between = [&text](const char* from, const char* to) {
        return text.substr(0, text.find(from)) + text.substr(text.find(to));
    };
    EXPECT_EQ(WithoutSign(text, "b.toml", "z-first"), between("[sign.z-first]", "# the second one"));
    EXPECT_EQ(WithoutSign(text, "b.toml", "a.second"), between("# the second one", "[sign.m]"));

    // A comment at the very top is about the book; a table of the sign's own goes with it.
    const std::string tables =
        "# signs\n[sign.a]\nurl = \"udp://h\"\n[sign.a.labels]\nkm = 1\n[sign.b]\nurl = \"udp://i\"";
    EXPECT_EQ(WithoutSign(tables, "b.toml", "a"), "# signs\n[sign.b]\nurl = \"udp://i\"\n");
    EXPECT_EQ(WithoutSign("[sign]\na = {url = \"udp://h\"}\nb = {url = \"udp://i\"}", "b.toml", "b"),
              "[sign]\na = {url = \"udp://h\"}\n");

    for (const char* const name : {"all", "a b", "m", ""})
        EXPECT_THROW(WithSign(kBook, "b.toml", name, "url = \"udp://h\"\n"), UsageError) << name;
    EXPECT_THROW(WithSign(kBook, "b.toml", "x", "url = \"tcp://10.7.0.13\"\n"), UsageError);
    EXPECT_THROW(WithoutSign(kBook, "b.toml", "x"), UsageError);
    EXPECT_THROW(WithoutSign("[sign]\na.url = \"udp://h\"\nb.url = \"udp://i\"\na.retries = 3", "b.toml", "a"),
                 UsageError);
}

TEST(SignBook, FindsPasswordsWhereItSays)
{
    const std::string file = ::testing::TempDir() + "password" + std::to_string(::getpid());
    std::ofstream(file) << "abc 12\r\nnot this\n";
    EXPECT_EQ(PasswordOf({"operator", file, ""}), "abc 12");
    std::ofstream(file) << "sevenbytes\n";
    EXPECT_THROW(PasswordOf({"operator", file, ""}), UsageError);
    std::ofstream(file).close();
    EXPECT_THROW(PasswordOf({"operator", file, ""}), UsageError);
    std::remove(file.c_str());
    EXPECT_THROW(PasswordOf({"operator", file, ""}), UsageError);
    ::setenv("VXSIGN_TEST_PASSWORD", "abc", 1);
    EXPECT_EQ(PasswordOf({"operator", "", "VXSIGN_TEST_PASSWORD"}), "abc");
    ::unsetenv("VXSIGN_TEST_PASSWORD");
    EXPECT_THROW(PasswordOf({"operator", "", "VXSIGN_TEST_PASSWORD"}), UsageError);
}

} // namespace
} // namespace vxctl::test
