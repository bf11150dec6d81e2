// Little-endian numbers in the bytes of signs and files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vxctl {

// The number in `size` bytes from `at` on; bytes beyond the end are 0.
constexpr std::uint32_t LoadNumber(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = size; i > 0; --i)
        number = number << 8U | (at + i <= bytes.size() ? bytes[at + i - 1] : 0U);
    return number;
}

constexpr std::uint16_t Load16(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(LoadNumber(bytes, at, 2));
}

constexpr std::uint32_t Load32(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return LoadNumber(bytes, at, 4);
}

// The lowest `bytes.size()` bytes of the number.
constexpr void Store(std::span<std::uint8_t> bytes, std::uint32_t number)
{
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(number);
        number >>= 8U;
    }
}

} // namespace vxctl
