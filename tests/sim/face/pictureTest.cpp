// Pictures as they come to the face.
#include "faceSamples.h"

#include "sim/content/picture.h"
#include "sim/face/png.h"

#include <gtest/gtest.h>
#include <stb_image_write.h>

namespace vxsim::test {
namespace {

// 2 by 2, 24 bits, rows from the bottom: red and green above blue and white.
const Bytes kBmp = {
    'B',  'M',  70,   0,    0,    0,    0, 0,    0,    0, 54, 0, 0, 0,                        // file header
    40,   0,    0,    0,    2,    0,    0, 0,    2,    0, 0,  0, 1, 0, 24, 0, 0, 0, 0, 0, 16, // sizes
    0,    0,    0,    0x13, 0x0B, 0,    0, 0x13, 0x0B, 0, 0,  0, 0, 0, 0,  0, 0, 0, 0,        // resolution, no palette
    0xFF, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0, 0,                                                 // blue, white
    0x00, 0x00, 0xFF, 0x00, 0xFF, 0x00, 0, 0,                                                 // red, green
};

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
        return Bytes{static_cast<std::uint8_t>(n >> 24), static_cast<std::uint8_t>(n >> 16),
                     static_cast<std::uint8_t>(n >> 8), static_cast<std::uint8_t>(n)};
    };
    return Bytes{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A} + size(13) + BytesOf("IHDR") + size(1) + size(1) +
           Bytes{8, 0, 0, 0, 0} + size(0) + size(zlib.size()) + BytesOf("IDAT") + zlib + size(0) + size(0) +
           BytesOf("IEND") + size(0);
}

TEST(Picture, UnpacksNoMoreThanAPictureNeeds)
{
    EXPECT_TRUE(DecodePicture(PngOf(ZlibOfZeros(4)), 8, 8));
    EXPECT_FALSE(DecodePicture(PngOf(ZlibOfZeros(480000)), 8, 8)) << "124 MB of zeros";
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

TEST(Picture, LeavesTransparencyUnlit)
{
    const std::uint8_t pixels[] = {255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 200, 51};
    Bytes png;
    stbi_write_png_to_func(Append, &png, 3, 1, 4, pixels, 12);
    const auto face = DecodePicture(png, 3, 1);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->At(0, 0), Rgb{});
    EXPECT_EQ(face->At(1, 0), kGreen);
    EXPECT_EQ(face->At(2, 0), (Rgb{0, 0, 40}));
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
}

} // namespace
} // namespace vxsim::test
