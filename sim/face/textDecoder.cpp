// Decodes, composes, and puts Indic vowel signs into their places.
#include "sim/face/textDecoder.h"

#include "sim/face/textConversion.h"
#include "sim/face/utf8.h"

#include <hb.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace vxsim {
namespace {

std::size_t SizeOf(std::uint8_t fontCode)
{
    return static_cast<std::size_t>(RowsOfFontCode(fontCode) / RowsOfFontCode('1'));
}

// Indic vowel signs that are written in front of the consonants that they are spoken after.
bool StandsInFront(char32_t code)
{
    constexpr std::array<std::pair<char32_t, char32_t>, 12> kSigns{{{0x93F, 0x93F},
                                                                    {0x9BF, 0x9BF},
                                                                    {0x9C7, 0x9C8},
                                                                    {0xA3F, 0xA3F},
                                                                    {0xABF, 0xABF},
                                                                    {0xB47, 0xB48},
                                                                    {0xBC6, 0xBC8},
                                                                    {0xD46, 0xD48},
                                                                    {0xDD9, 0xDDB},
                                                                    {0x1031, 0x1031},
                                                                    {0x17C1, 0x17C3},
                                                                    {0x1A19, 0x1A19}}};
    return std::ranges::any_of(kSigns, [&](const auto& sign) { return sign.first <= code && code <= sign.second; });
}

// The virama of an Indic script joins the consonant behind it to the one before.
bool Joins(char32_t code)
{
    return hb_unicode_combining_class(hb_unicode_funcs_get_default(), code) == HB_UNICODE_COMBINING_CLASS_VIRAMA;
}

void InsertInFront(const Character& sign, std::vector<Character>& characters)
{
    auto place = characters.end() - 1;
    while (place - characters.begin() >= 2 && Joins(place[-1].code))
        place -= 2;
    characters.insert(place, sign);
}

// Adds the character, or joins it with the letter before if both have one code together.
void Append(const Character& character, std::vector<Character>& characters)
{
    hb_codepoint_t whole = 0;
    if (!characters.empty() && characters.back().size == character.size &&
        hb_unicode_compose(hb_unicode_funcs_get_default(), characters.back().code, character.code, &whole) != 0)
        characters.back().code = whole;
    else if (!characters.empty() && StandsInFront(character.code))
        InsertInFront(character, characters);
    else if (character.code >= U' ' || character.code == U'\n' || character.code == U'\f')
        characters.push_back(character);
}

} // namespace

Decoded Decode(std::span<const TextRun> runs, const std::string& encoding)
{
    Decoded decoded;
    std::vector<Character>& characters = decoded.characters;
    for (const TextRun& run : runs) {
        const std::string converted = IsUtf8Name(encoding) ? std::string() : ToUtf8(run.text, encoding);
        std::string_view rest = IsUtf8Name(encoding) ? run.text : converted;
        while (!rest.empty() && characters.size() < kMostCharacters)
            Append({TakeCharacter(rest), SizeOf(run.font), run.colour}, characters);
        decoded.isCut = decoded.isCut || !rest.empty();
    }
    // A line or page feed that closes the text opens no further line.
    if (!characters.empty() && characters.back().code < U' ')
        characters.pop_back();
    return decoded;
}

} // namespace vxsim
