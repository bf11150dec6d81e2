// INI files.
#include "support/fullDisk.h"
#include "support/tempFolder.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <cstring>

namespace {

constexpr std::string_view kSample = "\xEF\xBB\xBF; signs of the north\r\n"
                                     "stray = 1\r\n"
                                     "[Sign]\r\n"
                                     " Host = 10.0.0.1 ; by the bridge \r\n"
                                     ";Port=1\r\n"
                                     "Port=9520\r\n"
                                     "PORT=7\r\n"
                                     "a line without value\r\n"
                                     "Name=\"  north \"\r\n"
                                     "Empty=\r\n"
                                     "\r\n"
                                     "[Other]\r\n"
                                     "Port=3\r\n"
                                     "[sign]\r\n"
                                     "Late=1";

class Ini : public vxsign::test::FolderTest
{
protected:
    std::string Text(const char* section, const char* key, const char* fallback = "none") const
    {
        char out[80] = {};
        EXPECT_EQ(vxGetINIWithString(section, key, fallback, path.c_str(), out), 0u);
        return out;
    }
    std::uint32_t Number(const char* key) const
    {
        std::uint32_t out = 1;
        EXPECT_EQ(vxGetINIWithInt("n", key, 77, path.c_str(), &out), 0u);
        return out;
    }
    void Set(const char* section, const char* key, const char* value) const
    {
        EXPECT_EQ(vxSetINIWithString(section, key, value, path.c_str()), 0u);
    }

    const std::string path = folder.Path("a.ini");
};

TEST_F(Ini, TextsAndNumbers)
{
    EXPECT_EQ(Text("Sign", "Port"), "none") << "no file";
    folder.Write("a.ini", kSample);
    EXPECT_EQ(Text("SIGN", "port"), "9520");
    EXPECT_EQ(Text("Sign", "host"), "10.0.0.1 ; by the bridge");
    EXPECT_EQ(Text("Sign", "Name"), "  north ");
    EXPECT_EQ(Text("Sign", "Empty"), "");
    EXPECT_EQ(Text("other", "port"), "3");
    for (const char* missing : {"stray", "Late", ";Port", "a line without value"})
        EXPECT_EQ(Text("Sign", missing), "none") << missing;

    folder.Write("a.ini", std::string("[s]\nlong=").append(100, 'v'));
    EXPECT_EQ(Text("s", "long"), std::string(63, 'v'));
    EXPECT_EQ(Text("s", "short", std::string(100, 'd').c_str()), std::string(63, 'd'));
    folder.Write("a.ini", "[s\nk=1\n");
    EXPECT_EQ(Text("s", "k"), "1");

    folder.Write("a.ini", "[n]\na=42 volts\nb=0x1F\nc=-1\nd=volts\ne=\nf=\"8\"\ng=4294967298\nh=12F\n");
    using Row = std::pair<const char*, std::uint32_t>;
    for (const auto& [key, number] : {Row{"a", 42}, Row{"b", 31}, Row{"c", 0xFFFFFFFF}, Row{"d", 0}, Row{"e", 0},
                                      Row{"f", 8}, Row{"g", 2}, Row{"h", 12}, Row{"missing", 77}})
        EXPECT_EQ(Number(key), number) << key;

    // Values that nobody wants.
    EXPECT_EQ(vxGetINIWithString("s", "k", "d", path.c_str(), nullptr), 0u);
    EXPECT_EQ(vxGetINIWithInt("s", "k", 1, path.c_str(), nullptr), 0u);
}

TEST_F(Ini, SettingMakesTheFileGrowsAnUnendedOneAndKeepsTheRest)
{
    Set("A", "x", "1");
    EXPECT_EQ(folder.Read("a.ini"), "[A]\nx=1\n");
    folder.Write("a.ini", "[A]");
    Set("a", "x", "\"q\"");
    EXPECT_EQ(folder.Read("a.ini"), "[A]\nx=\"q\"\n");
    EXPECT_EQ(Text("A", "X"), "q");
    EXPECT_EQ(vxSetINIWithString("A", "x", "1", folder.Path("no/such").c_str()), 0u);
#if !defined(_WIN32)
    {
        const vxsign::test::FullDisk full;
        Set("A", "x", "longer than what a full disk takes");
    }
#endif
    EXPECT_EQ(folder.Read("a.ini"), "[A]\nx=\"q\"\n");
    EXPECT_EQ(folder.Names(), "a.ini");

    folder.Write("a.ini", kSample);
    Set("sign", "port", "1");
    Set("Sign", "New", "n\r\nForged=1");
    Set("Third", "Key", "value");
    std::string expected = std::string(kSample) + "\r\n[Third]\r\nKey=value\r\n";
    expected.replace(expected.find("Port=9520"), 9, "Port=1");
    expected.insert(expected.find("\r\n[Other]"), "New=n\r\n");
    EXPECT_EQ(folder.Read("a.ini"), expected);
}

} // namespace
