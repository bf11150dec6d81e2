// A rectangle on the face.
#pragma once

#include "sim/protocol/bytes.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace vxsim {

// A part of the face, in pixels.
struct FaceArea
{
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;

    // Whether it has pixels, all of them on a face of that size.
    bool FitsOn(int faceWidth, int faceHeight) const
    {
        return width != 0 && height != 0 && left + width <= faceWidth && top + height <= faceHeight;
    }

    bool operator==(const FaceArea&) const = default;
};

// As records have it: left, top, width, height, 16 bits each.
inline constexpr std::size_t kFaceAreaSize = 8;

inline FaceArea LoadArea(std::span<const std::uint8_t> block, std::size_t at)
{
    return {Load16(block, at), Load16(block, at + 2), Load16(block, at + 4), Load16(block, at + 6)};
}

inline void StoreArea(std::span<std::uint8_t> block, std::size_t at, const FaceArea& area)
{
    Store16(block, at, area.left);
    Store16(block, at + 2, area.top);
    Store16(block, at + 4, area.width);
    Store16(block, at + 6, area.height);
}

} // namespace vxsim
