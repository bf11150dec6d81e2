// Tile pixel files: each order by a small tile worked out by hand, all of them there and back.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

using Pixels = std::vector<std::uint16_t>;

struct Tile
{
    std::uint32_t kind;
    std::uint32_t model;
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t moduleWidth;
    std::uint32_t moduleHeight;

    std::uint32_t PixelBytes() const { return width * height * 18; }
};

std::uint32_t Save(const Tile& t, const Pixels& pixels, const std::string& path)
{
    return vxTarsisTilePxlSave(pixels.data(), t.PixelBytes(), path.c_str(), t.kind, t.model, t.width, t.height,
                               t.moduleWidth, t.moduleHeight);
}
std::uint32_t Load(const Tile& t, Pixels& pixels, const std::string& path)
{
    return vxTarsisTilePxlLoad(pixels.data(), t.PixelBytes(), path.c_str(), t.kind, t.model, t.width, t.height,
                               t.moduleWidth, t.moduleHeight);
}

// Pixels that differ, and that a compact record holds.
Pixels Numbered(std::size_t count)
{
    Pixels pixels(count * 9);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint16_t>(i % 9 % 4 == 0 ? (i / 9 * 3 + i % 9) & 0xFF : (i / 9 + i % 9) & 0xF);
    return pixels;
}

// The record of a pixel in a file, by its number.
Bytes Record(std::size_t number, bool wide)
{
    const Pixels all = Numbered(number + 1);
    const std::uint16_t* const c = &all[number * 9];
    Bytes bytes;
    const auto add = [&](unsigned word) { bytes = bytes + Little(word, 2); };
    if (wide)
        std::for_each(c, c + 9, add);
    else {
        add(c[0] * 256u + c[1] * 16u + c[2]);
        add(c[4] * 256u + c[3] * 16u + c[5]);
        add(c[8] * 256u + c[6] * 16u + c[7]);
    }
    return bytes;
}

// Holds a body against its order: numbers of pixels, P a padding, F a filler, H the header of a block; ... ends one
// that goes on.
void ExpectOrder(const std::string& body, const char* order, bool wide)
{
    std::istringstream tokens(order);
    std::size_t at = 0;
    for (std::string token; tokens >> token;) {
        if (token == "...")
            return;
        const std::size_t size = token == "H" ? 64 : wide || token == "F" ? 18 : 6;
        const Bytes there = FromText(std::string_view(body).substr(std::min(at, body.size()), size));
        if (token == "P") {
            EXPECT_EQ(there, wide ? Hex("FFFF 0000 0000 0000 FFFF 0000 0000 0000 FFFF") : Bytes(6, 0xFF)) << at;
        } else if (token == "H") {
            EXPECT_EQ(there.at(0), 0xAA) << at;
        } else if (token != "F") {
            EXPECT_EQ(there, Record(std::stoul(token), wide)) << token << " at " << at;
        }
        at += size;
    }
    EXPECT_EQ(at, body.size());
}

class TilePixels : public ScriptedTest
{
protected:
    const std::string path = folder.Path("pixels");
};

TEST_F(TilePixels, EachLayoutIsInItsOrder)
{
    const std::tuple<const char*, Tile, bool, const char*> rows[] = {
        {"A", {74, 0x10, 4, 4, 2, 2}, true, "P 4 12 P 6 14 P 5 13 P 7 15 P 0 8 P 2 10 P 1 9 P 3 11"},
        {"A compact", {74, 0, 4, 4, 2, 2}, false, "P 4 12 P 6 14 P 5 13 P 7 15 P 0 8 P 2 10 P 1 9 P 3 11"},
        {"A of six across", {74, 1, 6, 2, 1, 1}, true, "6 7 8 9 10 11"},
        {"A beyond six across", {74, 1, 7, 2, 1, 1}, true, ""},
        {"B", {0, 0x10, 4, 4, 1, 2}, true, "12 4 8 0 13 5 9 1 14 6 10 2 15 7 11 3"},
        {"B compact", {34, 0, 4, 4, 1, 2}, false, "12 4 8 0 13 5 9 1 14 6 10 2 15 7 11 3"},
        {"C is always wide", {33, 0, 4, 4, 2, 2}, true, "4 12 6 14 5 13 7 15 0 8 2 10 1 9 3 11"},
        {"C with fillers", {34, 0, 4, 2, 2, 1}, true, "F F 0 4 F F 2 6 F F 1 5 F F 3 7"},
        {"D",
         {41, 0xC0, 4, 6, 2, 2},
         true,
         "H 20 21 16 17 H 22 23 18 19 H 12 13 8 9 H 14 15 10 11 H 4 5 0 1 H 6 7 2 3"},
        {"D of model E", {0, 0xEF, 1, 2, 1, 1}, true, "H 1 H 0"},
        {"E", {0, 0xF0, 2, 6, 1, 2}, true, "H 10 8 H 11 9 H 2 0 H 6 4 H 3 1 H 7 5"},
        {"E of one row", {0, 0xF1, 2, 1, 1, 1}, true, "H 0 H 1"},
        {"F", {42, 0x10, 4, 6, 2, 2}, true, "20 22 12 14 4 6 21 23 13 15 5 7 16 18 8 10 0 2 17 19 9 11 1 3"},
        {"F compact, wide fillers", {41, 0, 2, 6, 1, 2}, false, "F F 10 11 F F 6 7 F F 2 3 F F 8 9 F F 4 5 F F 0 1"},
        // Which layout it is.
        {"B, 64 by 16 in 16 by 8", {0, 0xC0, 64, 16, 16, 8}, true, "960 448 ..."},
        {"B although four each way", {0, 0xC0, 64, 16, 16, 4}, true, "960 704 448 192 ..."},
        {"D, 64 by 16 in squares", {0, 0xC0, 64, 16, 16, 16}, true, "H 960 961 ..."},
        {"F, 64 by 16 in squares", {0, 0x10, 64, 16, 16, 16}, true, "960 976 ..."},
        {"C, four squares each way", {0, 0xC0, 4, 4, 1, 1}, true, "0 4 ..."},
        {"F, four squares across", {0, 0xB0, 4, 2, 1, 1}, true, "4 5 ..."},
        {"what is left over does not count", {0, 0xF0, 5, 3, 2, 1}, true, "H 10 11 H 12 13 H 0 1 H 5 6 ..."},
    };
    for (const auto& [name, tile, wide, order] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Save(tile, Numbered(std::size_t{tile.width} * tile.height), path), 0u);
        ExpectOrder(folder.Read("pixels").substr(32), order, wide);
    }
}

TEST_F(TilePixels, WholeFiles)
{
    // Compact, in layout F. A coefficient of more than four bits runs over into its neighbour.
    const Pixels pixels = {0xFF, 0x1F, 0, 0, 0, 0, 0, 0, 0, 0x11, 2, 3, 4, 0x55, 6, 7, 8, 0x99};
    const Tile compact{0, 0, 1, 2, 1, 1};
    ASSERT_EQ(Save(compact, pixels, path), 0u);
    EXPECT_EQ(FromText(folder.Read("pixels")), Hex("AA55 2000 0200 0A00 D002 6820 05 13 10 20 30 03 0C000000"
                                                   "00000000000000000000 2311 4655 7899 F000 0000 0000"));
    Pixels loaded(18, 0xEEEE);
    ASSERT_EQ(Load(compact, loaded, path), 0u);
    EXPECT_EQ(loaded, (Pixels{0, 0xF, 0, 0, 0, 0, 0, 0, 0, 0x11, 2, 3, 4, 0x55, 6, 7, 8, 0x99}));

    // A block of one record.
    clock.SetLocalTime({2031, 12, 31, 23, 59, 59, 0});
    ASSERT_EQ(Save({0, 0xF0, 2, 1, 1, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0}, path), 0u);
    const Bytes file = FromText(folder.Read("pixels"));
    EXPECT_EQ(Part(file, 0, 22), Hex("AA55 2000 0200 0A00 2109 7920 12 31 23 59 59 00 A4000000"));
    EXPECT_EQ(Part(file, 32, 82),
              Hex("AA55 EFD8 12000000 9F67 7DBF") + Bytes(52, 0) + Hex("010002000300040005000600070008000900"));
}

TEST_F(TilePixels, SavedPixelsLoadBack)
{
    for (const std::uint32_t kind : {0u, 41u, 74u})
        for (const std::uint32_t model : {0u, 0x10u, 0xC0u, 0xE2u, 0xF0u})
            for (std::uint32_t size = 0; size < 11 * 9 * 3 * 3; size += 17) {
                const Tile t{kind, model, size % 11 + 1, size / 11 % 9 + 1, size / 99 % 3 + 1, size / 297 + 1};
                if (t.moduleWidth > t.width || t.moduleHeight > t.height)
                    continue;
                const std::uint32_t across = t.width / t.moduleWidth;
                const std::uint32_t down = t.height / t.moduleHeight;
                const Pixels saved = Numbered(std::size_t{t.width} * t.height);
                ASSERT_EQ(Save(t, saved, path), 0u);
                Pixels loaded(saved.size(), 0xEEEE);
                // Where little of the tile is stored the file is too short to be taken for one.
                if (std::filesystem::file_size(path) < 32 + t.width * t.height * 6) {
                    ASSERT_EQ(Load(t, loaded, path), 20737u);
                    continue;
                }
                ASSERT_EQ(Load(t, loaded, path), 0u);
                const std::uint32_t firstRow = kind == 74 && down > 6 / across ? down - 6 / across : 0;
                Pixels expected(saved.size(), 0xEEEE);
                for (std::uint32_t y = firstRow * t.moduleHeight; y < down * t.moduleHeight; ++y)
                    std::copy_n(&saved[std::size_t{y} * t.width * 9], across * t.moduleWidth * 9,
                                &expected[std::size_t{y} * t.width * 9]);
                ASSERT_TRUE(loaded == expected) << kind << " " << model << ": " << t.width << "x" << t.height << " in "
                                                << t.moduleWidth << "x" << t.moduleHeight;
            }
}

TEST_F(TilePixels, BadFilesAndArguments)
{
    Pixels pixels(18);
    const auto expectRefusal = [&](std::uint16_t* some, std::uint32_t bytes, const char* file, const Tile& t) {
        EXPECT_EQ(
            vxTarsisTilePxlLoad(some, bytes, file, t.kind, t.model, t.width, t.height, t.moduleWidth, t.moduleHeight),
            2u);
        EXPECT_EQ(
            vxTarsisTilePxlSave(some, bytes, file, t.kind, t.model, t.width, t.height, t.moduleWidth, t.moduleHeight),
            2u);
        EXPECT_TRUE(folder.IsEmpty());
    };
    const std::uint32_t huge = 0xFFFFFFFF;
    expectRefusal(nullptr, 36, path.c_str(), {0, 0, 1, 2, 1, 1});
    expectRefusal(pixels.data(), 36, nullptr, {0, 0, 1, 2, 1, 1});
    for (const std::uint32_t bytes : {35u, 37u})
        expectRefusal(pixels.data(), bytes, path.c_str(), {0, 0, 1, 2, 1, 1});
    // Sizes that wrap, no tile, modules of no size, modules larger than the tile.
    expectRefusal(pixels.data(), 0, path.c_str(), {0, 0, 0x10000000, 16, 1, 1});
    expectRefusal(pixels.data(), 0, path.c_str(), {74, 0, huge, 0, huge, huge});
    for (const auto& [width, height] : {std::pair{0u, 1u}, {1u, 0u}, {2u, 1u}, {1u, huge}})
        expectRefusal(pixels.data(), 36, path.c_str(), {0, 0, 1, 2, width, height});

    const Tile tile{0, 0x10, 1, 2, 1, 1};
    Pixels loaded(18, 0xEEEE);
    const auto result = [&](const Bytes& file) { return Load(tile, loaded, folder.Write("bad", ToText(file))); };
    const Bytes header = Hex("AA55") + Bytes(30, 0);
    EXPECT_EQ(result(Hex("AA55")), 20737u);
    EXPECT_EQ(result(header + Bytes(11, 1)), 20737u) << "one byte less than six a pixel";
    EXPECT_EQ(result(Hex("55AA") + Bytes(30 + 36, 0)), 20737u) << "another magic";
    EXPECT_EQ(Load(tile, loaded, folder.Path("none")), 20737u);
    EXPECT_EQ(Load(tile, loaded, folder.Path()), 20737u);
    EXPECT_EQ(loaded, Pixels(18, 0xEEEE));
    // Six bytes a pixel are enough, whatever the layout wants: what is missing repeats what was read before.
    EXPECT_EQ(result(header + Bytes(12, 1)), 0u);
    EXPECT_EQ(loaded, (Pixels{0x101, 0x101, 0x101, 0x101, 0x101, 0x101, 0, 0, 0, //
                              0x101, 0x101, 0x101, 0x101, 0x101, 0x101, 0, 0, 0}));
    EXPECT_EQ(Save(tile, loaded, folder.Path("no/such")), 20737u);
    EXPECT_EQ(Save(tile, loaded, "/dev/full"), 256u);
}

} // namespace
} // namespace vxsign::test
