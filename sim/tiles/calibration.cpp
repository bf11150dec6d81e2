#include "sim/tiles/calibration.h"

#include "sim/protocol/bytes.h"
#include "sim/protocol/checksum.h"
#include "sim/tiles/tileFileTypes.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr std::uint16_t kMagic = 0x55AA;
constexpr std::size_t kBlockHeader = 64;
constexpr std::size_t kRecord = 18;

// Fields of the headers. The length stands elsewhere in a file for the buses, which has a sum too.
constexpr std::size_t kHeaderLengthAt = 2;
constexpr std::size_t kFileTypeAt = 6;
constexpr std::size_t kStampsAt = 10;
constexpr std::size_t kBodyLengthAt = 16;
constexpr std::size_t kBusSumAt = 8;
constexpr std::size_t kBusBodyLengthAt = 18;
constexpr std::size_t kBlockCrcAt = 2;
constexpr std::size_t kBlockLengthAt = 4;
constexpr std::size_t kBlockStampsAt = 8;

PixelCalibration Load(std::span<const std::uint8_t> records, std::size_t index)
{
    PixelCalibration pixel;
    for (std::size_t i = 0; i < pixel.size(); ++i)
        pixel[i] = Load16(records, index * kRecord + 2 * i);
    return pixel;
}

void Store(const PixelCalibration& pixel, std::span<std::uint8_t> records, std::size_t index)
{
    for (std::size_t i = 0; i < pixel.size(); ++i)
        Store16(records, index * kRecord + 2 * i, pixel[i]);
}

std::size_t IndexOf(const TileShape& shape, int x, int y)
{
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(shape.width) + static_cast<std::size_t>(x);
}

// Calls `visit` with the index of each pixel, in the order of a file for the buses.
template <typename Visit>
void WalkBusFile(const TileShape& shape, Visit visit)
{
    for (int row = shape.ModuleHeight() - 1; row >= 0; --row) {
        for (int column = 0; column < shape.ModuleWidth(); ++column) {
            for (int m = 0; m < shape.across; ++m) {
                for (int j = 0; j < shape.down; ++j)
                    visit(IndexOf(shape, m * shape.ModuleWidth() + column, j * shape.ModuleHeight() + row));
            }
        }
    }
}

// Calls `visit` with the index of each pixel of a module.
template <typename Visit>
void WalkModule(const TileShape& shape, std::size_t module, Visit visit)
{
    const int left = static_cast<int>(module) % shape.across * shape.ModuleWidth();
    const int top = static_cast<int>(module) / shape.across * shape.ModuleHeight();
    for (int y = 0; y < shape.ModuleHeight(); ++y) {
        for (int x = 0; x < shape.ModuleWidth(); ++x)
            visit(IndexOf(shape, left + x, top + y));
    }
}

// The body of a tile's file: nothing if it is no such file or not all there.
std::optional<std::span<const std::uint8_t>> BodyOf(std::span<const std::uint8_t> file, std::size_t lengthAt)
{
    if (file.size() < kTileFileHeader || Load16(file, 0) != kMagic ||
        Load16(file, kHeaderLengthAt) != kTileFileHeader || Load32(file, lengthAt) > file.size() - kTileFileHeader)
        return std::nullopt;
    return file.subspan(kTileFileHeader, Load32(file, lengthAt));
}

std::optional<Calibration> ReadBlocks(std::span<const std::uint8_t> body, const TileShape& shape)
{
    const std::size_t pixels = shape.Pixels() / shape.Modules();
    Calibration calibration(shape.Pixels());
    for (std::size_t module = 0; module < shape.Modules(); ++module) {
        const auto header = body.subspan(module * (kBlockHeader + pixels * kRecord), kBlockHeader);
        const auto records = body.subspan(module * (kBlockHeader + pixels * kRecord) + kBlockHeader, pixels * kRecord);
        if (Load16(header, 0) != kMagic || Load32(header, kBlockLengthAt) != records.size() ||
            Load16(header, kBlockCrcAt) != Crc16(records))
            return std::nullopt;
        WalkModule(shape, module, [&, record = std::size_t{0}](std::size_t index) mutable {
            calibration[index] = Load(records, record++);
        });
    }
    return calibration;
}

} // namespace

std::optional<Calibration> ReadBusCalibration(std::span<const std::uint8_t> file, const TileShape& shape)
{
    const auto body = BodyOf(file, kBusBodyLengthAt);
    if (!body || body->size() != shape.Pixels() * kRecord || Load16(file, kBusSumAt) != Sum16(*body))
        return std::nullopt;
    Calibration calibration(shape.Pixels());
    WalkBusFile(
        shape, [&, record = std::size_t{0}](std::size_t index) mutable { calibration[index] = Load(*body, record++); });
    return calibration;
}

std::vector<std::uint8_t> MakeBusCalibration(const Calibration& calibration, const TileShape& shape)
{
    std::vector<std::uint8_t> file(kTileFileHeader + calibration.size() * kRecord);
    const auto body = std::span(file).subspan(kTileFileHeader);
    WalkBusFile(shape,
                [&, record = std::size_t{0}](std::size_t index) mutable { Store(calibration[index], body, record++); });
    Store16(file, 0, kMagic);
    Store16(file, kHeaderLengthAt, kTileFileHeader);
    Store16(file, 4, 2);
    Store16(file, 6, 10);
    Store16(file, kBusSumAt, Sum16(body));
    Store32(file, kBusBodyLengthAt, static_cast<std::uint32_t>(body.size()));
    return file;
}

std::optional<Calibration> ReadPortCalibration(std::span<const std::uint8_t> file, const TileShape& shape)
{
    const auto body = BodyOf(file, kBodyLengthAt);
    if (!body || Load16(file, kFileTypeAt) != kCalibrationFile)
        return std::nullopt;
    if (body->size() == shape.Pixels() * kRecord + shape.Modules() * kBlockHeader)
        return ReadBlocks(*body, shape);
    if (body->size() != shape.Pixels() * kRecord)
        return std::nullopt;
    Calibration calibration(shape.Pixels());
    for (std::size_t index = 0; index < calibration.size(); ++index)
        calibration[index] = Load(*body, index);
    return calibration;
}

std::vector<std::uint8_t> MakePortCalibration(const Calibration& calibration, const TileShape& shape,
                                              std::span<const std::uint8_t> header)
{
    const std::size_t block = kBlockHeader + calibration.size() / shape.Modules() * kRecord;
    auto file = MakeTileFile(kCalibrationFile, shape.Modules() * block);
    if (header.size() >= kTileFileHeader) {
        std::ranges::copy(header.first(kTileFileHeader), file.begin());
        Store32(file, kBodyLengthAt, static_cast<std::uint32_t>(file.size() - kTileFileHeader));
    }
    for (std::size_t module = 0; module < shape.Modules(); ++module) {
        const auto start = std::span(file).subspan(kTileFileHeader + module * block, block);
        const auto records = start.subspan(kBlockHeader);
        WalkModule(shape, module, [&, record = std::size_t{0}](std::size_t index) mutable {
            Store(calibration[index], records, record++);
        });
        Store16(start, 0, kMagic);
        Store16(start, kBlockCrcAt, Crc16(records));
        Store32(start, kBlockLengthAt, static_cast<std::uint32_t>(records.size()));
        Store16(start, kBlockStampsAt, Load16(file, kStampsAt));
        Store16(start, kBlockStampsAt + 2, Load16(file, kStampsAt + 2));
    }
    return file;
}

std::vector<std::uint8_t> MakeTileFile(std::uint8_t fileType, std::size_t bodySize)
{
    std::vector<std::uint8_t> file(kTileFileHeader + bodySize);
    Store16(file, 0, kMagic);
    Store16(file, kHeaderLengthAt, kTileFileHeader);
    Store16(file, kFileTypeAt, fileType);
    Store32(file, kBodyLengthAt, static_cast<std::uint32_t>(bodySize));
    return file;
}

std::optional<std::uint64_t> TileFileSize(std::span<const std::uint8_t> start)
{
    if (start.size() < kTileFileHeader || Load16(start, 0) != kMagic)
        return std::nullopt;
    return std::uint64_t{Load16(start, kHeaderLengthAt)} + Load32(start, kBodyLengthAt);
}

} // namespace vxsim
