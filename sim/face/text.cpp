#include "sim/face/text.h"

#include "sim/face/utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace vxsim {

namespace {

struct Character
{
    char32_t code = 0;
    int advance = 0; // unscaled
    int scale = 1;   // 0: as large as possible
    Rgb colour;
};

struct Line
{
    std::vector<Character> characters;
    int width = 0;
    int height = 0;
};

// The text in lines and pages, before the lines have their places.
struct Setting
{
    std::vector<std::vector<Line>> pages;
    bool brokenWord = false;
};

std::vector<Character> Decode(std::span<const TextRun> runs, int largestScale, Font& font)
{
    std::vector<Character> characters;
    for (const TextRun& run : runs) {
        const int scale = std::min(ScaleOfFontCode(run.font), largestScale);
        for (std::string_view rest = run.text; !rest.empty() && characters.size() < kMostCharacters;) {
            const char32_t code = TakeCharacter(rest);
            const int advance = code < U' ' ? 0 : font.GlyphOf(code).advance;
            characters.push_back({code, advance, scale, run.colour});
        }
    }
    // A line or page feed that closes the text opens no further line.
    if (!characters.empty() && (characters.back().code == U'\n' || characters.back().code == U'\f'))
        characters.pop_back();
    return characters;
}

// Wide characters are those of scripts that write no spaces: a line may end beside any of them.
bool IsWide(const Character& character)
{
    return character.advance > kGlyphHeight / 2;
}

// Collects characters into lines and lines into pages.
class Setter
{
public:
    Setter(int faceWidth, int faceHeight, int scale) : width(faceWidth), height(faceHeight), openScale(scale) {}

    Setting Set(std::span<const Character> characters)
    {
        for (const Character& character : characters) {
            if (setting.pages.size() >= kMostPages)
                break;
            Add(character);
        }
        if (!characters.empty())
            EndPage();
        return std::move(setting);
    }

private:
    int ScaleOf(const Character& character) const { return character.scale == 0 ? openScale : character.scale; }
    int WidthOf(const Character& character) const { return character.advance * ScaleOf(character); }

    void Add(Character character)
    {
        character.scale = ScaleOf(character);
        lineHeight = std::max(lineHeight, character.scale * kGlyphHeight);
        if (character.code == U'\f')
            return EndPage();
        // Spaces at which a line breaks are not shown, and a line feed behind them breaks no further line.
        const bool justWrapped = atWrap;
        atWrap = justWrapped && character.code == U' ';
        if (atWrap || (justWrapped && character.code == U'\n'))
            return;
        if (character.code == U'\n')
            return EndLine();
        while (character.advance > 0 && lineWidth + WidthOf(character) > width && !line.empty()) {
            if (character.code == U' ') {
                EndLine();
                atWrap = true;
                return;
            }
            Wrap(character);
        }
        if (!line.empty() && character.advance > 0 &&
            (line.back().code == U' ' || IsWide(line.back()) || IsWide(character)))
            breakAt = line.size();
        line.push_back(character);
        lineWidth += WidthOf(character);
        lineHeight = std::max(lineHeight, character.scale * kGlyphHeight);
    }

    // Ends the line at its last break, or in front of the next character if there is none.
    void Wrap(const Character& next)
    {
        const bool breakHere = line.back().code == U' ' || IsWide(line.back()) || IsWide(next);
        std::vector<Character> carried;
        if (!breakHere && breakAt > 0) {
            const auto first = line.begin() + static_cast<std::ptrdiff_t>(breakAt);
            carried.assign(first, line.end());
            line.erase(first, line.end());
        } else if (!breakHere) {
            setting.brokenWord = true;
        }
        while (!line.empty() && line.back().code == U' ')
            line.pop_back();
        EndLine();
        for (const Character& character : carried) {
            line.push_back(character);
            lineWidth += WidthOf(character);
        }
    }

    void EndLine()
    {
        Line ended{std::move(line), 0, 0};
        for (const Character& character : ended.characters) {
            ended.width += WidthOf(character);
            ended.height = std::max(ended.height, character.scale * kGlyphHeight);
        }
        if (ended.characters.empty())
            ended.height = lineHeight;
        if (!page.empty() && pageHeight + ended.height > height)
            TurnPage();
        pageHeight += ended.height;
        page.push_back(std::move(ended));
        line.clear();
        lineWidth = 0;
        lineHeight = 0;
        breakAt = 0;
    }

    void EndPage()
    {
        EndLine();
        TurnPage();
    }

    void TurnPage()
    {
        setting.pages.push_back(std::move(page));
        page.clear();
        pageHeight = 0;
    }

    int width;
    int height;
    int openScale; // what stands for scale 0
    Setting setting;
    std::vector<Line> page;
    int pageHeight = 0;
    std::vector<Character> line;
    int lineWidth = 0;
    int lineHeight = 0;
    std::size_t breakAt = 0; // the line may end in front of this character; 0: nowhere
    bool atWrap = false;     // the line just began at a space that broke the last one
};

Page Place(const std::vector<Line>& lines, int width, int height)
{
    int total = 0;
    for (const Line& line : lines)
        total += line.height;

    Page page;
    int y = std::max(0, (height - total) / 2);
    for (const Line& line : lines) {
        int x = std::max(0, (width - line.width) / 2);
        for (const Character& character : line.characters) {
            // Characters of different sizes stand on the line's foot.
            const int top = y + line.height - character.scale * kGlyphHeight;
            page.push_back({character.code, x, top, character.scale, character.colour});
            x += character.advance * character.scale;
        }
        y += line.height;
    }
    return page;
}

void DrawGlyph(const PlacedGlyph& placed, const Glyph& glyph, Canvas& face)
{
    for (int row = 0; row < kGlyphHeight; ++row) {
        const unsigned bits = glyph.rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < 16; ++column) {
            if ((bits & (0x8000U >> column)) == 0)
                continue;
            const int left = placed.x + (glyph.left + column) * placed.scale;
            const int top = placed.y + row * placed.scale;
            for (int y = 0; y < placed.scale; ++y) {
                for (int x = 0; x < placed.scale; ++x)
                    face.Set(left + x, top + y, placed.colour);
            }
        }
    }
}

} // namespace

std::vector<Page> SetText(std::span<const TextRun> runs, int width, int height, Font& font)
{
    const int largestScale = std::clamp(height / kGlyphHeight, 1, kLargestScale);
    const std::vector<Character> characters = Decode(runs, largestScale, font);
    const bool open = std::any_of(characters.begin(), characters.end(), [](const auto& c) { return c.scale == 0; });

    Setting setting;
    for (int scale = open ? largestScale : 1; scale >= 1; --scale) {
        setting = Setter(width, height, scale).Set(characters);
        if (setting.pages.size() == 1 && !setting.brokenWord)
            break;
    }

    std::vector<Page> pages;
    for (const std::vector<Line>& lines : setting.pages) {
        if (pages.size() < kMostPages)
            pages.push_back(Place(lines, width, height));
    }
    return pages;
}

void DrawPage(const Page& page, Font& font, Canvas& face)
{
    for (const PlacedGlyph& placed : page) {
        if (placed.character > U' ')
            DrawGlyph(placed, font.GlyphOf(placed.character), face);
    }
}

} // namespace vxsim
