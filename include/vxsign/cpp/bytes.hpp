// Numbers and texts in the bytes of a sign.
#ifndef VXSIGN_CPP_BYTES_HPP
#define VXSIGN_CPP_BYTES_HPP

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vxsign::detail {

inline std::uint16_t Load16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

inline std::uint32_t Load32(const std::uint8_t* bytes)
{
    return Load16(bytes) | static_cast<std::uint32_t>(Load16(bytes + 2)) << 16;
}

inline void Store(std::uint8_t* bytes, std::uint32_t value, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i, value >>= 8)
        bytes[i] = static_cast<std::uint8_t>(value);
}

// The text in a field, which ends at its first NUL or fills the field.
inline std::string Field(const char* field, std::size_t size)
{
    const std::string_view whole(field, size);
    return std::string(whole.substr(0, whole.find('\0')));
}

template <std::size_t size>
std::string Field(const char (&field)[size])
{
    return Field(field, size);
}

// A decimal number of up to nine digits; nothing for any other text.
inline std::optional<std::uint32_t> Number(std::string_view text)
{
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    std::uint32_t number = 0;
    for (const char digit : text)
        number = number * 10 + static_cast<std::uint32_t>(digit - '0');
    return number;
}

inline char Upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

inline std::string Upper(std::string_view text)
{
    std::string upper(text);
    for (char& character : upper)
        character = Upper(character);
    return upper;
}

inline bool EndsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

} // namespace vxsign::detail

#endif
