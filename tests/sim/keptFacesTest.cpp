// Faces as they are kept beside this file, a pixel for each lamp: what the sign draws is compared lamp for lamp. Where
// they differ, the face and a picture with the differing lamps in red are written beside the tests' programs. After a
// change that is meant, look at the new face and put it into tests/sim/face/kept.
#include "support/signFixture.h"

#include "sim/content/picture.h"
#include "sim/face/png.h"

#include <stb_image_write.h>

namespace vxsign::test {
namespace {

namespace fs = std::filesystem;
using vxsim::Canvas;

// Name, width, height, font, colour, text.
constexpr std::tuple<const char*, int, int, char, char, const char*> kTexts[] = {
    {"exit", 64, 32, '1', '7', "Exit 7"},
    {"fill", 64, 32, '0', '3', "HELLO 42"},
    {"congestion", 80, 8, '1', '3', "Congestion 5 km"},
    {"bold", 128, 10, '1', '9', "Exit 7 \u2192 \u0141\u00F3d\u017A \u00C5g"},
    {"works", 128, 32, '1', '8', "ROAD WORKS\nahead 500 m"},
    {"speed", 192, 96, '0', '1', "80"},
    {"ferry", 192, 96, '2', '6', "Ferry 21:40\n\u00D8resund"},
    {"scripts", 256, 64, '1', '2',
     "\u05E9\u05DC\u05D5\u05DD \u0645\u0631\u062D\u0628\u0627 \u0E17\u0E35\u0E48\u0E19\u0E35\u0E48 "
     "\u0939\u093F\u0928\u094D\u0926\u0940\n\u524D\u65B9\u9053\u8DEF\u65BD\u5DE5 "
     "\u0394\u03C1\u03CC\u03BC\u03BF\u03C2 \u0414\u043E\u0440\u043E\u0433\u0430\n0O 1lI 5S 8B"},
};

std::string PngOf(const Canvas& face)
{
    Bytes pixels;
    for (int y = 0; y < face.Height(); ++y)
        for (int x = 0; x < face.Width(); ++x)
            pixels.insert(pixels.end(), {face.At(x, y).red, face.At(x, y).green, face.At(x, y).blue});
    std::string png;
    const auto append = [](void* to, void* data, int size) {
        static_cast<std::string*>(to)->append(static_cast<char*>(data), static_cast<std::size_t>(size));
    };
    stbi_write_png_to_func(append, &png, face.Width(), face.Height(), 3, pixels.data(), face.Width() * 3);
    return png;
}

Canvas DifferenceOf(const Canvas& drawn, const Canvas& kept)
{
    Canvas difference(drawn.Width(), drawn.Height());
    for (int y = 0; y < drawn.Height(); ++y)
        for (int x = 0; x < drawn.Width(); ++x)
            if (drawn.At(x, y) != kept.At(x, y))
                difference.Set(x, y, kRed);
    return difference;
}

void ExpectKept(const std::string& name, const Canvas& drawn)
{
    const fs::path file = fs::path(VXSIM_KEPT_FACES) / (name + ".png");
    std::ifstream in(file, std::ios::binary);
    const auto kept =
        vxsim::DecodePicture(Bytes{std::istreambuf_iterator<char>(in), {}}, drawn.Width(), drawn.Height());
    if (kept == drawn)
        return;
    const fs::path actual = fs::current_path() / (name + ".png");
    std::ofstream(actual, std::ios::binary) << PngOf(drawn);
    vxsim::WritePngFace(DifferenceOf(drawn, kept.value_or(Canvas(1, 1))), name + "-difference.png");
    ADD_FAILURE() << "the face is not that of " << file << ": see " << actual << " and " << name << "-difference.png";
}

TEST(KeptFaces, OfTexts)
{
    vxsim::Font font;
    for (const auto& [name, width, height, fontCode, colour, text] : kTexts) {
        const vxsim::TextRun run{text, static_cast<std::uint8_t>(fontCode),
                                 vxsim::ColourOfCode(static_cast<std::uint8_t>(colour))};
        Canvas face(width, height);
        for (const vxsim::Page& page : vxsim::SetText({&run, 1}, width, height, font))
            vxsim::DrawPage(page, font, face);
        ExpectKept(name, face);
    }
}

class KeptScenes : public StageTest
{
protected:
    Bytes Area(std::uint16_t left, std::uint16_t top, std::uint16_t width, std::uint16_t height)
    {
        return Little(left, 2) + Little(top, 2) + Little(width, 2) + Little(height, 2) + Bytes(4, 0);
    }

    // A picture that is twice as large as the face: what is scaled down is averaged.
    void PutSunset(const std::string& path, int width, int height)
    {
        Canvas picture(width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                picture.Set(x, y,
                            {static_cast<std::uint8_t>(255 - 200 * y / height),
                             static_cast<std::uint8_t>(255 * x / width),
                             static_cast<std::uint8_t>((x / 8 + y / 8) % 2 * 160)});
        PutFile(path, Text(PngOf(picture)));
    }
};

TEST_F(KeptScenes, OfPicturesZonesTickersAndSignals)
{
    Rebuild(128, 32);
    PutSunset("D:\\T\\SUNSET.PNG", 256, 64);
    PutFile("C:\\SEQUENT.SYS", FlatList({"SUNSET.PNG"}));
    ExpectKept("picture", stage->Draw(0));

    Expect(0, {{54, 1, {1}, Bytes{0, 0, 0, 2, 0, 0, 0, 0} + Area(0, 0, 88, 32) + Area(88, 8, 40, 16)},
               {54, 4, {1, 1}, Bytes{1, 0, 0, 0, 0, 0} + Little(8, 2) + Text("Exit 12b")},
               {54, 4, {1, 2}, Bytes{2, 0, 0, 0, 0, 0} + Little(15, 2) + Text("D:\\T\\SUNSET.PNG")}});
    arrival.nowMs = 1000;
    Expect(0, {{54, 5, {1}}});
    ExpectKept("zones", stage->Draw(1000));

    arrival.nowMs = 2000;
    Expect(0, {{8, 1, {10, '0', '3'}}, {8, 4, {64, 0, 1, 0, 1}, Text("Fog: 50")}});
    ExpectKept("ticker", stage->Draw(3100));

    settings.controller = true;
    settings.localSecondsAtZero = 1589371200; // 2020-05-13 12:00:00
    Rebuild(128, 32);
    ExpectKept("signals", stage->Draw(0));
}

} // namespace
} // namespace vxsign::test
