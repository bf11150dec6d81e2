// The layouts, and which kind of tile has which.
#include "vxComm/Tarsis/pixelLayout.h"

#include <algorithm>

namespace vxsign {
namespace {

using Axis = PixelLayout::Axis;
using Bands = PixelLayout::Bands;
using Extras = PixelLayout::Extras;
using Loop = PixelLayout::Loop;
using Records = PixelLayout::Records;

constexpr Loop kRowUp{Axis::kRow, true}; // tiles count their rows from the bottom
constexpr Loop kColumn{Axis::kColumn, false};
constexpr Loop kAcross{Axis::kAcross, false};
constexpr Loop kDown{Axis::kDown, false};
constexpr Loop kUp{Axis::kDown, true};

enum LayoutName : std::uint8_t
{
    kA,
    kB,
    kC,
    kD,
    kE,
    kF
};
constexpr PixelLayout kLayouts[] = {
    {{kRowUp, kColumn, kAcross, kDown}, Records::kOfModel, Extras::kNone, Bands::kLastOfSix},
    {{kAcross, kRowUp, kColumn, kUp}, Records::kOfModel, Extras::kNone, Bands::kAll},
    {{kRowUp, kColumn, kAcross, kDown}, Records::kWide, Extras::kFillers, Bands::kAll},
    {{kUp, kAcross, kRowUp, kColumn}, Records::kWide, Extras::kBlockHeaders, Bands::kAll},
    {{kAcross, kDown, kRowUp, kColumn}, Records::kWide, Extras::kBlockHeaders, Bands::kThirdOnFirst},
    {{kRowUp, kColumn, kUp, kAcross}, Records::kOfModel, Extras::kFillers, Bands::kAll},
};

constexpr std::uint32_t kKindOfSix = 74;

// Tiles of 64 by 16 with modules of 16 columns count as square by the height of their modules alone.
bool HasSquareModules(const TileGrid& grid)
{
    if (grid.width == 64 && grid.height == 16 && grid.moduleWidth == 16)
        return grid.moduleHeight == 16;
    return grid.moduleWidth == grid.moduleHeight;
}

} // namespace

const PixelLayout& ChooseLayout(std::uint32_t tileKind, std::uint32_t tileModel, const TileGrid& grid)
{
    const std::uint32_t model = tileModel >> 4 & 0xF;
    if (tileKind == kKindOfSix)
        return kLayouts[kA];
    if (grid.Across() == 4 && !HasSquareModules(grid))
        return kLayouts[kB];
    if (grid.Across() == grid.Down())
        return kLayouts[kC];
    if (model == 0xC || model == 0xE)
        return kLayouts[kD];
    return kLayouts[model == 0xF ? kE : kF];
}

std::array<Band, 2> BandsOf(const PixelLayout& layout, const TileGrid& grid)
{
    constexpr std::int64_t kModules = 6;
    const std::int64_t down = grid.Down();
    if (layout.bands == Bands::kLastOfSix)
        return {Band{down - kModules / grid.Across(), down}, {}};
    if (layout.bands == Bands::kThirdOnFirst) {
        const std::int64_t third = std::min<std::int64_t>(2, down);
        return {Band{third, down}, {0, third}};
    }
    return {Band{0, down}, {}};
}

} // namespace vxsign
