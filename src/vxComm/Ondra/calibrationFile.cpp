// Converts calibrations between the PC's form and the tile's.
#include "vxComm/Ondra/calibrationFile.h"

#include "util/file.h"
#include "vxBaseCMD/checksum.h"
#include "vxComm/shared/tileBlock.h"

#include <vxsign/directtile.h>
#include <vxsign/ondra.h>
#include <vxsign/result.h>

#include <cstdio>
#include <vector>

static_assert(sizeof(TileFileHeader) == vxsign::kTileFileHeader);
static_assert(offsetof(TileFileHeader, headerLength) == 2);
static_assert(offsetof(TileFileHeader, fileType) == 6);
static_assert(offsetof(TileFileHeader, stamps) == 10);
static_assert(offsetof(TileFileHeader, bodyLength) == 16);
static_assert(sizeof(TileStaRecord) == 96);
static_assert(offsetof(TileStaRecord, flags) == 16);
static_assert(offsetof(TileStaRecord, width) == 52);
static_assert(offsetof(TileStaRecord, moduleHeight) == 58);
static_assert(offsetof(TileStaRecord, modulesDown) == 61);

namespace vxsign {
namespace {

using FileHeader = std::array<std::uint8_t, kTileFileHeader>;
using Row = std::vector<std::uint8_t>;

std::uint64_t ModuleBytes(const TileStatus& tile)
{
    return std::uint64_t{tile.moduleWidth} * tile.moduleHeight * kPixelRecord;
}

std::uint32_t Headers(const TileStatus& tile)
{
    return static_cast<std::uint32_t>(kTileBlockHeader) * tile.across * tile.down;
}

bool HasPixels(const TileStatus& tile)
{
    return tile.across != 0 && tile.down != 0 && tile.moduleWidth != 0 && tile.moduleHeight != 0;
}

// The bytes up to the last record of each form that the modules reach.
std::uint64_t FlatSize(const TileStatus& tile)
{
    const std::uint64_t columns = std::uint64_t{tile.across} * tile.moduleWidth;
    const std::uint64_t rows = std::uint64_t{tile.down} * tile.moduleHeight;
    return kTileFileHeader + ((rows - 1) * tile.width + columns) * kPixelRecord;
}
std::uint64_t BlocksSize(const TileStatus& tile)
{
    return kTileFileHeader + (ModuleBytes(tile) + kTileBlockHeader) * tile.across * tile.down;
}

// The modules lie within the tile, so that no pixel comes twice.
bool IsWhole(const TileStatus& tile)
{
    return tile.across * tile.moduleWidth <= tile.width && tile.down * tile.moduleHeight <= tile.height;
}

// Takes the header of a calibration file that has at least this size.
bool TakeHeader(const File& file, std::uint64_t size, FileHeader& header)
{
    return FileSize(file).value_or(0) >= size && ReadSome(file, header.data(), header.size()) == header.size() &&
           Load16(&header[offsetof(TileFileHeader, magic)]) == kTileMagic &&
           Load16(&header[offsetof(TileFileHeader, fileType)]) == VX_TILE_CALIBRATION;
}

void AddToBody(FileHeader& header, std::uint32_t bytes)
{
    std::uint8_t* const length = &header[offsetof(TileFileHeader, bodyLength)];
    Store32(length, Load32(length) + bytes);
}

bool ReadRow(const File& file, std::uint64_t offset, Row& row)
{
    return Seek(file, offset) && ReadSome(file, row.data(), row.size()) == row.size();
}

// Writes a module of the flat file with its header, whose checksum is known at its end.
bool WriteBlock(const File& source, const File& target, const TileStatus& tile, const FileHeader& header,
                std::uint64_t firstPixel)
{
    const auto start = Position(target);
    const std::array<std::uint8_t, kTileBlockHeader> provisional{};
    if (!start || !WriteAll(target, provisional.data(), provisional.size()))
        return false;
    RunningCrc crc;
    Row row(tile.moduleWidth * kPixelRecord);
    for (std::uint64_t y = 0; y < tile.moduleHeight; ++y) {
        const std::uint64_t pixel = firstPixel + y * tile.width;
        if (!ReadRow(source, kTileFileHeader + pixel * kPixelRecord, row) || !WriteAll(target, row.data(), row.size()))
            return false;
        crc.Add(row);
    }
    const std::uint8_t* const stamps = &header[offsetof(TileFileHeader, stamps)];
    const auto block =
        TileBlockHeader(crc.Value(), static_cast<std::uint32_t>(ModuleBytes(tile)), Load16(stamps), Load16(stamps + 2));
    return Seek(target, *start) && WriteAll(target, block.data(), block.size()) &&
           Seek(target, *start + block.size() + ModuleBytes(tile));
}

} // namespace

std::string LocalTileFile(std::uint8_t port, std::uint16_t tile, const char* extension)
{
    char path[32];
    std::snprintf(path, sizeof path, "c:/port%d/%04x%s", port, tile, extension);
    return path;
}

std::optional<TileStatus> FetchTileStatus(std::uint8_t port, std::uint16_t tile)
{
    const std::string path = LocalTileFile(port, tile, ".sta");
    if (vxDirectTileReadFileEx(path.c_str(), VX_TILE_STATUS, port, tile, 0) != VX_OK)
        return {};
    const File file = OpenFile(path.c_str(), "rb");
    std::uint8_t record[sizeof(TileStaRecord)];
    if (!file || !Seek(file, kTileFileHeader) || ReadSome(file, record, sizeof record) != sizeof record)
        return {};
    return TileStatus{(record[offsetof(TileStaRecord, flags)] & VX_TILE_LOCKED) != 0,
                      Load16(record + offsetof(TileStaRecord, width)),
                      Load16(record + offsetof(TileStaRecord, height)),
                      Load16(record + offsetof(TileStaRecord, moduleWidth)),
                      Load16(record + offsetof(TileStaRecord, moduleHeight)),
                      record[offsetof(TileStaRecord, modulesAcross)],
                      record[offsetof(TileStaRecord, modulesDown)]};
}

std::uint32_t FlatToBlocks(const char* flat, const char* blocks, std::uint8_t port, std::uint16_t tile)
{
    const auto status = FetchTileStatus(port, tile);
    if (!status)
        return VX_NO_RECORD;
    const File source = OpenFile(flat, "rb");
    if (!source)
        return VX_NO_RECORD;
    FileHeader header{};
    if (!HasPixels(*status) || !IsWhole(*status) || !TakeHeader(source, FlatSize(*status), header))
        return VX_ARGUMENTS;
    File target = OpenFile(blocks, "wb");
    if (!target)
        return VX_NO_RECORD;
    AddToBody(header, Headers(*status));
    bool written = WriteAll(target, header.data(), header.size());
    for (std::uint64_t r = 0; r < status->down; ++r)
        for (std::uint64_t c = 0; c < status->across && written; ++c)
            written = WriteBlock(source, target, *status, header,
                                 r * status->moduleHeight * status->width + c * status->moduleWidth);
    return CloseFile(target) && written ? VX_OK : VX_NO_RECORD;
}

std::uint32_t BlocksToFlat(const char* blocks, const char* flat, std::uint8_t port, std::uint16_t tile)
{
    const auto status = FetchTileStatus(port, tile);
    if (!status)
        return VX_NO_RECORD;
    const File source = OpenFile(blocks, "rb");
    if (!source)
        return VX_NO_RECORD;
    FileHeader header{};
    if (!HasPixels(*status) || !TakeHeader(source, BlocksSize(*status), header))
        return VX_ARGUMENTS;
    File target = OpenFile(flat, "wb");
    if (!target)
        return VX_NO_RECORD;
    AddToBody(header, 0 - Headers(*status));
    bool written = WriteAll(target, header.data(), header.size());
    const std::uint64_t block = ModuleBytes(*status) + kTileBlockHeader;
    Row row(status->moduleWidth * kPixelRecord);
    for (std::uint64_t r = 0; r < status->down; ++r)
        for (std::uint64_t y = 0; y < status->moduleHeight; ++y)
            for (std::uint64_t c = 0; c < status->across && written; ++c)
                written =
                    ReadRow(source,
                            kTileFileHeader + kTileBlockHeader + (r * status->across + c) * block + y * row.size(),
                            row) &&
                    WriteAll(target, row.data(), row.size());
    return CloseFile(target) && written ? VX_OK : VX_NO_RECORD;
}

} // namespace vxsign
