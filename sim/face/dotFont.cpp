// Reads the drawn fonts and puts accented letters together.
#include "sim/face/dotFont.h"

#include "sim/face/utf8.h"

#include <hb.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <vector>

namespace vxsim {
namespace {

constexpr char k5x7[] =
#include "sim/face/dots5x7.inc"
    ;
constexpr char k7x9[] =
#include "sim/face/dots7x9.inc"
    ;

constexpr int kFoot = 7; // rows above the foot in both fonts
constexpr int kMarkRows = 2;
constexpr char32_t kFirstAccented = 0xC0;
constexpr char32_t kLastAccented = 0x17F;
constexpr char32_t kDotlessI = U'ı';

using Rows = std::vector<std::string>;

struct Mark
{
    char32_t code;
    bool below;
    std::array<const char*, kMarkRows> rows;
};

constexpr std::array<Mark, 14> kMarks{{
    {0x300, false, {"#.", ".#"}},     // grave
    {0x301, false, {".#", "#."}},     // acute
    {0x302, false, {".#.", "#.#"}},   // circumflex
    {0x303, false, {".#.#", "#.#."}}, // tilde
    {0x304, false, {"###", "..."}},   // macron
    {0x306, false, {"#.#", ".#."}},   // breve
    {0x307, false, {"#", "."}},       // dot
    {0x308, false, {"#.#", "..."}},   // diaeresis
    {0x30A, false, {"##", "##"}},     // ring
    {0x30B, false, {".#.#", "#.#."}}, // double acute
    {0x30C, false, {"#.#", ".#."}},   // caron
    {0x326, true, {".#", "#."}},      // comma
    {0x327, true, {".#", "#."}},      // cedilla
    {0x328, true, {"#.", ".#"}},      // ogonek
}};

std::vector<std::string_view> LinesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::u32string CharactersOf(std::string_view line)
{
    std::u32string characters;
    while (!line.empty())
        characters += TakeCharacter(line);
    return characters;
}

Rows CellAt(std::span<const std::string_view> lines, std::size_t column, std::size_t cell)
{
    Rows rows;
    for (const std::string_view line : lines) {
        const std::string_view dots = line.substr(column, cell);
        rows.emplace_back(dots.substr(0, dots.find(' ')));
    }
    return rows;
}

bool IsBlank(const std::string& row)
{
    return row.find('#') == std::string::npos;
}

Glyph GlyphOf(const Rows& rows)
{
    Glyph glyph;
    glyph.width = static_cast<int>(rows.front().size());
    glyph.advance = glyph.width + 1 + (rows.size() > kFoot ? 1 : 0); // bold strokes stand two apart
    const auto first = std::ranges::find_if_not(rows, IsBlank);
    const auto end = std::find_if_not(rows.rbegin(), rows.rend(), IsBlank).base();
    glyph.top = static_cast<int>(first - rows.begin()) - kFoot;
    for (auto row = first; row < end; ++row)
        std::ranges::transform(*row, std::back_inserter(glyph.lamps), [](char dot) { return dot == '#'; });
    return glyph;
}

// Puts the mark into two rows, over or under the middle of the letter.
void Draw(const Mark& mark, std::size_t firstRow, Rows& letter)
{
    for (std::size_t row = 0; row < kMarkRows && firstRow + row < letter.size(); ++row) {
        const std::string_view dots = mark.rows[row];
        std::string& target = letter[firstRow + row];
        const std::size_t left = target.size() > dots.size() ? (target.size() - dots.size()) / 2 : 0;
        for (std::size_t i = 0; i < dots.size() && left + i < target.size(); ++i)
            target[left + i] = dots[i];
    }
}

// A capital gives two of its rows.
void MakeRoomAbove(Rows& letter)
{
    if (IsBlank(letter[0]) && IsBlank(letter[1]))
        return;
    letter.erase(letter.begin() + 5);
    letter.erase(letter.begin() + 2);
    letter.insert(letter.begin(), kMarkRows, std::string(letter[0].size(), '.'));
}

Rows Composed(Rows letter, const Mark& mark)
{
    if (!mark.below) {
        MakeRoomAbove(letter);
        Draw(mark, 0, letter);
        return letter;
    }
    if (letter.size() == kFoot) {
        letter.erase(letter.begin() + 4);
        letter.emplace_back(letter[0].size(), '.');
    }
    Draw(mark, letter.size() > kFoot ? kFoot : kFoot - 1, letter);
    return letter;
}

void Compose(std::unordered_map<char32_t, Rows>& drawn)
{
    hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
    for (char32_t code = kFirstAccented; code <= kLastAccented; ++code) {
        hb_codepoint_t base = 0;
        hb_codepoint_t accent = 0;
        if (drawn.contains(code) || hb_unicode_decompose(unicode, code, &base, &accent) == 0)
            continue;
        const auto* mark = std::ranges::find(kMarks, char32_t{accent}, &Mark::code);
        const auto letter =
            drawn.find(base == U'i' && mark != kMarks.end() && !mark->below ? kDotlessI : char32_t{base});
        if (mark != kMarks.end() && letter != drawn.end())
            drawn.emplace(code, Composed(letter->second, *mark));
    }
}

} // namespace

DotFont::DotFont(std::string_view drawing, int columns, int rows)
{
    std::unordered_map<char32_t, Rows> drawn;
    const std::vector<std::string_view> lines = LinesOf(drawing);
    const auto band = static_cast<std::size_t>(rows) + 2; // the characters, their dots, an empty line
    const auto cell = static_cast<std::size_t>(columns) + 1;
    for (std::size_t at = 1; at + band <= lines.size() + 1; at += band) {
        const std::u32string names = CharactersOf(lines[at]);
        for (std::size_t column = 0; column < names.size(); column += cell)
            drawn.emplace(names[column], CellAt(std::span(lines).subspan(at + 1, band - 2), column, cell));
    }
    Compose(drawn);
    for (const auto& [code, letter] : drawn)
        glyphs.emplace(code, GlyphOf(letter));
}

const DotFont& DotFont::Of5x7()
{
    static const DotFont font(k5x7, 5, 7);
    return font;
}

const DotFont& DotFont::Of7x9()
{
    static const DotFont font(k7x9, 7, 9);
    return font;
}

const Glyph* DotFont::Find(char32_t character) const
{
    const auto found = glyphs.find(character);
    return found != glyphs.end() ? &found->second : nullptr;
}

} // namespace vxsim
