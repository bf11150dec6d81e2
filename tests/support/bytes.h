// Byte strings of tests.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
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

/// A record in hexadecimal, with a number below 10 in the place of "NN".
inline Bytes Numbered(std::string record, long number)
{
    record.replace(record.find("NN"), 2, "0" + std::to_string(number));
    return Hex(record);
}

inline Bytes FromText(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// A text in a field of `size` bytes.
inline Bytes Padded(std::string_view text, std::size_t size)
{
    Bytes bytes = FromText(text);
    bytes.resize(size);
    return bytes;
}

inline std::string ToText(const Bytes& bytes)
{
    return {bytes.begin(), bytes.end()};
}

/// Bytes from a place on: so many of them, or those that there are.
inline Bytes Part(const Bytes& bytes, std::size_t from, std::size_t count = SIZE_MAX)
{
    const std::span<const std::uint8_t> rest = std::span(bytes).subspan(std::min(from, bytes.size()));
    const std::span<const std::uint8_t> part = rest.first(std::min(count, rest.size()));
    return {part.begin(), part.end()};
}

/// Bytes cut into pieces of one size; the last may be shorter.
inline std::deque<Bytes> Pieces(const Bytes& bytes, std::size_t size)
{
    std::deque<Bytes> pieces;
    for (std::size_t at = 0; at < bytes.size(); at += size)
        pieces.push_back(Part(bytes, at, size));
    return pieces;
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
