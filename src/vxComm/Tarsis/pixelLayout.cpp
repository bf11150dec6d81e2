#include "vxComm/Tarsis/pixelLayout.h"

#include <algorithm>

namespace vxsign {
namespace {

using Axis = PixelLayout::Axis;
using Bands = PixelLayout::Bands;
using Extras = PixelLayout::Extras;
using Loop = PixelLayout::Loop;
using Records = PixelLayout::Records;

constexpr Loop kRowUp{Axis::Row, true}; // tiles count their rows from the bottom
constexpr Loop kColumn{Axis::Column, false};
constexpr Loop kAcross{Axis::Across, false};
constexpr Loop kDown{Axis::Down, false};
constexpr Loop kUp{Axis::Down, true};

enum LayoutName : std::uint8_t
{
    A,
    B,
    C,
    D,
    E,
    F
};
constexpr PixelLayout kLayouts[] = {
    {{kRowUp, kColumn, kAcross, kDown}, Records::OfModel, Extras::None, Bands::LastOfSix},
    {{kAcross, kRowUp, kColumn, kUp}, Records::OfModel, Extras::None, Bands::All},
    {{kRowUp, kColumn, kAcross, kDown}, Records::Wide, Extras::Fillers, Bands::All},
    {{kUp, kAcross, kRowUp, kColumn}, Records::Wide, Extras::BlockHeaders, Bands::All},
    {{kAcross, kDown, kRowUp, kColumn}, Records::Wide, Extras::BlockHeaders, Bands::ThirdOnFirst},
    {{kRowUp, kColumn, kUp, kAcross}, Records::OfModel, Extras::Fillers, Bands::All},
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
        return kLayouts[A];
    if (grid.Across() == 4 && !HasSquareModules(grid))
        return kLayouts[B];
    if (grid.Across() == grid.Down())
        return kLayouts[C];
    if (model == 0xC || model == 0xE)
        return kLayouts[D];
    return kLayouts[model == 0xF ? E : F];
}

std::array<Band, 2> BandsOf(const PixelLayout& layout, const TileGrid& grid)
{
    constexpr std::int64_t kModules = 6;
    const std::int64_t down = grid.Down();
    if (layout.bands == Bands::LastOfSix)
        return {Band{down - kModules / grid.Across(), down}, {}};
    if (layout.bands == Bands::ThirdOnFirst) {
        const std::int64_t third = std::min<std::int64_t>(2, down);
        return {Band{third, down}, {0, third}};
    }
    return {Band{0, down}, {}};
}

} // namespace vxsign
