#include "sim/face/utf8.h"

#include <algorithm>
#include <cstddef>

namespace vxsim {

namespace {

// The bytes that a lead byte announces, itself included; 0 if it can't be one.
std::size_t LengthOf(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool IsWellFormed(char32_t character, std::size_t length)
{
    constexpr char32_t kSmallestOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    return character >= kSmallestOfLength[length] && character <= 0x10FFFF && !surrogate;
}

} // namespace

char32_t TakeCharacter(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthOf(lead);
    if (length == 0 || length > text.size()) {
        text.remove_prefix(1);
        return kReplacementCharacter;
    }

    char32_t character = length == 1 ? lead : static_cast<char32_t>(lead & (0x7F >> length));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) {
            text.remove_prefix(1);
            return kReplacementCharacter;
        }
        character = (character << 6) | (byte & 0x3FU);
    }
    const bool good = IsWellFormed(character, length);
    text.remove_prefix(good ? length : 1);
    return good ? character : kReplacementCharacter;
}

void AppendCharacter(char32_t character, std::string& text)
{
    constexpr char32_t kFirstOf[] = {0x80, 0x800, 0x10000};
    constexpr unsigned char kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    const auto more =
        static_cast<unsigned>(std::ranges::count_if(kFirstOf, [&](char32_t c) { return character >= c; }));
    text += static_cast<char>(kLeads[more] | character >> (6 * more));
    for (unsigned i = more; i-- > 0;)
        text += static_cast<char>(0x80U | (character >> (6 * i) & 0x3FU));
}

} // namespace vxsim
