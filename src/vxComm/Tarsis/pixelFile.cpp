// Tile pixel files: from and to the caller's pixels, without a sign.
#include "util/bcd.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "vxComm/Tarsis/pixelLayout.h"
#include "vxComm/shared/tileBlock.h"

#include <vxsign/local.h>
#include <vxsign/result.h>
#include <vxsign/tarsis.h>

#include <algorithm>
#include <span>
#include <vector>

using namespace vxsign;

static_assert(sizeof(TileStatRecord) == 6);
static_assert(offsetof(TileStatRecord, firmware) == 3);
static_assert(offsetof(TileStatRecord, tileModel) == 5);
static_assert(sizeof(TilePixelRecord) == kPixelRecord);
static_assert(sizeof(CompactPixelRecord) == 6);
static_assert(sizeof(TilePixelFileHeader) == kTileFileHeader);
static_assert(offsetof(TilePixelFileHeader, sum) == 8);
static_assert(offsetof(TilePixelFileHeader, year) == 10);
static_assert(offsetof(TilePixelFileHeader, dayOfWeek) == 17);
static_assert(offsetof(TilePixelFileHeader, bodyLength) == 18);
static_assert(sizeof(TilePixelBlockHeader) == kTileBlockHeader);
static_assert(offsetof(TilePixelBlockHeader, bodyLength) == 4);
static_assert(offsetof(TilePixelBlockHeader, time) == 10);

namespace {

constexpr std::size_t kCompactRecord = sizeof(CompactPixelRecord);
constexpr std::size_t kCoefficients = 9;

// The coefficients that share a word of a compact record: one of eight bits, two of four.
constexpr std::size_t kCompactSlots[3][3] = {{0, 1, 2}, {4, 3, 5}, {8, 6, 7}};

// The record that a file is read or written through. Where a file ends early it keeps what it had.
using Record = std::array<std::uint8_t, kPixelRecord>;

void Unpack(const Record& record, bool wide, std::uint16_t* pixel)
{
    if (wide) {
        for (std::size_t i = 0; i < kCoefficients; ++i)
            pixel[i] = Load16(&record[2 * i]);
        return;
    }
    for (std::size_t word = 0; word < 3; ++word) {
        const std::uint16_t bits = Load16(&record[2 * word]);
        pixel[kCompactSlots[word][0]] = static_cast<std::uint16_t>(bits >> 8);
        pixel[kCompactSlots[word][1]] = static_cast<std::uint16_t>(bits >> 4 & 0xF);
        pixel[kCompactSlots[word][2]] = static_cast<std::uint16_t>(bits & 0xF);
    }
}

// The four bits are not cut out: coefficients above 15 run over into those before them.
void Pack(const std::uint16_t* pixel, bool wide, Record& record)
{
    if (wide) {
        for (std::size_t i = 0; i < kCoefficients; ++i)
            Store16(&record[2 * i], pixel[i]);
        return;
    }
    for (std::size_t word = 0; word < 3; ++word) {
        unsigned bits = 0;
        for (const std::size_t slot : kCompactSlots[word])
            bits = bits * 16 + (pixel[slot] & 0xFF);
        Store16(&record[2 * word], static_cast<std::uint16_t>(bits));
    }
}

// What stands for a pixel that the tile does not have: the diagonal full on. It is all there is to a compact record.
void PackPadding(bool wide, Record& record)
{
    record.fill(wide ? 0x00 : 0xFF);
    if (wide)
        for (const std::size_t diagonal : {0u, 4u, 8u})
            Store16(&record[2 * diagonal], 0xFFFF);
}

class PixelReader
{
public:
    PixelReader(File& source, std::uint16_t* target, bool wideRecords) : file(source), pixels(target), wide(wideRecords)
    {
    }

    void Pixel(std::size_t index)
    {
        Padding();
        Unpack(record, wide, pixels + index * kCoefficients);
    }
    void Padding() { ReadSome(file, record.data(), wide ? kPixelRecord : kCompactRecord); }
    void Filler() { Skip<kPixelRecord>(); }
    void StartBlock() { Skip<kTileBlockHeader>(); }

private:
    template <std::size_t Size>
    void Skip()
    {
        std::uint8_t dropped[Size];
        ReadSome(file, dropped, Size);
    }

    File& file;
    std::uint16_t* pixels;
    bool wide;
    Record record{};
};

class PixelWriter
{
public:
    PixelWriter(File& target, const std::uint16_t* source, bool wideRecords)
        : file(target), pixels(source), wide(wideRecords)
    {
        vxGetDOSTime(&date, &time);
    }

    void Pixel(std::size_t index)
    {
        Pack(pixels + index * kCoefficients, wide, record);
        Put({record.data(), wide ? kPixelRecord : kCompactRecord});
    }
    void Padding()
    {
        PackPadding(wide, record);
        Put({record.data(), wide ? kPixelRecord : kCompactRecord});
    }
    void Filler() { Put(record); } // only its length matters
    void StartBlock()
    {
        FinishBlock();
        inBlock = true;
    }

    // Ends the file. False when not all of it could be written.
    bool Finish()
    {
        FinishBlock();
        return written;
    }
    std::uint32_t Length() const { return length; }
    std::uint16_t Sum() const { return static_cast<std::uint16_t>(sum); }

private:
    // The header of a block has the checksum of what follows it, so that a block is kept until its end.
    void Put(std::span<const std::uint8_t> bytes)
    {
        if (inBlock)
            block.insert(block.end(), bytes.begin(), bytes.end());
        else
            Write(bytes);
    }
    void FinishBlock()
    {
        if (!inBlock)
            return;
        const auto size = static_cast<std::uint32_t>(block.size());
        const std::uint32_t crc = vxChkSum(block.data(), 0, size, 1);
        Write(TileBlockHeader(static_cast<std::uint16_t>(crc), size, date, time));
        Write(block);
        block.clear();
    }
    void Write(std::span<const std::uint8_t> bytes)
    {
        for (const std::uint8_t byte : bytes)
            sum += byte;
        length += static_cast<std::uint32_t>(bytes.size());
        written = written && WriteAll(file, bytes.data(), bytes.size());
    }

    File& file;
    const std::uint16_t* pixels;
    bool wide;
    Record record{};
    std::vector<std::uint8_t> block;
    bool inBlock = false;
    bool written = true;
    std::uint32_t length = 0;
    std::uint32_t sum = 0;
    std::uint16_t date = 0;
    std::uint16_t time = 0;
};

using FileHeader = std::array<std::uint8_t, kTileFileHeader>;

// What stands in the header while the body is written.
FileHeader ProvisionalHeader()
{
    FileHeader header{};
    Store16(&header[offsetof(TilePixelFileHeader, magic)], kTileMagic);
    Store16(&header[offsetof(TilePixelFileHeader, headerLength)], kTileFileHeader);
    Store16(&header[offsetof(TilePixelFileHeader, version)], 2);
    Store16(&header[offsetof(TilePixelFileHeader, version) + 2], 10);
    return header;
}

FileHeader FinalHeader(std::uint16_t sum, std::uint32_t bodyLength)
{
    std::uint8_t now[8] = {};
    vxGetDateTime(now);
    FileHeader header = ProvisionalHeader();
    Store16(&header[offsetof(TilePixelFileHeader, sum)], sum);
    // The tiles' files have the year's low byte here, whose tens do not fit their digit and lose their high bits.
    const auto year = static_cast<std::uint16_t>(0x2000 + static_cast<std::uint8_t>((now[0] / 10 << 4) + now[0] % 10));
    Store16(&header[offsetof(TilePixelFileHeader, year)], year);
    std::transform(now + 2, now + 7, &header[offsetof(TilePixelFileHeader, month)], ToBcd);
    header[offsetof(TilePixelFileHeader, dayOfWeek)] = now[7];
    Store32(&header[offsetof(TilePixelFileHeader, bodyLength)], bodyLength);
    return header;
}

// A conversion's arguments, the same in both directions.
struct Conversion
{
    std::uint32_t pixelBytes;
    std::uint32_t tileKind;
    std::uint32_t tileModel;
    TileGrid grid;

    std::uint64_t PixelCount() const { return std::uint64_t{grid.width} * grid.height; }
    bool IsGood() const { return pixelBytes == PixelCount() * kPixelRecord && grid.IsGood(); }
    const PixelLayout& Layout() const { return ChooseLayout(tileKind, tileModel, grid); }
    bool WideRecords() const { return tileModel != 0 || Layout().records == PixelLayout::Records::kWide; }

    template <class Visitor>
    void Walk(Visitor& visitor) const
    {
        WalkPixels(Layout(), grid, HasFillers(tileKind), visitor);
    }
};

std::uint32_t Load(const Conversion& conversion, std::uint16_t* pixels, const char* path)
{
    File file = OpenFile(path, "rb");
    if (!file)
        return VX_OPEN_FILE;
    const std::uint64_t size = FileSize(file).value_or(0);
    FileHeader header{};
    ReadSome(file, header.data(), header.size());
    if (Load16(header.data()) != kTileMagic || size < kTileFileHeader + conversion.PixelCount() * kCompactRecord)
        return VX_OPEN_FILE;
    PixelReader reader(file, pixels, conversion.WideRecords());
    conversion.Walk(reader);
    return VX_OK;
}

std::uint32_t Save(const Conversion& conversion, const std::uint16_t* pixels, const char* path)
{
    File file = OpenFile(path, "wb+");
    if (!file)
        return VX_OPEN_FILE;
    FileHeader header = ProvisionalHeader();
    bool written = WriteAll(file, header.data(), header.size());
    PixelWriter writer(file, pixels, conversion.WideRecords());
    conversion.Walk(writer);
    written = writer.Finish() && written;
    header = FinalHeader(writer.Sum(), writer.Length());
    written = written && Seek(file, 0) && WriteAll(file, header.data(), header.size());
    return CloseFile(file) && written ? VX_OK : VX_CALL;
}

} // namespace

std::uint32_t vxTarsisTilePxlLoad(std::uint16_t* pixels, std::uint32_t pixelBytes, const char* path,
                                  std::uint32_t tileKind, std::uint32_t tileModel, std::uint32_t width,
                                  std::uint32_t height, std::uint32_t moduleWidth, std::uint32_t moduleHeight)
{
    const Conversion conversion{pixelBytes, tileKind, tileModel, {width, height, moduleWidth, moduleHeight}};
    if (pixels == nullptr || path == nullptr || !conversion.IsGood())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] { return Load(conversion, pixels, path); });
}

std::uint32_t vxTarsisTilePxlSave(const std::uint16_t* pixels, std::uint32_t pixelBytes, const char* path,
                                  std::uint32_t tileKind, std::uint32_t tileModel, std::uint32_t width,
                                  std::uint32_t height, std::uint32_t moduleWidth, std::uint32_t moduleHeight)
{
    const Conversion conversion{pixelBytes, tileKind, tileModel, {width, height, moduleWidth, moduleHeight}};
    if (pixels == nullptr || path == nullptr || !conversion.IsGood())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] { return Save(conversion, pixels, path); });
}
