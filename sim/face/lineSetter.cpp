// The setter: greedy lines, whole words where a word fits.
#include "sim/face/lineSetter.h"

#include "sim/face/text.h"

#include <algorithm>
#include <iterator>

namespace vxsim {
namespace {

// Scripts that write no spaces: a line may end beside any of their characters.
bool IsWide(const Character& character)
{
    constexpr char32_t kFirstWide = 0x2E80;
    return character.code >= kFirstWide;
}

// Collects characters into lines and lines into pages.
class Setter
{
public:
    Setter(std::span<const TextSize> textSizes, int faceWidth, int faceHeight)
        : sizes(textSizes), width(faceWidth), height(faceHeight)
    {
    }

    Setting Set(std::span<const Character> characters)
    {
        for (const Character& character : characters) {
            if (setting.pages.size() >= kMostPages)
                break;
            Add(character);
        }
        if (!characters.empty())
            EndPage();
        setting.isCut = setting.pages.size() > kMostPages;
        return std::move(setting);
    }

private:
    void Add(const Character& character)
    {
        lastSize = character.size;
        if (character.code == U'\f')
            return EndPage();
        // Spaces at which a line breaks are not shown, and a line feed behind them breaks no further line.
        const bool justWrapped = atWrap;
        atWrap = justWrapped && character.code == U' ';
        if (atWrap || (justWrapped && character.code == U'\n'))
            return;
        if (character.code == U'\n')
            return EndLine();
        while (character.advance > 0 && lineWidth + character.advance - character.gap > width && !line.empty()) {
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
        lineWidth += character.advance;
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
            lineWidth += character.advance;
        }
    }

    void EndLine()
    {
        Line ended{std::move(line), 0, 0};
        int below = 0;
        const auto makeRoom = [&](const TextSize& size) {
            ended.foot = std::max(ended.foot, size.foot);
            below = std::max(below, size.rows - size.foot);
        };
        for (const Character& character : ended.characters)
            makeRoom(sizes[character.size]);
        if (ended.characters.empty())
            makeRoom(sizes[lastSize]);
        ended.rows = ended.foot + below;
        if (!page.empty() && pageHeight + ended.rows > height)
            TurnPage();
        pageHeight += ended.rows;
        page.push_back(std::move(ended));
        line.clear();
        lineWidth = 0;
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

    std::span<const TextSize> sizes;
    int width;
    int height;
    Setting setting;
    std::vector<Line> page;
    int pageHeight = 0;
    std::vector<Character> line;
    int lineWidth = 0;
    std::size_t lastSize = 0; // of an empty line
    std::size_t breakAt = 0;  // the line may end in front of this character; 0: nowhere
    bool atWrap = false;      // the line just began at a space that broke the last one
};

} // namespace

Setting SetLines(std::span<const Character> characters, std::span<const TextSize> sizes, int width, int height)
{
    return Setter(sizes, width, height).Set(characters);
}

} // namespace vxsim
