// Numbers of the command line, decimal or with 0x, and bytes in hexadecimal.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// Nothing when text is no such number or beyond 32 bits. "010" is ten.
std::optional<std::uint32_t> ParseNumber(std::string_view text);

// Bytes such as "0a1B 2c": spaces, colons, dashes and commas between bytes are left out. Nothing when text is not that.
std::optional<std::vector<std::uint8_t>> ParseHex(std::string_view text);

// "0A 1B 2C", with the given text between two bytes.
std::string FormatHex(const std::uint8_t* bytes, std::size_t size, std::string_view between = " ");

// Two decimal digits, one in each half of the byte: 59 is 0x59.
constexpr std::uint8_t ToBcd(unsigned number)
{
    return static_cast<std::uint8_t>(number / 10 << 4 | number % 10);
}

// "0x" and the given digits at least.
std::string FormatWord(std::uint32_t value, int digits = 4);

} // namespace vxctl
