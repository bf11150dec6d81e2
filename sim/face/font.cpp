// Loads the fonts, chooses among them, shapes lines by libraqm and keeps the glyphs that it has rendered.
#include "sim/face/font.h"

#include "sim/face/dotFont.h"
#include "sim/face/textConversion.h"
#include "sim/face/utf8.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <raqm.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace vxsim {
namespace {

constexpr int kUnifontCell = 16;
constexpr int kUnifontAscent = 14; // rows of its cell above the baseline
constexpr int kSmallestRoad = 12;  // dots are more legible below
constexpr int kBoldDots = 9;
constexpr int kShapingSize = 64; // lines are shaped at this size; only the places of marks depend on it

// Lines and blocks, which join to pictures: each fills its cell.
constexpr char32_t kFirstOfCells = 0x2500;
constexpr char32_t kLastOfCells = 0x259F;

// What shaping puts under a mark that stands first; no sign shows it unasked.
constexpr char32_t kDottedCircle = 0x25CC;

// What the cache keeps at most, so that a text of all characters there are doesn't keep them all.
constexpr std::size_t kMostCachedLamps = std::size_t{1} << 25;

// Unifont is made of squares: it keeps whole multiples of its size, and is scaled only where it would not fit at all.
int UnifontPixels(int pixels)
{
    return pixels >= kUnifontCell ? pixels / kUnifontCell * kUnifontCell : pixels;
}

// From 1/64 of a pixel at the size of shaping.
int ToLamps(int offset, int pixels)
{
    return static_cast<int>(std::lround(static_cast<double>(offset) * pixels / (64.0 * kShapingSize)));
}

Glyph GlyphIn(const FT_GlyphSlotRec& slot)
{
    Glyph glyph;
    glyph.advance = static_cast<int>((slot.advance.x + 32) / 64);
    glyph.left = slot.bitmap_left;
    glyph.top = -slot.bitmap_top;
    const FT_Bitmap& bitmap = slot.bitmap;
    if (bitmap.pixel_mode != FT_PIXEL_MODE_MONO)
        return glyph;
    glyph.width = static_cast<int>(bitmap.width);
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        // A row starts at a multiple of the pitch, with its leftmost pixel in the highest bit.
        const unsigned char* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        for (unsigned x = 0; x < bitmap.width; ++x)
            glyph.lamps.push_back((row[x / 8] >> (7 - x % 8) & 1) != 0);
    }
    if (std::ranges::find(glyph.lamps, true) == glyph.lamps.end())
        glyph.lamps.clear(); // a space
    return glyph;
}

} // namespace

// A font's file, opened.
class Font::File
{
public:
    File(Typeface face, const std::filesystem::path& path, const std::string& wayOut) : typeface(face)
    {
        if (FT_Init_FreeType(&library) != 0)
            throw std::runtime_error("cannot start FreeType");
        if (FT_New_Face(library, path.c_str(), 0, &file) != 0 || FT_Set_Pixel_Sizes(file, 0, kShapingSize) != 0) {
            FT_Done_FreeType(library); // closes the file too
            throw std::runtime_error("cannot open the sign's font \"" + path.string() + "\": " + wayOut);
        }
    }
    ~File() { FT_Done_FreeType(library); }

    File(const File&) = delete;
    File& operator=(const File&) = delete;

    Typeface Face() const { return typeface; }
    FT_Face Handle() const { return file; }
    std::uint32_t IndexOf(char32_t character) const { return FT_Get_Char_Index(file, character); }

    Glyph Render(std::uint32_t index, int pixels, FT_Int32 flags) const
    {
        FT_Set_Pixel_Sizes(file, 0, static_cast<FT_UInt>(pixels));
        const bool loaded = FT_Load_Glyph(file, index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | flags) == 0;
        Glyph glyph = loaded ? GlyphIn(*file->glyph) : Glyph();
        FT_Set_Pixel_Sizes(file, 0, kShapingSize);
        return glyph;
    }

private:
    Typeface typeface;
    FT_Library library = nullptr;
    FT_Face file = nullptr;
};

std::filesystem::path Font::DefaultPath()
{
    const char* chosen = std::getenv("VXSIM_FONT");
    return chosen != nullptr && *chosen != '\0' ? chosen : VXSIM_FONT_PATH;
}

Font::Font(const std::filesystem::path& unifontPath)
    : road(std::make_unique<File>(Typeface::kRoad, VXSIM_ROAD_FONT_PATH, "install the package fonts-liberation")),
      unifont(std::make_unique<File>(Typeface::kUnifont, unifontPath,
                                     "install the package fonts-unifont, or set VXSIM_FONT to the path of unifont.otf"))
{
}

Font::~Font() = default;

void Font::SetEncoding(const std::string& name)
{
    CheckEncoding(name);
    encoding = name;
}

const Font::File& Font::FileOf(char32_t character) const
{
    const bool fillsCells = kFirstOfCells <= character && character <= kLastOfCells;
    return !fillsCells && road->IndexOf(character) != 0 ? *road : *unifont;
}

GlyphKey Font::KeyOf(Letter letter, const File& file, std::uint32_t index) const
{
    const bool bold = letter.pixels >= kBoldDots;
    const DotFont& dots = bold ? DotFont::Of7x9() : DotFont::Of5x7();
    if (letter.pixels < kSmallestRoad && dots.Find(letter.character) != nullptr)
        return {bold ? Typeface::kDots7x9 : Typeface::kDots5x7, 0, letter.character};
    return {file.Face(), letter.pixels, index};
}

GlyphKey Font::KeyOf(Letter letter)
{
    const File& file = FileOf(letter.character);
    if (const std::uint32_t index = file.IndexOf(letter.character); index != 0)
        return KeyOf(letter, file, index);
    return letter.character == kReplacementCharacter ? GlyphKey{} : KeyOf({kReplacementCharacter, letter.pixels});
}

const Glyph& Font::GlyphOf(const GlyphKey& key)
{
    const auto known = cache.find(key);
    if (known != cache.end())
        return known->second;
    if (cachedLamps > kMostCachedLamps) {
        cache.clear();
        cachedLamps = 0;
    }
    const Glyph& glyph = cache.emplace(key, Render(key)).first->second;
    cachedLamps += glyph.lamps.size() + sizeof(Glyph) * 8;
    return glyph;
}

Glyph Font::Render(const GlyphKey& key) const
{
    if (key.typeface == Typeface::kDots5x7)
        return *DotFont::Of5x7().Find(key.index);
    if (key.typeface == Typeface::kDots7x9)
        return *DotFont::Of7x9().Find(key.index);
    if (key.typeface == Typeface::kRoad)
        return road->Render(key.index, key.pixels, FT_LOAD_DEFAULT);
    // Unifont's cell takes the whole line, whose foot is higher than its own.
    const int pixels = UnifontPixels(key.pixels);
    Glyph glyph = unifont->Render(key.index, pixels, FT_LOAD_NO_HINTING);
    glyph.top += kUnifontAscent * pixels / kUnifontCell - FootOf(pixels);
    return glyph;
}

std::vector<ShapedGlyph> Font::Unshaped(std::span<const Letter> line)
{
    std::vector<ShapedGlyph> glyphs;
    for (int x = 0; const Letter& letter : line) {
        const GlyphKey key = KeyOf(letter);
        const int advance = GlyphOf(key).advance;
        glyphs.push_back({key, glyphs.size(), x, 0, advance});
        x += advance;
    }
    return glyphs;
}

// Hands the line to raqm, each stretch with the file that has its characters. False if that fails.
bool Font::Lay(raqm_t* raqm, std::span<const std::uint32_t> characters) const
{
    bool done = raqm != nullptr && raqm_set_text(raqm, characters.data(), characters.size()) &&
                raqm_set_par_direction(raqm, RAQM_DIRECTION_DEFAULT) &&
                raqm_set_freetype_load_flags(raqm, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
    for (std::size_t begin = 0, end = 0; begin < characters.size() && done; begin = end) {
        const File& file = FileOf(characters[begin]);
        while (end < characters.size() && &FileOf(characters[end]) == &file)
            ++end;
        done = raqm_set_freetype_face_range(raqm, file.Handle(), begin, end - begin);
    }
    return done && !characters.empty() && raqm_layout(raqm);
}

std::vector<ShapedGlyph> Font::Shape(std::span<const Letter> line)
{
    std::vector<std::uint32_t> characters;
    for (const Letter& letter : line) {
        const bool known = FileOf(letter.character).IndexOf(letter.character) != 0;
        characters.push_back(known ? letter.character : kReplacementCharacter);
    }
    const std::unique_ptr<raqm_t, void (*)(raqm_t*)> raqm(raqm_create(), raqm_destroy);
    if (!Lay(raqm.get(), characters))
        return Unshaped(line);

    std::size_t count = 0;
    const raqm_glyph_t* laid = raqm_get_glyphs(raqm.get(), &count);
    std::vector<ShapedGlyph> glyphs;
    int pen = 0;
    for (const raqm_glyph_t& glyph : std::span(laid, count)) {
        const Letter letter{characters[glyph.cluster], line[glyph.cluster].pixels};
        const File& file = glyph.ftface == road->Handle() ? *road : *unifont;
        if (glyph.index == file.IndexOf(kDottedCircle) && letter.character != kDottedCircle)
            continue;
        const GlyphKey key = KeyOf(letter, file, glyph.index);
        const int advance = glyph.x_advance != 0 ? GlyphOf(key).advance : 0;
        const int right = ToLamps(glyph.x_offset, letter.pixels);
        glyphs.push_back({key, glyph.cluster, pen + right, -ToLamps(glyph.y_offset, letter.pixels), advance});
        pen += advance;
    }
    return glyphs;
}

} // namespace vxsim
