// The orders in which a tile pixel file holds the pixels of a tile: one description for each, and one walk along them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace vxsign {

/// A tile and the modules that it is made of, in pixels.
struct TileGrid
{
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t moduleWidth;
    std::uint32_t moduleHeight;

    /// At least one whole module.
    bool IsGood() const
    {
        return moduleWidth != 0 && moduleHeight != 0 && moduleWidth <= width && moduleHeight <= height;
    }
    std::uint32_t Across() const { return width / moduleWidth; }
    std::uint32_t Down() const { return height / moduleHeight; }
};

struct PixelLayout
{
    /// What a loop counts: rows and columns within a module, modules across and down the tile.
    enum class Axis : std::uint8_t
    {
        kRow,
        kColumn,
        kAcross,
        kDown
    };
    struct Loop
    {
        Axis axis;
        bool descending;
    };
    /// Which rows of modules the loops run over, and how often.
    enum class Bands : std::uint8_t
    {
        kAll,
        kLastOfSix,   // as many of the last rows as make six modules; those ahead of the first are padding
        kThirdOnFirst // the third and those below, then the first two
    };
    enum class Records : std::uint8_t
    {
        kOfModel, // compact for tileModel 0
        kWide
    };
    enum class Extras : std::uint8_t
    {
        kNone,
        kFillers,     // two records ahead of each run of the innermost loop, for some kinds of tile
        kBlockHeaders // ahead of each run of the two inner loops, which is one module
    };

    std::array<Loop, 4> loops; // the outermost first
    Records records;
    Extras extras;
    Bands bands;
};

/// The order that the files of a tile have.
const PixelLayout& ChooseLayout(std::uint32_t tileKind, std::uint32_t tileModel, const TileGrid& grid);

/// Rows of modules; a negative one is not there.
struct Band
{
    std::int64_t first;
    std::int64_t end;
};
std::array<Band, 2> BandsOf(const PixelLayout& layout, const TileGrid& grid);

/// Whether files of this kind of tile have fillers where their layout allows for them.
constexpr bool HasFillers(std::uint32_t tileKind)
{
    return tileKind >= 34 && tileKind <= 41;
}

/// Goes along the file: visitor.Pixel(index), Padding(), Filler() for one record each, StartBlock() for a header. The
/// grid must be good; each index then lies below width * height.
template <class Visitor>
void WalkPixels(const PixelLayout& layout, const TileGrid& grid, bool fillers, Visitor& visitor)
{
    using Axis = PixelLayout::Axis;
    std::array<Band, 4> ranges{Band{0, grid.moduleHeight}, {0, grid.moduleWidth}, {0, grid.Across()}, {}};
    std::array<std::int64_t, 4> at{};
    const auto value = [&at](Axis axis) -> std::int64_t& { return at[static_cast<std::size_t>(axis)]; };
    const auto each = [&](const PixelLayout::Loop& loop, const auto& body) {
        const Band range = ranges[static_cast<std::size_t>(loop.axis)];
        for (std::int64_t step = 0; step < range.end - range.first; ++step) {
            value(loop.axis) = loop.descending ? range.end - 1 - step : range.first + step;
            body();
        }
    };
    const auto record = [&] {
        if (value(Axis::kDown) < 0)
            return visitor.Padding();
        const std::int64_t y = value(Axis::kDown) * grid.moduleHeight + value(Axis::kRow);
        const std::int64_t x = value(Axis::kAcross) * grid.moduleWidth + value(Axis::kColumn);
        visitor.Pixel(static_cast<std::size_t>(y * grid.width + x));
    };
    const auto run = [&] {
        if (layout.extras == PixelLayout::Extras::kFillers && fillers) {
            visitor.Filler();
            visitor.Filler();
        }
        each(layout.loops[3], record);
    };
    const auto block = [&] {
        if (layout.extras == PixelLayout::Extras::kBlockHeaders)
            visitor.StartBlock();
        each(layout.loops[2], run);
    };
    for (const Band& band : BandsOf(layout, grid)) {
        if (band.first == band.end)
            continue; // else its fillers would come without records
        ranges[static_cast<std::size_t>(Axis::kDown)] = band;
        each(layout.loops[0], [&] { each(layout.loops[1], block); });
    }
}

} // namespace vxsign
