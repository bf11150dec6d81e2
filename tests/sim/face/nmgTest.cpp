// Messages as the sign reads them.
#include "faceSamples.h"

#include "sim/content/nmg.h"

#include <gtest/gtest.h>

namespace vxsim::test {
namespace {

const Bytes kIntro = {0x01, 'Z', '0', '0', 0x02, 'A', 'A'};

const Bytes kTextFile = kIntro + Bytes{0x1A, '2', 0x1C, '3', 0x0A, 'I', '5', 0x0A, 'O',  '6',
                                       0x0E, '2', '0',  '0', '1',  '5', 'H', 'i',  0x04, 'x'};

// A picture of three bytes that are no picture, with the constants of its group.
Bytes PictureGroup(std::uint8_t size)
{
    return Bytes{0x14, 0x40, '0', 0x04, 'R', 'C', 0x01, 0x00, 0x01, '0', 0x00, 0x00, size, 0, 0, 0, 0x28, 0, 0, 0} +
           Bytes(24, 0) + Bytes{'x', 'y', 'z'};
}

std::string TextOf(const Message& message)
{
    std::string text;
    for (const TextRun& run : message.runs)
        text += run.text;
    return text;
}

std::string TextOf(const Bytes& body)
{
    return TextOf(ParseNmg(kIntro + body).value());
}

TEST(Nmg, ReadsATextMessageInBothIntros)
{
    Bytes fileForm = kTextFile;
    const Bytes fileIntro = BytesOf("QZ00SAX");
    std::copy(fileIntro.begin(), fileIntro.end(), fileForm.begin());
    for (const Bytes& bytes : {kTextFile, fileForm}) {
        const auto message = ParseNmg(bytes);
        ASSERT_TRUE(message);
        EXPECT_EQ(message->entryMode, '5');
        EXPECT_EQ(message->exitMode, '6');
        EXPECT_EQ(message->staySeconds, 15U);
        EXPECT_FALSE(message->picture);
        ASSERT_EQ(message->runs.size(), 1U);
        EXPECT_EQ(message->runs[0].text, "Hi");
        EXPECT_EQ(message->runs[0].font, '2');
        EXPECT_EQ(message->runs[0].colour, (Rgb{255, 176, 0}));
    }
    EXPECT_FALSE(ParseNmg(BytesOf("QZ00SA")));
    EXPECT_FALSE(ParseNmg(BytesOf("QZ00SAA and more")));
    EXPECT_FALSE(ParseNmg(BytesOf("NG")));
}

TEST(Nmg, ChangesColourAndFontWithinTheText)
{
    const Bytes body = {0x1C, '/', 1, 0x04, 0, 'a', 0x1C, '2', 'b', 0x1A, '4', 'c', 0x1C, 'z', 'd'};
    const Bytes file = kIntro + body;
    const auto message = ParseNmg(file);
    ASSERT_EQ(message->runs.size(), 4U);
    EXPECT_EQ(message->runs[0].colour, (Rgb{1, 4, 0}));
    EXPECT_EQ(message->runs[1].colour, kGreen);
    EXPECT_EQ(message->runs[1].font, '1');
    EXPECT_EQ(message->runs[2].font, '4');
    EXPECT_EQ(message->runs[3].colour, kRed) << "an unknown code";
    EXPECT_EQ(TextOf(*message), "abcd");
}

TEST(Nmg, TellsLineFeedsFromModes)
{
    EXPECT_EQ(TextOf(Bytes{0x0A, 'I', '1', 0x0A, 'O', '1'} + BytesOf("\nInto\nOut")), "\nInto\nOut");
    EXPECT_EQ(TextOf(BytesOf("a\r\nb\rc\nd\te\ff")), "a\nb\nc\nd e\ff");
    EXPECT_EQ(TextOf(BytesOf("a\x01\x07"
                             "b")),
              "ab")
        << "other control bytes are not shown";
}

TEST(Nmg, TakesBrokenGroupsAsText)
{
    EXPECT_EQ(TextOf(Bytes{'a', 0x1A}), "a");
    EXPECT_EQ(TextOf(Bytes{'a', 0x1C, '/', 'b', 'c'}), "a/bc");
    EXPECT_EQ(TextOf(Bytes{0x0E, '2', '0', '0', 'x', '5'}), "200x5");
    EXPECT_EQ(TextOf(Bytes{0x0E, '2', '0', '0', '5'}), "2005");
    EXPECT_EQ(TextOf(Bytes{0x0A, 'I'}), "\nI");
    EXPECT_EQ(TextOf(Bytes{0x14, 0x40, '1', 'a'}), "@1a");
    EXPECT_LE(TextOf(Bytes(1000000, 'x')).size(), kMostMessageBytes);
}

TEST(Nmg, ReadsAPictureMessage)
{
    const Bytes head = kIntro + Bytes{0x0A, 'I', '0', 0x0A, 'O', '1', 0x0E, '2', '0', '0', '0', '9'};
    for (const auto& [size, expected] : {std::pair{std::uint8_t{2}, "xy"},
                                         {std::uint8_t{3}, "xyz"},
                                         {std::uint8_t{200}, "xyz"},
                                         {std::uint8_t{0}, ""}}) {
        const Bytes file = head + PictureGroup(size);
        const auto message = ParseNmg(file);
        ASSERT_TRUE(message && message->picture);
        EXPECT_EQ(Bytes(message->picture->begin(), message->picture->end()), BytesOf(expected));
        EXPECT_EQ(message->exitMode, '1');
        EXPECT_EQ(message->staySeconds, 9U);
    }
}

} // namespace
} // namespace vxsim::test
