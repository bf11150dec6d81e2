// Reads fonts, modes and colours.
#include "vxctl/show/showCodes.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace vxctl {

namespace {

struct NamedColour
{
    std::string_view name;
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

constexpr NamedColour kColours[] = {
    {"red", 255, 0, 0},       {"green", 0, 255, 0},   {"blue", 0, 0, 255},
    {"yellow", 255, 255, 0},  {"amber", 255, 176, 0}, {"orange", 255, 96, 0},
    {"magenta", 255, 0, 255}, {"cyan", 0, 255, 255},  {"white", 255, 255, 255},
};

// A colour code of '/' has the three colour bytes behind it, which the library takes from the bytes above it.
std::uint32_t TrueColour(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return '/' | red << 8U | green << 16U | blue << 24U;
}

std::uint32_t ParseCode(std::string_view text, std::uint32_t last, const char* what)
{
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '~')
        return static_cast<std::uint8_t>(text[0]);
    const auto code = ParseNumber(text);
    if (!code || *code < '0' || *code > last)
        throw UsageError("'" + std::string(text) + "' is no " + what + ": a character, or a number from 48 to " +
                         std::to_string(last));
    return *code;
}

} // namespace

std::uint32_t ParseFont(std::string_view text)
{
    return ParseCode(text, 169, "font");
}

std::uint32_t ParseMode(std::string_view text)
{
    return ParseCode(text, 255, "mode");
}

std::vector<std::string_view> ColourNames()
{
    std::vector<std::string_view> names;
    std::ranges::transform(kColours, std::back_inserter(names), &NamedColour::name);
    return names;
}

std::uint32_t ParseColour(std::string_view text)
{
    const auto* const named = std::find_if(std::begin(kColours), std::end(kColours),
                                           [text](const NamedColour& colour) { return colour.name == text; });
    if (named != std::end(kColours))
        return TrueColour(named->red, named->green, named->blue);
    if (text.starts_with('#')) {
        const auto parts = ParseHex(text.substr(1));
        if (!parts || parts->size() != 3 || text.size() != 7)
            throw UsageError("'" + std::string(text) + "' is no colour such as #FF8000");
        return TrueColour((*parts)[0], (*parts)[1], (*parts)[2]);
    }
    if (text.size() > 1 && !ParseNumber(text)) {
        std::string names;
        for (const std::string_view name : ColourNames())
            names.append(1, ' ').append(name);
        throw UsageError("'" + std::string(text) + "' is no colour: #RRGGBB, a code of the sign, or one of" + names);
    }
    return ParseCode(text, 255, "colour");
}

std::string CodeText(std::uint8_t code)
{
    return code > ' ' && code <= '~' ? std::string(1, static_cast<char>(code)) : std::to_string(code);
}

} // namespace vxctl
