// Sets text: decodes, measures, breaks into lines, puts the lines into their places and draws them.
#include "sim/face/text.h"

#include "sim/face/lineSetter.h"
#include "sim/face/textDecoder.h"
#include "sim/face/utf8.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <optional>
#include <utility>

namespace vxsim {
namespace {

constexpr std::size_t kOpen = 0; // the size that is as large as the page allows
constexpr std::size_t kSizes = 10;
using Sizes = std::array<TextSize, kSizes>;

constexpr int kNarrowest = 2; // columns of a character and its gap
constexpr int kLeading = 8;   // large letters' lines lie the eighth part of their size apart

bool IsOpen(const Character& character)
{
    return character.size == kOpen;
}

std::vector<char32_t> CodesOf(std::span<const Character> characters, std::size_t size)
{
    std::vector<char32_t> codes;
    for (const Character& character : characters) {
        if (character.size == size && character.code > U' ')
            codes.push_back(character.code);
    }
    std::ranges::sort(codes);
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

std::vector<Letter> LettersOf(std::span<const Character> characters, const Sizes& sizes)
{
    std::vector<Letter> letters;
    for (const Character& character : characters)
        letters.push_back({character.code, sizes[character.size].pixels});
    return letters;
}

// Finds the advances of the characters up to the next feed, as they are beside each other.
void MeasureLine(std::span<Character> line, const Sizes& sizes, Font& font)
{
    for (Character& character : line)
        character.advance = character.gap = 0;
    for (const ShapedGlyph& shaped : font.Shape(LettersOf(line, sizes))) {
        const Glyph& glyph = font.GlyphOf(shaped.key);
        Character& character = line[shaped.letter];
        character.advance += shaped.advance;
        character.gap = std::max(0, shaped.advance - glyph.left - glyph.width);
    }
}

void Measure(std::span<Character> characters, const Sizes& sizes, Font& font)
{
    const auto isFeed = [](const Character& character) { return character.code < U' '; };
    for (auto begin = characters.begin(); begin != characters.end();) {
        const auto end = std::find_if(begin, characters.end(), isFeed);
        MeasureLine({begin, end}, sizes, font);
        begin = end == characters.end() ? end : end + 1;
    }
}

// A text on its way to lines, with the sizes that its letters have on this face.
class Composition
{
public:
    Composition(std::span<const Character> text, int faceWidth, int faceHeight, Font& faceFont)
        : width(faceWidth), height(faceHeight), font(faceFont), characters(text.begin(), text.end())
    {
        for (std::size_t i = kOpen + 1; i < kSizes; ++i)
            SetRows(i, RowsOfFontCode(static_cast<std::uint8_t>('0' + i)));
        openCodes = CodesOf(characters, kOpen);
        onlyOpen = std::ranges::all_of(characters, IsOpen);
    }

    Setting Set()
    {
        if (const auto open = openCodes.empty() ? std::nullopt : Largest())
            return *open;
        SetRows(kOpen, RowsOfFontCode('1'));
        return SetAs(0);
    }

    Page Place(const std::vector<Line>& lines) const;

private:
    void SetRows(std::size_t size, int rows)
    {
        const int highest = std::max(height, Font::kSmallest);
        sizes[size] = SizeForRows(CodesOf(characters, size), std::min(rows, highest), font);
    }

    Setting SetAs(int leading)
    {
        Measure(characters, sizes, font);
        return SetLines(characters, sizes, width, height + leading);
    }

    // The text on one page with its open letters so large, unless they do not fit.
    std::optional<Setting> OnOnePage(int pixels)
    {
        TextSize& open = sizes[kOpen] = SizeForPixels(openCodes, pixels, font);
        if (open.rows > height)
            return std::nullopt;
        const int leading = onlyOpen ? std::max(1, pixels / kLeading) : 0;
        open.rows += leading;
        Setting setting = SetAs(leading);
        return setting.pages.size() == 1 && !setting.brokenWord ? std::optional(std::move(setting)) : std::nullopt;
    }

    std::optional<Setting> Largest()
    {
        if (characters.size() > static_cast<std::size_t>(width) * static_cast<std::size_t>(height) / kNarrowest)
            return std::nullopt;
        int tooLarge = std::min(2 * height, Font::kLargest) + 1;
        int fits = Font::kSmallest - 1;
        while (fits + 1 < tooLarge) {
            const int middle = (fits + tooLarge) / 2;
            (OnOnePage(middle) ? fits : tooLarge) = middle;
        }
        return fits >= Font::kSmallest ? OnOnePage(fits) : std::nullopt;
    }

    int width;
    int height;
    Font& font;
    std::vector<Character> characters;
    Sizes sizes;
    std::vector<char32_t> openCodes;
    bool onlyOpen = false;
};

// What is lit, from the first to behind the last, in one direction.
struct Extent
{
    int begin = INT_MAX;
    int end = INT_MIN;

    void Add(int first, int size)
    {
        begin = std::min(begin, first);
        end = std::max(end, first + size);
    }

    // How far what is lit moves to stand in the middle; what is larger than the face begins at its edge.
    int ToMiddle(int size) const { return begin < end ? std::max(0, (size - (end - begin)) / 2) - begin : 0; }
};

// Puts a line's glyphs on a row, the first at column 0.
void Append(const Line& line, int foot, const Sizes& sizes, Font& font, Page& page)
{
    for (const ShapedGlyph& shaped : font.Shape(LettersOf(line.characters, sizes))) {
        const Character& character = line.characters[shaped.letter];
        page.push_back({character.code, shaped.key, shaped.x, foot + shaped.y, character.colour});
    }
}

Page Composition::Place(const std::vector<Line>& lines) const
{
    Page page;
    Extent rows;
    int top = 0;
    for (const Line& line : lines) {
        const std::size_t first = page.size();
        Append(line, top + line.foot, sizes, font, page);
        Extent columns;
        for (const PlacedGlyph& placed : std::span(page).subspan(first)) {
            const Glyph& glyph = font.GlyphOf(placed.glyph);
            if (glyph.lamps.empty())
                continue;
            columns.Add(placed.x + glyph.left, glyph.width);
            rows.Add(placed.y + glyph.top, glyph.Height());
        }
        if (line.characters.empty())
            rows.Add(top, line.rows);
        for (PlacedGlyph& placed : std::span(page).subspan(first))
            placed.x += columns.ToMiddle(width);
        top += line.rows;
    }
    for (PlacedGlyph& placed : page)
        placed.y += rows.ToMiddle(height);
    return page;
}

bool IsFeed(const Character& character)
{
    return character.code == U'\f';
}

std::size_t CountFeeds(std::span<const Character> text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, IsFeed));
}

// Takes the characters up to the next page feed off the front of the text, and the feed.
std::span<const Character> TakePage(std::span<const Character>& text)
{
    const auto size = static_cast<std::size_t>(std::ranges::find_if(text, IsFeed) - text.begin());
    const auto page = text.first(size);
    text = text.subspan(std::min(size + 1, text.size()));
    return page;
}

std::string TextOf(const std::vector<Line>& lines)
{
    std::string text;
    for (const Line& line : lines) {
        text += &line == &lines.front() ? "" : "\n";
        for (const Character& character : line.characters)
            AppendCharacter(character.code, text);
    }
    return text;
}

// Whether a letter has lamps beyond the face.
bool IsCut(const Page& page, int width, int height, Font& font)
{
    return std::ranges::any_of(page, [&](const PlacedGlyph& placed) {
        const Glyph& glyph = font.GlyphOf(placed.glyph);
        const int left = placed.x + glyph.left;
        const int top = placed.y + glyph.top;
        return glyph.width > 0 && (left < 0 || top < 0 || left + glyph.width > width || top + glyph.Height() > height);
    });
}

void AddPages(std::span<const Character> text, int width, int height, Font& font, Layout& layout)
{
    Composition composition(text, width, height, font);
    Setting setting = composition.Set();
    layout.brokenWord = layout.brokenWord || setting.brokenWord;
    layout.isCut = layout.isCut || setting.isCut;
    if (text.empty())
        setting.pages.emplace_back();
    for (const std::vector<Line>& lines : setting.pages) {
        if (layout.pages.size() == kMostPages) {
            layout.isCut = true;
            return;
        }
        layout.pages.push_back(composition.Place(lines));
        layout.texts.push_back(TextOf(lines));
        layout.isCut = layout.isCut || IsCut(layout.pages.back(), width, height, font);
    }
}

} // namespace

Layout LayOut(std::span<const TextRun> runs, int width, int height, Font& font)
{
    const Decoded decoded = Decode(runs, font.Encoding());
    Layout layout;
    layout.isCut = decoded.isCut;
    std::span<const Character> rest = decoded.characters;
    layout.pagesMeant = rest.empty() ? 0 : CountFeeds(rest) + 1;
    // Each page has its own largest letters.
    const bool goesByPage = std::ranges::any_of(rest, IsOpen);
    while (!rest.empty() && layout.pages.size() < kMostPages)
        AddPages(goesByPage ? TakePage(rest) : std::exchange(rest, {}), width, height, font, layout);
    layout.isCut = layout.isCut || !rest.empty();
    return layout;
}

std::vector<Page> SetText(std::span<const TextRun> runs, int width, int height, Font& font)
{
    return LayOut(runs, width, height, font).pages;
}

TextLine SetLine(std::string_view text, int rows, Rgb colour, Font& font)
{
    std::string plain(text.substr(0, kMostCharacters * 4));
    std::ranges::replace_if(
        plain, [](char c) { return c >= '\0' && c < ' '; }, ' ');
    const TextRun run{std::move(plain), '0', colour};
    Line line{Decode({&run, 1}, font.Encoding()).characters, 0, 0};
    Sizes sizes;
    sizes[kOpen] = SizeForRows(CodesOf(line.characters, kOpen), std::max(rows, Font::kSmallest), font);
    TextLine set;
    Append(line, 0, sizes, font, set.glyphs);
    set.top = -sizes[kOpen].foot;
    set.height = sizes[kOpen].rows;
    for (const PlacedGlyph& placed : set.glyphs)
        set.width = std::max(set.width, placed.x + font.GlyphOf(placed.glyph).advance);
    return set;
}

void DrawPage(const Page& page, Font& font, Canvas& face, int right, int down)
{
    for (const PlacedGlyph& placed : page) {
        const Glyph& glyph = font.GlyphOf(placed.glyph);
        const int left = placed.x + glyph.left + right;
        const int top = placed.y + glyph.top + down;
        for (int y = 0; y < glyph.Height(); ++y) {
            for (int x = 0; x < glyph.width; ++x) {
                if (glyph.IsLit(x, y))
                    face.Set(left + x, top + y, placed.colour);
            }
        }
    }
}

} // namespace vxsim
