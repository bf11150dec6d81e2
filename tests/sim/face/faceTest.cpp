// The face as canvas, terminal text and PNG; the modes between two pictures.
#include "faceSamples.h"

#include "sim/face/ansi.h"
#include "sim/face/modes.h"
#include "sim/face/png.h"

#include <stb_image.h>

#include <memory>

namespace vxsim::test {
namespace {

TEST(Canvas, ClipsAccessAndSides)
{
    Canvas face(3, 2);
    for (const auto& [x, y] : {std::pair{-1, 0}, {3, 0}, {0, -1}, {0, 2}, {-2147483647 - 1, 2147483647}}) {
        face.Set(x, y, kRed);
        EXPECT_EQ(face.At(x, y), Rgb{});
    }
    EXPECT_EQ(CountLit(face), 0);
    face.Set(2, 1, kRed);
    EXPECT_EQ(face.At(2, 1), kRed);
    EXPECT_EQ(Canvas(-5, 0), Canvas(1, 1));
    EXPECT_EQ(Canvas(100000, 1).Width(), 4096);
}

TEST(AnsiFace, PutsTwoRowsInALineAndFitsTheTerminal)
{
    Canvas tall(2, 3);
    tall.Set(0, 0, kRed);
    tall.Set(1, 0, kRed);
    tall.Set(1, 1, kGreen);
    tall.Set(0, 2, {1, 2, 3});
    EXPECT_EQ(AnsiFace(tall), "\x1b[38;2;255;0;0m\x1b[48;2;24;24;26m\u2580"
                              "\x1b[48;2;0;255;0m\u2580\x1b[0m\n"
                              "\x1b[38;2;1;2;3m\u2580\x1b[38;2;24;24;26m\u2580\x1b[0m\n");

    Canvas face(4, 2);
    face.Set(0, 0, kRed);
    face.Set(3, 0, kGreen);
    face.Set(3, 1, kGreen);
    EXPECT_EQ(AnsiFace(face, 4), AnsiFace(face));
    EXPECT_EQ(AnsiFace(face, 2), "\x1b[38;2;255;0;0m\x1b[48;2;24;24;26m\u2598"
                                 "\x1b[38;2;24;24;26m\x1b[48;2;0;255;0m\u258C\x1b[0m\n");
    EXPECT_EQ(AnsiFace(Canvas(100, 2), 49), "This face needs a terminal of 50 columns.\n");
    EXPECT_EQ(AnsiFace(Canvas(100, 2), 4), "This\n");
}

struct Decoded
{
    int width = 0;
    int height = 0;
    std::unique_ptr<stbi_uc, void (*)(void*)> pixels{nullptr, stbi_image_free};

    Rgb At(int x, int y) const
    {
        const stbi_uc* pixel = pixels.get() + (std::ptrdiff_t{y} * width + x) * 3;
        return {pixel[0], pixel[1], pixel[2]};
    }
};

Decoded Decode(const Bytes& png)
{
    Decoded decoded;
    int channels = 0;
    decoded.pixels.reset(
        stbi_load_from_memory(png.data(), static_cast<int>(png.size()), &decoded.width, &decoded.height, &channels, 3));
    return decoded;
}

TEST(PngFace, ShowsLampsInTheirColoursOnADarkPanel)
{
    Canvas face(4, 2);
    face.Set(0, 0, kRed);
    face.Set(3, 1, {0, 0, 255});
    const Decoded png = Decode(PngFace(face, 8));
    ASSERT_TRUE(png.pixels);
    ASSERT_EQ(png.width, 4 * 8 + 24);
    ASSERT_EQ(png.height, 2 * 8 + 24);

    const Rgb red = png.At(12 + 4, 12 + 4);
    EXPECT_EQ(red.red, 255);
    EXPECT_LT(red.green, 220);
    EXPECT_EQ(png.At(12 + 3 * 8 + 4, 12 + 8 + 4).blue, 255);

    const Rgb unlit = png.At(12 + 3 * 8 + 4, 12 + 4);
    const Rgb gap = png.At(12 + 3 * 8, 12);
    EXPECT_GT(unlit.red, gap.red) << "unlit lamps are to be seen";
    EXPECT_LT(unlit.red, 60);
    const Rgb besideRed = png.At(12 + 8, 12 + 4);
    EXPECT_GT(besideRed.red, besideRed.green + 20) << "a lamp shines on what is around it";

    const Decoded huge = Decode(PngFace(Canvas(4096, 520), 32));
    ASSERT_TRUE(huge.pixels);
    EXPECT_LE(std::int64_t{huge.width} * huge.height, 8 * 1024 * 1024);
    EXPECT_EQ(Decode(PngFace(Canvas(1, 1), -7)).width, 4 + 2 * 6);
}

TEST(WritePngFace, LeavesAWholeFileOrTheOldOne)
{
    const TempFolder folder;
    const std::string path = folder.Write("face.png", "old");
    EXPECT_TRUE(WritePngFace(Canvas(2, 2), path));
    EXPECT_EQ(BytesOf(folder.Read("face.png")), PngFace(Canvas(2, 2)));
    // A folder stands where the file should go.
    std::filesystem::create_directories(folder.Path("taken/inside"));
    EXPECT_FALSE(WritePngFace(Canvas(2, 2), folder.Path("taken")));
    EXPECT_FALSE(WritePngFace(Canvas(2, 2), folder.Path("missing/face.png")));
    EXPECT_EQ(folder.Names(), "face.png taken");
}

// Each row of the picture at half time, coming from black onto a face of 4 by 2.
TEST(Modes, ShowTheirStateHalfway)
{
    Canvas black(4, 2);
    Canvas picture(4, 2);
    for (int x = 0; x < 4; ++x) {
        picture.Set(x, 0, {static_cast<std::uint8_t>(10 + x), 0, 0});
        picture.Set(x, 1, {static_cast<std::uint8_t>(20 + x), 0, 0});
    }
    const std::pair<char, const char*> rows[] = {
        {'1', "10 11 0 0 / 20 21 0 0"}, {'2', "0 0 12 13 / 0 0 22 23"}, {'3', "0 0 10 11 / 0 0 20 21"},
        {'4', "12 13 0 0 / 22 23 0 0"}, {'5', "0 0 0 0 / 10 11 12 13"}, {'6', "20 21 22 23 / 0 0 0 0"},
        {'7', "0 11 12 0 / 0 21 22 0"}, {'9', "0 0 0 0 / 20 21 22 23"}, {'A', "10 11 12 13 / 0 0 0 0"}};
    for (const auto& [code, wanted] : rows) {
        Canvas face(4, 2);
        const Mode& mode = ModeOfCode(static_cast<std::uint8_t>(code));
        ASSERT_NE(mode.draw, nullptr) << code;
        mode.draw(black, picture, 0.5, face);
        std::string reds;
        for (int i = 0; i < 8; ++i)
            reds += (i == 0 ? "" : i == 4 ? " / " : " ") + std::to_string(face.At(i % 4, i / 4).red);
        EXPECT_EQ(reds, wanted) << mode.name;
    }

    // All begin with the old and end with the new picture.
    Canvas from(9, 5);
    Canvas to(9, 5);
    for (int i = 0; i < 45; ++i)
        (i % 2 == 0 ? from : to).Set(i % 9, i / 9, kRed);
    for (const char code : std::string("123456789A")) {
        Canvas face(9, 5);
        const Mode& mode = ModeOfCode(static_cast<std::uint8_t>(code));
        mode.draw(from, to, 0.0, face);
        EXPECT_EQ(face, from) << mode.name;
        mode.draw(from, to, 1.0, face);
        EXPECT_EQ(face, to) << mode.name;
    }
    for (const int unknown : {0, int{'/'}, int{'B'}, 255})
        EXPECT_EQ(ModeOfCode(static_cast<std::uint8_t>(unknown)).draw, nullptr);
}

} // namespace
} // namespace vxsim::test
