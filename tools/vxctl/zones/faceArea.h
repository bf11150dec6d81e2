// A part of the face, as the command line and records have it.
#pragma once

#include "vxctl/cli/argument.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

struct FaceArea
{
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;

    bool operator==(const FaceArea&) const = default;
};

// "X,Y,WIDTHxHEIGHT", the place in pixels from the top left corner. Throws UsageError for anything else.
FaceArea ParseArea(std::string_view text);

inline constexpr ArgumentType kFaceArea{"X,Y,WxH", Checked<ParseArea>};

// A grid "COLUMNSxROWS" over a face of that size, row by row; columns and rows differ by a pixel where they must.
// Throws UsageError for no grid, or one that the face has too few pixels for.
std::vector<FaceArea> ParseGrid(std::string_view text, unsigned width, unsigned height);

// The four numbers of 16 bits in a record, in the order above.
inline constexpr std::size_t kFaceAreaSize = 8;
void StoreArea(std::span<std::uint8_t, kFaceAreaSize> record, const FaceArea& area);
FaceArea LoadArea(std::span<const std::uint8_t, kFaceAreaSize> record);

} // namespace vxctl
