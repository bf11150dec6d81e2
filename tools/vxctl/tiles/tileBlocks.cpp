// The calibration files of the second family: a header, then the pixels in rows or in blocks, one for each module.
#include "vxctl/cli/failure.h"
#include "vxctl/tiles/tilePixels.h"

#include <vxsign/directtile.h>
#include <vxsign/local.h>
#include <vxsign/ondra.h>
#include <vxsign/result.h>
#include <vxsign/tarsis.h>

#include <cstring>

namespace vxctl {

namespace {

constexpr std::uint16_t kMagic = 0x55AA;
constexpr std::size_t kRecord = sizeof(TilePixelRecord);

struct Modules
{
    std::uint32_t across;
    std::uint32_t down;
};

Modules ModulesOf(const TileShape& shape)
{
    if (shape.moduleWidth == 0 || shape.moduleHeight == 0 || shape.width % shape.moduleWidth != 0 ||
        shape.height % shape.moduleHeight != 0)
        throw UsageError("blocks need a module that the tile is made of: --module WIDTHxHEIGHT");
    return {shape.width / shape.moduleWidth, shape.height / shape.moduleHeight};
}

// Calls take(first coefficient, pixels) for each row of the modules, and startBlock() ahead of each module.
template <class Start, class Take>
void WalkBlocks(const TileShape& shape, const Start& startBlock, const Take& take)
{
    const Modules modules = ModulesOf(shape);
    for (std::uint32_t row = 0; row < modules.down; ++row) {
        for (std::uint32_t column = 0; column < modules.across; ++column) {
            startBlock();
            for (std::uint32_t y = 0; y < shape.moduleHeight; ++y) {
                const std::size_t pixel =
                    (std::size_t{row} * shape.moduleHeight + y) * shape.width + std::size_t{column} * shape.moduleWidth;
                take(pixel * kTileCoefficients, shape.moduleWidth);
            }
        }
    }
}

} // namespace

// The records go by memory, so that the fields are those of this machine, as the library's records are.
std::vector<std::uint8_t> MakeCalibrationFile(const TilePixels& pixels, bool blocks, const TileShape& shape)
{
    if (pixels.width != shape.width || pixels.height != shape.height)
        throw UsageError("the tile has another size than the file");
    const Modules modules = blocks ? ModulesOf(shape) : Modules{0, 0};
    const std::size_t flat = pixels.Count() * kRecord;
    const std::size_t body = flat + std::size_t{modules.across} * modules.down * sizeof(TilePixelBlockHeader);
    std::uint16_t date = 0;
    std::uint16_t time = 0;
    vxGetDOSTime(&date, &time);
    TileFileHeader header{};
    header.magic = kMagic;
    header.headerLength = sizeof header;
    header.fileType = VX_TILE_CALIBRATION;
    header.stamps[0] = date;
    header.stamps[1] = time;
    header.bodyLength = static_cast<std::uint32_t>(body);
    std::vector<std::uint8_t> file(sizeof header + body);
    std::memcpy(file.data(), &header, sizeof header);
    const auto* const source = reinterpret_cast<const std::uint8_t*>(pixels.coefficients.data());
    if (!blocks) {
        std::memcpy(file.data() + sizeof header, source, flat);
        return file;
    }
    std::size_t at = sizeof header;
    WalkBlocks(
        shape, [&] { at += sizeof(TilePixelBlockHeader); },
        [&](std::size_t first, std::size_t count) {
            std::memcpy(file.data() + at, source + first * sizeof(std::uint16_t), count * kRecord);
            at += count * kRecord;
        });
    TilePixelBlockHeader block{};
    block.magic = kMagic;
    block.bodyLength = static_cast<std::uint32_t>(std::size_t{shape.moduleWidth} * shape.moduleHeight * kRecord);
    block.date = date;
    block.time = time;
    for (at = sizeof header; at < file.size(); at += sizeof block + block.bodyLength) {
        block.crc = static_cast<std::uint16_t>(vxChkSum(file.data() + at + sizeof block, 0, block.bodyLength, 1));
        std::memcpy(file.data() + at, &block, sizeof block);
    }
    return file;
}

TilePixels ParseCalibrationFile(const std::vector<std::uint8_t>& file, const TileShape& shape)
{
    TileFileHeader header{};
    if (file.size() >= sizeof header)
        std::memcpy(&header, file.data(), sizeof header);
    if (header.magic != kMagic || header.headerLength != sizeof header || header.fileType != VX_TILE_CALIBRATION)
        throw UsageError("the file is no calibration of a tile");
    TilePixels pixels = PlainTile(shape.width, shape.height, 0);
    auto* const target = reinterpret_cast<std::uint8_t*>(pixels.coefficients.data());
    const std::size_t flat = pixels.Count() * kRecord;
    const std::size_t body = file.size() - sizeof header;
    if (header.bodyLength == flat && body >= flat) {
        std::memcpy(target, file.data() + sizeof header, flat);
        return pixels;
    }
    const Modules modules = ModulesOf(shape);
    const std::size_t inBlocks = flat + std::size_t{modules.across} * modules.down * sizeof(TilePixelBlockHeader);
    if (header.bodyLength != inBlocks || body < inBlocks)
        throw UsageError("the file is no calibration of a tile of that size");
    std::size_t at = sizeof header;
    WalkBlocks(
        shape, [&] { at += sizeof(TilePixelBlockHeader); },
        [&](std::size_t first, std::size_t count) {
            std::memcpy(target + first * sizeof(std::uint16_t), file.data() + at, count * kRecord);
            at += count * kRecord;
        });
    return pixels;
}

} // namespace vxctl
