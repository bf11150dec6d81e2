// Byte strings of tests.
#pragma once

#include <cctype>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vxsign::test {

using Bytes = std::vector<std::uint8_t>;

/// Bytes from hexadecimal digits; blanks do not count.
inline Bytes Hex(std::string_view digits)
{
    Bytes bytes;
    int high = -1;
    for (const char c : digits) {
        if (std::isspace(static_cast<unsigned char>(c)) != 0)
            continue;
        const int digit = c <= '9' ? c - '0' : std::toupper(c) - 'A' + 10;
        if (high < 0)
            high = digit;
        else {
            bytes.push_back(static_cast<std::uint8_t>(high * 16 + digit));
            high = -1;
        }
    }
    return bytes;
}

inline Bytes FromText(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// The low bytes of a number.
inline Bytes Little(std::uint32_t value, std::size_t size)
{
    Bytes bytes;
    for (std::size_t i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    return bytes;
}

/// Bytes that differ from one chunk to the next.
inline Bytes Ramp(std::size_t size)
{
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    return bytes;
}

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

} // namespace vxsign::test
