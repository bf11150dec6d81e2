// Numbers in packets and files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Little-endian fields of packets and files. A field that does not lie whole inside its block reads as 0 and is
// not written.
namespace vxsim {

inline std::uint16_t Load16(std::span<const std::uint8_t> block, std::size_t at)
{
    if (at > block.size() || block.size() - at < 2)
        return 0;
    return static_cast<std::uint16_t>(block[at] | block[at + 1] << 8);
}

inline std::uint32_t Load32(std::span<const std::uint8_t> block, std::size_t at)
{
    if (at > block.size() || block.size() - at < 4)
        return 0;
    return Load16(block, at) | static_cast<std::uint32_t>(Load16(block, at + 2)) << 16;
}

inline void Store16(std::span<std::uint8_t> block, std::size_t at, std::uint16_t value)
{
    if (at > block.size() || block.size() - at < 2)
        return;
    block[at] = static_cast<std::uint8_t>(value);
    block[at + 1] = static_cast<std::uint8_t>(value >> 8);
}

inline void Store32(std::span<std::uint8_t> block, std::size_t at, std::uint32_t value)
{
    if (at > block.size() || block.size() - at < 4)
        return;
    Store16(block, at, static_cast<std::uint16_t>(value));
    Store16(block, at + 2, static_cast<std::uint16_t>(value >> 16));
}

} // namespace vxsim
