// Reads marks into stretches of one font and colour, and writes these with the codes between them.
#include "vxctl/show/markup.h"

#include "vxctl/cli/encoding.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/suggestion.h"
#include "vxctl/show/showCodes.h"

#include <algorithm>
#include <vector>

namespace vxctl {

namespace {

constexpr std::size_t kMostPages = 256; // that a sign need keep of a message
constexpr std::uint32_t kUnlit = '/';   // no red, no green, no blue: the letters keep their places

struct Stretch
{
    std::string text;
    TextStyle style;
    bool flashes = false;
};

using Page = std::vector<Stretch>;

class Reader
{
public:
    Reader(std::string_view typed, const TextStyle& messageStyle, const std::string& textEncoding)
        : whole(typed), rest(typed), plain(messageStyle), style(messageStyle), encoding(textEncoding)
    {
        Encoded(whole, encoding); // names the place of what cannot be in all of the text
    }

    std::vector<Page> Read()
    {
        while (!rest.empty()) {
            if (rest.starts_with("{{"))
                Put(rest.substr(0, 1), 2);
            else if (rest.starts_with('{'))
                TakeMark();
            else
                Put(rest.substr(0, rest.find('{')));
        }
        return std::move(pages);
    }

private:
    void Put(std::string_view text) { Put(text, text.size()); }

    void Put(std::string_view text, std::size_t taken)
    {
        pages.back().push_back({Encoded(text, encoding), style, flashes});
        rest.remove_prefix(taken);
    }

    void TakeMark()
    {
        const std::size_t end = rest.find('}');
        if (end == std::string_view::npos)
            throw UsageError("'{'" + Place() + " has no '}' behind it; {{ stands for a brace");
        try {
            Obey(rest.substr(1, end - 1));
        } catch (const UsageError& error) {
            throw UsageError("'" + std::string(rest.substr(0, end + 1)) + "'" + Place() + ": " + error.what());
        }
        rest.remove_prefix(end + 1);
    }

    void Obey(std::string_view mark)
    {
        if (mark == "line")
            pages.back().push_back({std::string(1, kLineBreak), style, flashes});
        else if (mark == "page")
            pages.emplace_back();
        else if (mark == "plain")
            style = plain;
        else if (mark == "flash" || mark == "/flash")
            Flash(mark == "flash");
        else if (const std::string_view font = ValueOf(mark, "font "); !font.empty())
            style.font = ParseFont(font);
        else if (const std::string_view colour = ColourOf(mark); !colour.empty())
            style.colour = ParseColour(colour);
        else
            throw UsageError("there is no such mark" + Meant(mark));
    }

    void Flash(bool wanted)
    {
        if (flashes == wanted)
            throw UsageError(wanted ? "it flashes already" : "nothing flashes here");
        flashes = wanted;
    }

    static std::string_view ValueOf(std::string_view mark, std::string_view name)
    {
        return mark.starts_with(name) ? mark.substr(name.size()) : std::string_view();
    }

    // The colour that the mark asks for; none for any other mark.
    static std::string_view ColourOf(std::string_view mark)
    {
        const auto names = ColourNames();
        if (mark.starts_with('#') || std::ranges::find(names, mark) != names.end())
            return mark;
        const std::string_view code = ValueOf(mark, "colour ");
        return code.empty() ? ValueOf(mark, "color ") : code;
    }

    static std::string Meant(std::string_view mark)
    {
        std::vector<std::string_view> marks = ColourNames();
        for (const std::string_view other : {"line", "page", "plain", "flash", "/flash", "font CODE", "colour CODE"})
            marks.push_back(other);
        std::vector<std::string> meant;
        for (const std::string_view word : Nearest(mark, marks))
            meant.push_back("{" + std::string(word) + "}");
        return meant.empty() ? "; {{ stands for a brace" : DidYouMean({meant.begin(), meant.end()});
    }

    // Where the rest begins.
    std::string Place() const { return PlaceBehind(whole.substr(0, whole.size() - rest.size())); }

    std::string_view whole;
    std::string_view rest;
    TextStyle plain;
    TextStyle style;
    const std::string& encoding;
    bool flashes = false;
    std::vector<Page> pages{1};
};

// Writes codes where the font or the colour changes.
class Writer
{
public:
    explicit Writer(const TextStyle& messageStyle) : style(messageStyle) {}

    void Put(const Page& page, bool isLit)
    {
        if (!isFirst)
            text += kPageBreak;
        isFirst = false;
        for (const Stretch& stretch : page) {
            SetFont(stretch.style.font);
            SetColour(stretch.flashes && !isLit ? kUnlit : stretch.style.colour);
            text += stretch.text;
        }
    }

    std::string Take() { return std::move(text); }

private:
    void SetFont(std::uint32_t font)
    {
        if (style.font == font)
            return;
        style.font = font;
        text.append("\x1A").append(1, static_cast<char>(font));
    }

    void SetColour(std::uint32_t colour)
    {
        if (style.colour == colour)
            return;
        style.colour = colour;
        text.append("\x1C").append(1, static_cast<char>(colour));
        const bool hasLight = (colour & 0xFFU) == '/';
        for (unsigned shift = 8; hasLight && shift < 32; shift += 8)
            text += static_cast<char>(colour >> shift);
    }

    TextStyle style; // as it is by what has been written
    std::string text;
    bool isFirst = true;
};

} // namespace

MarkedText ReadMarkup(std::string_view text, const TextStyle& style, std::uint32_t staySeconds,
                      const std::string& encoding)
{
    const std::vector<Page> pages = Reader(text, style, encoding).Read();
    const bool flashes =
        std::ranges::any_of(pages, [](const Page& page) { return std::ranges::any_of(page, &Stretch::flashes); });
    // A page that is lit as often as it is dark goes on flashing when it comes again.
    const std::size_t sights = flashes ? std::max<std::size_t>(2, (std::size_t{staySeconds} + 1) / 2 * 2) : 1;
    if (pages.size() * sights > kMostPages)
        throw UsageError("the text has " + std::to_string(pages.size() * sights) + " pages" +
                         (flashes ? ", one for each second that something flashes," : "") + " and a message " +
                         std::to_string(kMostPages) + " at most");
    Writer writer(style);
    for (const Page& page : pages)
        for (std::size_t sight = 0; sight < sights; ++sight)
            writer.Put(page, sight % 2 == 0);
    return {writer.Take(), flashes};
}

} // namespace vxctl
