// The sign's fonts: road lettering from 12 rows on, dots below, and Unifont for what they lack.
#pragma once

#include "sim/face/glyph.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <vector>

struct _raqm; // a line at work in libraqm

namespace vxsim {

enum class Typeface : std::uint8_t
{
    kDots5x7,
    kDots7x9,
    kRoad,
    kUnifont
};

// One glyph at one size. The index is the character in a font of dots, else the glyph's number in the font's file.
struct GlyphKey
{
    Typeface typeface = Typeface::kRoad;
    int pixels = 0;
    std::uint32_t index = 0;

    bool operator==(const GlyphKey&) const = default;
    bool operator<(const GlyphKey& other) const
    {
        return std::tie(typeface, pixels, index) < std::tie(other.typeface, other.pixels, other.index);
    }
};

// A character that is wanted at a size: the rows of a line of capitals and tails.
struct Letter
{
    char32_t character = 0;
    int pixels = 0;
};

// A glyph of a line in its place: left to right, whatever the direction of the script.
struct ShapedGlyph
{
    GlyphKey key;
    std::size_t letter = 0; // the first of the letters that it stands for
    int x = 0;
    int y = 0;       // rows below the foot of the line, for marks that are moved
    int advance = 0; // columns that it takes
};

class Font
{
public:
    static constexpr int kSmallest = 7;
    static constexpr int kLargest = 1024;

    // Throws std::runtime_error, naming the file and the ways out, when a font can't be opened.
    explicit Font(const std::filesystem::path& unifont = DefaultPath());
    ~Font();

    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    // The environment's VXSIM_FONT, or else the path found when this was built.
    static std::filesystem::path DefaultPath();

    // How texts are encoded that are set in this font; UTF-8 unless it is told. Throws std::invalid_argument as
    // CheckEncoding.
    void SetEncoding(const std::string& name);
    const std::string& Encoding() const { return encoding; }

    // Puts the letters of a line in their order and gives each its shape beside its neighbours: joined Arabic letters,
    // text from right to left, marks over and under.
    std::vector<ShapedGlyph> Shape(std::span<const Letter> line);

    // The glyph of a character that stands alone; that of U+FFFD where no font has it.
    GlyphKey KeyOf(Letter letter);

    // Valid until the next call.
    const Glyph& GlyphOf(const GlyphKey& key);

private:
    class File;

    const File& FileOf(char32_t character) const;
    GlyphKey KeyOf(Letter letter, const File& file, std::uint32_t index) const;
    bool Lay(_raqm* raqm, std::span<const std::uint32_t> characters) const;
    std::vector<ShapedGlyph> Unshaped(std::span<const Letter> line);
    Glyph Render(const GlyphKey& key) const;

    std::unique_ptr<File> road;
    std::unique_ptr<File> unifont;
    std::string encoding = "UTF-8";
    std::map<GlyphKey, Glyph> cache;
    std::size_t cachedLamps = 0;
};

} // namespace vxsim
