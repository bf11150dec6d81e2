// Numbers, bytes, colours and sizes on the command line.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/jsonText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/show/showCodes.h"

#include <gtest/gtest.h>

namespace vxctl_tests {
namespace {

using vxctl::ParseColour;
using vxctl::ParseFont;
using vxctl::ParseHex;
using vxctl::ParseMode;
using vxctl::ParseNumber;
using Bytes = std::vector<std::uint8_t>;

TEST(CommandLineText, NumbersAreDecimalOrHexadecimal)
{
    EXPECT_EQ(ParseNumber("0"), 0U);
    EXPECT_EQ(ParseNumber("010"), 10U);
    EXPECT_EQ(ParseNumber("0xfF"), 255U);
    EXPECT_EQ(ParseNumber("4294967295"), 4294967295U);
    for (const char* const text : {"", "0x", "-1", "+1", " 1", "1 ", "4294967296", "0x100000000", "0x-1", "1e3"})
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

TEST(CommandLineText, BytesMayBeSetApart)
{
    EXPECT_EQ(ParseHex(""), Bytes{});
    EXPECT_EQ(ParseHex("00fFa1"), (Bytes{0x00, 0xFF, 0xA1}));
    EXPECT_EQ(ParseHex(" 0a:0B-0c,0d "), (Bytes{0x0A, 0x0B, 0x0C, 0x0D}));
    for (const char* const text : {"0", "000", "0 0", "0g", "0x00", "+1"})
        EXPECT_EQ(ParseHex(text), std::nullopt) << text;
}

TEST(CommandLineText, ColoursGoOutAsCodeOrAsThreeBytes)
{
    EXPECT_EQ(ParseColour("red"), 0x0000FF2FU);
    EXPECT_EQ(ParseColour("green"), 0x00FF002FU);
    EXPECT_EQ(ParseColour("#123456"), 0x5634122FU);
    EXPECT_EQ(ParseColour("2"), 50U);
    EXPECT_EQ(ParseColour("0x78"), 0x78U);
    for (const char* const text : {"", "purplish", "#12345", "#1234567", "#12 345", "#GGGGGG", "#", "256", "47"})
        EXPECT_THROW(ParseColour(text), vxctl::UsageError) << text;
}

TEST(CommandLineText, FontsAndModesAreACharacterOrItsCode)
{
    EXPECT_EQ(ParseFont("1"), 49U);
    EXPECT_EQ(ParseFont("48"), 48U);
    EXPECT_EQ(ParseFont("169"), 169U);
    EXPECT_EQ(ParseMode("0"), 48U);
    EXPECT_EQ(ParseMode("A"), 65U);
    EXPECT_EQ(ParseMode("0xFF"), 255U);
    for (const char* const text : {"", "/", "47", "170", "big", "\xC4"})
        EXPECT_THROW(ParseFont(text), vxctl::UsageError) << text;
    EXPECT_THROW(ParseMode("256"), vxctl::UsageError);
}

TEST(CommandLineText, SizesHaveTheirUnits)
{
    EXPECT_EQ(vxctl::FormatSize(0), "0 bytes");
    EXPECT_EQ(vxctl::FormatSize(999), "999 bytes");
    EXPECT_EQ(vxctl::FormatSize(200000), "200.0 kB");
    EXPECT_EQ(vxctl::FormatSize(4.2e12), "4200.0 GB");
}

// What a sign gives need not be what the column is for.
TEST(CommandLineText, TablesLoseNothing)
{
    static constexpr std::string_view kNames[] = {"", "door", "tile"};
    vxctl::TextTable table({{"time", vxctl::kTimes}, {"event", vxctl::kNumbers, kNames}, {"count", vxctl::kNumbers}});
    table.Add({"2026-13-01 00:00:00", "1", "-7"});
    table.Add({"", "0", "many"});
    table.Add({"", "bell", ""});
    vxctl::Report report;
    report.UseJson(true);
    table.Show(report, "rows");
    testing::internal::CaptureStdout();
    report.Finish(0);
    const std::string json = testing::internal::GetCapturedStdout();
    EXPECT_NE(
        json.find(R"("rows":[{"time":null,"timeText":"2026-13-01 00:00:00","event":"door","eventCode":1,"count":-7},)"
                  R"({"time":null,"event":"0","eventCode":0,"count":null,"countText":"many"},)"
                  R"({"time":null,"event":"bell","eventCode":null,"count":null}])"),
        std::string::npos)
        << json;
}

TEST(CommandLineText, JsonIsAsciiAndLosesNothing)
{
    using Json = nlohmann::ordered_json;
    EXPECT_EQ(vxctl::JsonText(Json{{"name", "a\x1b\x7f \xC2\x9B \xC3\xA4 \xE2\x80\xAE \xF0\x9F\x98\x80"}}),
              R"({"name":"a\u001b\u007f \u009b \u00e4 \u202e \ud83d\ude00"})");
    EXPECT_EQ(
        vxctl::JsonText(Json{{"list", {{{"name", "\xE4"}, {"size", 1}}}}, {"names", {"a", "\x9b"}}, {"none", {}}}),
        R"({"list":[{"name":"\ufffd","nameBytes":"E4","size":1}],"names":["a","\ufffd"],)"
        R"("namesBytes":["61","9B"],"none":null})");
}

} // namespace
} // namespace vxctl_tests
