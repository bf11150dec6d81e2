// Reads and writes numbers and bytes.
#include "vxctl/cli/numbers.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <system_error>

namespace vxctl {

namespace {

std::optional<std::uint32_t> ParseWhole(std::string_view text, int base)
{
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<std::uint32_t> ParseNumber(std::string_view text)
{
    if (text.starts_with("0x") || text.starts_with("0X"))
        return ParseWhole(text.substr(2), 16);
    return ParseWhole(text, 10);
}

std::optional<std::vector<std::uint8_t>> ParseHex(std::string_view text)
{
    std::vector<std::uint8_t> bytes;
    std::size_t at = 0;
    while (at < text.size()) {
        if (std::string_view(" :-,").find(text[at]) != std::string_view::npos) {
            ++at;
            continue;
        }
        const std::string_view digits = text.substr(at, 2);
        const auto value = ParseWhole(digits, 16);
        if (digits.size() != 2 || !value)
            return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(*value));
        at += 2;
    }
    return bytes;
}

std::string FormatHex(const std::uint8_t* bytes, std::size_t size, std::string_view between)
{
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        if (i != 0)
            text += between;
        text += kDigits[bytes[i] >> 4U];
        text += kDigits[bytes[i] & 15U];
    }
    return text;
}

std::string FormatWord(std::uint32_t value, int digits)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%0*X", digits, static_cast<unsigned>(value));
    return text.data();
}

} // namespace vxctl
