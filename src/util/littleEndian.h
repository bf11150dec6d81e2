// Little-endian fields of packets and files.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>

namespace vxsign {

template <std::unsigned_integral T>
constexpr T LoadLittle(const std::uint8_t* bytes)
{
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        value = static_cast<T>(value | static_cast<T>(static_cast<T>(bytes[i]) << (8 * i)));
    return value;
}

template <std::unsigned_integral T>
constexpr void StoreLittle(std::uint8_t* bytes, T value)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

constexpr std::uint16_t Load16(const std::uint8_t* bytes)
{
    return LoadLittle<std::uint16_t>(bytes);
}

constexpr std::uint32_t Load32(const std::uint8_t* bytes)
{
    return LoadLittle<std::uint32_t>(bytes);
}

constexpr void Store16(std::uint8_t* bytes, std::uint16_t value)
{
    StoreLittle(bytes, value);
}

constexpr void Store32(std::uint8_t* bytes, std::uint32_t value)
{
    StoreLittle(bytes, value);
}

} // namespace vxsign
