// The sign's one font: Unifont, drawn without grey in its own 16 pixel cells.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <unordered_map>

namespace vxsim {

inline constexpr int kGlyphHeight = 16;

// A character in its cell of 16 rows, from the top.
struct Glyph
{
    int advance = 0; // columns to the next character: 8 or 16, and 0 for marks that stand over the one before
    int left = 0;    // the column of the first bit, seen from the pen; marks reach to its left
    std::array<std::uint16_t, kGlyphHeight> rows{}; // the highest bit is the leftmost column
};

class Font
{
public:
    // Throws std::runtime_error, naming the file and the ways out, when the font can't be opened.
    explicit Font(const std::filesystem::path& path = DefaultPath());

    // The environment's VXSIM_FONT, or else the path found when this was built.
    static std::filesystem::path DefaultPath();

    // The character's glyph, or that of U+FFFD where the font has none. Valid until the next call.
    const Glyph& GlyphOf(char32_t character);

private:
    struct Source;
    struct CloseSource
    {
        void operator()(Source* source) const;
    };

    Glyph Render(char32_t character) const;

    std::unique_ptr<Source, CloseSource> source;
    std::unordered_map<char32_t, Glyph> cache;
};

} // namespace vxsim
