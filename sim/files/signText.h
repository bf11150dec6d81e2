// Texts, names and addresses as the sign reads and writes them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vxsim {

// The text in a payload from `at` to its terminator or, without one, to the end. Empty if `at` lies beyond the end.
inline std::string_view TextAt(std::span<const std::uint8_t> payload, std::size_t at)
{
    const auto text = payload.subspan(std::min(at, payload.size()));
    const auto end = std::ranges::find(text, std::uint8_t{0});
    return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(end - text.begin())};
}

constexpr char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Whether two names on a drive are the same: those of FAT drives compare without regard to the case of A to Z.
inline bool SameName(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, Upper, Upper);
}

// "127.0.0.1"; the first octet is in the top byte.
inline std::string AddressText(std::uint32_t address)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += std::to_string(address >> shift & 0xFF) + (shift > 0 ? "." : "");
    return text;
}

} // namespace vxsim
