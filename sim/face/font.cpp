#include "sim/face/font.h"

#include "sim/face/utf8.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <stdexcept>

namespace vxsim {

namespace {

// Rows above the baseline in Unifont's cell; two are below.
constexpr int kAscent = 14;

// Glyphs kept at a time, so that a text of all characters there are doesn't keep them all.
constexpr std::size_t kMostCached = 4096;

std::runtime_error CannotOpen(const std::filesystem::path& path)
{
    return std::runtime_error("cannot open the sign's font \"" + path.string() +
                              "\": install the package fonts-unifont, or set VXSIM_FONT to the path of unifont.otf");
}

bool IsLit(const FT_Bitmap& bitmap, int x, int y)
{
    // In a one-bit bitmap a row starts at a multiple of the pitch, with its leftmost pixel in the highest bit.
    const unsigned char byte = bitmap.buffer[y * bitmap.pitch + x / 8];
    return (byte >> (7 - x % 8) & 1) != 0;
}

} // namespace

struct Font::Source
{
    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

void Font::CloseSource::operator()(Source* closing) const
{
    FT_Done_Face(closing->face);
    FT_Done_FreeType(closing->library);
    delete closing;
}

std::filesystem::path Font::DefaultPath()
{
    const char* chosen = std::getenv("VXSIM_FONT");
    return chosen != nullptr && *chosen != '\0' ? chosen : VXSIM_FONT_PATH;
}

Font::Font(const std::filesystem::path& path) : source(new Source)
{
    if (FT_Init_FreeType(&source->library) != 0)
        throw std::runtime_error("cannot start FreeType");
    if (FT_New_Face(source->library, path.c_str(), 0, &source->face) != 0)
        throw CannotOpen(path);
    if (FT_Set_Pixel_Sizes(source->face, 0, kGlyphHeight) != 0)
        throw CannotOpen(path);
}

const Glyph& Font::GlyphOf(char32_t character)
{
    const auto known = cache.find(character);
    if (known != cache.end())
        return known->second;
    if (cache.size() >= kMostCached)
        cache.clear();
    return cache.emplace(character, Render(character)).first->second;
}

Glyph Font::Render(char32_t character) const
{
    FT_Face face = source->face;
    FT_UInt index = FT_Get_Char_Index(face, character);
    if (index == 0)
        index = FT_Get_Char_Index(face, kReplacementCharacter);

    Glyph glyph;
    if (FT_Load_Glyph(face, index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_NO_HINTING) != 0)
        return glyph;
    const FT_GlyphSlot slot = face->glyph;
    glyph.advance = static_cast<int>(slot->advance.x / 64);
    glyph.left = slot->bitmap_left;
    if (slot->bitmap.pixel_mode != FT_PIXEL_MODE_MONO)
        return glyph;

    const int top = kAscent - slot->bitmap_top;
    const int height = static_cast<int>(slot->bitmap.rows);
    const int width = std::min(static_cast<int>(slot->bitmap.width), 16);
    int row = 0;
    for (std::uint16_t& bits : glyph.rows) {
        const int y = row++ - top;
        for (int x = 0; x < width && y >= 0 && y < height; ++x) {
            if (IsLit(slot->bitmap, x, y))
                bits = static_cast<std::uint16_t>(bits | 0x8000U >> x);
        }
    }
    return glyph;
}

} // namespace vxsim
