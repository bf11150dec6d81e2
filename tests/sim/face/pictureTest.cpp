// Pictures and messages as they come to the face.
#include "sim/content/picture.h"
#include "faceSamples.h"
#include "sim/content/nmg.h"
#include "sim/face/png.h"

#include <stb_image_write.h>

namespace vxsim::test {
namespace {

// 2 by 2, 24 bits, rows from the bottom: red and green above blue and white.
const Bytes kBmp = BytesOf("BM") + Hex("46000000 00000000 36000000") + // file header
                   Hex("28000000 02000000 02000000 0100 1800 00000000 10000000 130B0000 130B0000") + Bytes(8, 0) +
                   Hex("FF0000 FFFFFF 0000") + Hex("0000FF 00FF00 0000"); // blue, white; red, green

void Append(void* context, void* data, int size)
{
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    static_cast<Bytes*>(context)->insert(static_cast<Bytes*>(context)->end(), bytes, bytes + size);
}

Bytes JpegOf(int width, int height, std::uint8_t grey)
{
    Bytes jpeg;
    const Bytes pixels(static_cast<std::size_t>(width * height), grey);
    stbi_write_jpg_to_func(Append, &jpeg, width, height, 1, pixels.data(), 90);
    return jpeg;
}

// A zlib stream of repeats * 258 zero bytes after the first: one block in the fixed code.
Bytes ZlibOfZeros(std::size_t repeats)
{
    const std::string start = "11000110000";    // last block, fixed code; the literal 0
    const std::string repeat = "1100010100000"; // 258 bytes from one byte back
    const std::size_t end = start.size() + repeats * repeat.size();
    const auto bitAt = [&](std::size_t i) {
        // Zeros behind the last repeat are the end code, and a few bytes for the decoder to look ahead.
        return i < end && (i < start.size() ? start[i] : repeat[(i - start.size()) % repeat.size()]) == '1';
    };
    Bytes zlib = {0x78, 0x01};
    for (std::size_t byte = 0; byte < end / 8 + 6; ++byte) {
        unsigned value = 0;
        for (unsigned bit = 0; bit < 8; ++bit)
            value |= bitAt(byte * 8 + bit) ? 1U << bit : 0U;
        zlib.push_back(static_cast<std::uint8_t>(value));
    }
    return zlib;
}

// A PNG of 1 by 1 grey pixel; its checks are not looked at.
Bytes PngOf(const Bytes& zlib)
{
    const auto size = [](std::size_t n) {
        const Bytes little = Little(static_cast<std::uint32_t>(n), 4);
        return Bytes(little.rbegin(), little.rend());
    };
    return Bytes{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A} + size(13) + BytesOf("IHDR") + size(1) + size(1) +
           Bytes{8, 0, 0, 0, 0} + size(0) + size(zlib.size()) + BytesOf("IDAT") + zlib + size(0) + size(0) +
           BytesOf("IEND") + size(0);
}

TEST(Picture, StandsInTheMiddleAtItsOwnSize)
{
    const auto face = DecodePicture(kBmp, 6, 4);
    ASSERT_TRUE(face);
    EXPECT_EQ(Drawing(*face), "......\n..##..\n..##..\n......\n");
    EXPECT_EQ(face->At(2, 1), kRed);
    EXPECT_EQ(face->At(3, 1), kGreen);
    EXPECT_EQ(face->At(2, 2), kBlue);
    EXPECT_EQ(face->At(3, 2), (Rgb{255, 255, 255}));

    // What is transparent is not lit.
    const std::uint8_t pixels[] = {255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 200, 51};
    Bytes png;
    stbi_write_png_to_func(Append, &png, 3, 1, 4, pixels, 12);
    const auto seen = DecodePicture(png, 3, 1);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->At(0, 0), Rgb{});
    EXPECT_EQ(seen->At(1, 0), kGreen);
    EXPECT_EQ(seen->At(2, 0), (Rgb{0, 0, 40}));
}

TEST(Picture, ShrinksByAveragingAndKeepsItsProportions)
{
    const auto one = DecodePicture(kBmp, 8, 1);
    EXPECT_EQ(Drawing(*one), "...#....\n");
    EXPECT_EQ(one->At(3, 0), (Rgb{128, 128, 128})) << "half of each light";

    const auto wide = DecodePicture(JpegOf(400, 100, 200), 40, 40);
    ASSERT_TRUE(wide);
    EXPECT_EQ(CountLit(*wide), 40 * 10);
    EXPECT_EQ(wide->At(0, 15), wide->At(39, 24));
    EXPECT_NEAR(wide->At(20, 20).red, 200, 3);

    const auto thin = DecodePicture(JpegOf(1, 500, 200), 32, 16);
    EXPECT_EQ(CountLit(*thin), 16) << "never narrower than a pixel";
}

TEST(Picture, RefusesWhatIsTooLargeOrNoPicture)
{
    Bytes wide = kBmp;
    wide[18] = 0x01; // 8193
    wide[19] = 0x20;
    EXPECT_FALSE(DecodePicture(wide, 8, 8));
    Bytes large = kBmp;
    large[19] = large[23] = 0x18; // 6146 by 6146
    EXPECT_FALSE(DecodePicture(large, 8, 8));
    Bytes negative = kBmp;
    negative[21] = 0xFF;
    EXPECT_FALSE(DecodePicture(negative, 8, 8));

    // Scan after scan makes the decoder visit the whole picture for a few bytes.
    Bytes scans = JpegOf(64, 64, 9);
    for (int i = 0; i < 100; ++i)
        scans.insert(scans.end(), {0xFF, 0xDA});
    EXPECT_FALSE(DecodePicture(scans, 8, 8));

    EXPECT_FALSE(DecodePicture({}, 8, 8));
    EXPECT_FALSE(DecodePicture(BytesOf("GIF89a\1\0\1\0"), 8, 8));
    EXPECT_FALSE(DecodePicture(BytesOf("BM"), 8, 8));

    EXPECT_TRUE(DecodePicture(PngOf(ZlibOfZeros(4)), 8, 8));
    EXPECT_FALSE(DecodePicture(PngOf(ZlibOfZeros(480000)), 8, 8)) << "124 MB of zeros";
}

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

    // Broken groups are text.
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
