#include "sim/tiles/tileFiles.h"

#include "sim/files/storedRecord.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <string>
#include <system_error>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

// The calibration as it came over the buses, kept beside the types that hosts know.
constexpr std::uint8_t kBusCalibrationFile = kTileFileTypes;

// Where the buses reach the files.
struct FlashPlace
{
    std::uint32_t begin;
    std::uint32_t end;
    std::uint8_t fileType;
};
constexpr FlashPlace kFlash[] = {
    {0, 6864, kConfigurationFile},
    {6864, 24816, kDriverFile},
    {24816, 103488, kGateArrayFile},
    {103488, 123288, kBusCalibrationFile},
    {123288, TileFiles::kFlashSize, kProgramFile},
};
constexpr std::uint8_t kErased = 0xFF;

bool IsCalibration(std::uint8_t type)
{
    return type == kCalibrationFile || type == kBusCalibrationFile;
}

std::vector<std::uint8_t> Slice(std::span<const std::uint8_t> bytes, std::size_t offset, std::size_t count)
{
    const auto rest = bytes.subspan(std::min(offset, bytes.size()));
    const auto piece = rest.first(std::min(count, rest.size()));
    return {piece.begin(), piece.end()};
}

// A whole number in a text of nothing else.
std::optional<int> Number(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

} // namespace

TileFiles::TileFiles(fs::path keptFolder, const TilePlan& tiles) : folder(std::move(keptFolder)), plan(tiles)
{
    std::error_code error; // the folder comes with the first file
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code failed;
        if (fs::is_regular_file(entry->symlink_status(failed)))
            Take(entry->path());
    }
}

// The files are called TILE.TYPE.
void TileFiles::Take(const fs::path& file)
{
    const std::string name = file.filename().string();
    const std::size_t dot = std::min(name.find('.'), name.size() - 1);
    const auto tile = Number(std::string_view(name).substr(0, dot));
    const auto type = Number(std::string_view(name).substr(dot + 1));
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (!tile || !type || *tile < 1 || *tile > plan.Count() || *type < 0 || *type > kBusCalibrationFile || error ||
        size > kMostFile)
        return;
    const Key key{*tile, static_cast<std::uint8_t>(*type)};
    if (IsCalibration(key.second)) {
        const auto bytes = ReadFileStart(file, static_cast<std::size_t>(size));
        const TileShape shape = plan.ShapeOf(*tile);
        auto calibration =
            key.second == kCalibrationFile ? ReadPortCalibration(bytes, shape) : ReadBusCalibration(bytes, shape);
        if (!calibration) // of a face of another size
            return;
        calibrations[*tile] = std::move(*calibration);
    }
    sizes[key] = static_cast<std::uint32_t>(size);
    total += size;
}

fs::path TileFiles::PathOf(const Key& key) const
{
    std::string name = std::to_string(key.first);
    name.append(key.second < 10 ? ".0" : ".").append(std::to_string(key.second));
    return folder / name;
}

bool TileFiles::Keep(const Key& key, std::span<const std::uint8_t> bytes)
{
    const auto known = sizes.find(key);
    const std::uint64_t others = total - (known != sizes.end() ? known->second : 0);
    if (bytes.empty() || bytes.size() > kMostFile || others + bytes.size() > kMostKept)
        return false;
    std::error_code error;
    fs::create_directories(folder, error);
    if (error || !ReplaceFile(PathOf(key), bytes))
        return false;
    sizes[key] = static_cast<std::uint32_t>(bytes.size());
    total = others + bytes.size();
    return true;
}

void TileFiles::Drop(const Key& key)
{
    const auto known = sizes.find(key);
    if (known == sizes.end())
        return;
    std::error_code error;
    fs::remove(PathOf(key), error);
    total -= known->second;
    sizes.erase(known);
}

std::vector<std::uint8_t> TileFiles::MadeCalibration(const Key& key) const
{
    const TileShape shape = plan.ShapeOf(key.first);
    const Calibration* known = CalibrationOf(key.first);
    const Calibration calibration = known != nullptr ? *known : Calibration(shape.Pixels(), kUncalibrated);
    return key.second == kCalibrationFile ? MakePortCalibration(calibration, shape, {})
                                          : MakeBusCalibration(calibration, shape);
}

std::optional<TileFiles::Piece> TileFiles::Read(int tile, std::uint8_t fileType, std::uint32_t offset,
                                                std::size_t count) const
{
    const Key key{tile, fileType};
    const auto known = sizes.find(key);
    if (known == sizes.end() && IsCalibration(fileType)) {
        const auto made = MadeCalibration(key);
        return Piece{static_cast<std::uint32_t>(made.size()), Slice(made, offset, count)};
    }
    if (known == sizes.end())
        return std::nullopt;
    Piece piece{known->second, {}};
    std::ifstream in(PathOf(key), std::ios::binary);
    if (offset >= piece.fileSize || !in.seekg(offset))
        return piece;
    piece.bytes.resize(std::min<std::size_t>(count, piece.fileSize - offset));
    in.read(reinterpret_cast<char*>(piece.bytes.data()), static_cast<std::streamsize>(piece.bytes.size()));
    piece.bytes.resize(static_cast<std::size_t>(in.gcount())); // less if someone cut the file meanwhile
    return piece;
}

TaskState TileFiles::Write(int tile, std::uint8_t fileType, std::span<const std::uint8_t> bytes)
{
    const Key key{tile, fileType};
    if (!IsCalibration(fileType))
        return Keep(key, bytes) ? TaskState::kDone : TaskState::kFailed;
    const TileShape shape = plan.ShapeOf(tile);
    if (fileType == kBusCalibrationFile)
        return TakeCalibration(key, ReadBusCalibration(bytes, shape), bytes);
    auto calibration = ReadPortCalibration(bytes, shape);
    const auto blocks = calibration ? MakePortCalibration(*calibration, shape, bytes) : std::vector<std::uint8_t>();
    return TakeCalibration(key, std::move(calibration), blocks);
}

// The file is kept as it came, so that it can be read back so; one in another form is made of it when asked for.
TaskState TileFiles::TakeCalibration(const Key& key, std::optional<Calibration> calibration,
                                     std::span<const std::uint8_t> bytes)
{
    if (!calibration)
        return TaskState::kPixelError;
    if (!Keep(key, bytes))
        return TaskState::kFailed;
    Drop({key.first, key.second == kCalibrationFile ? kBusCalibrationFile : std::uint8_t{kCalibrationFile}});
    calibrations[key.first] = std::move(*calibration);
    return TaskState::kDone;
}

bool TileFiles::IsCalibrationAt(std::uint32_t flashOffset)
{
    const auto* place = std::ranges::find(kFlash, flashOffset, &FlashPlace::begin);
    return place != std::end(kFlash) && place->fileType == kBusCalibrationFile;
}

std::vector<std::uint8_t> TileFiles::ReadFlash(int tile, std::uint32_t offset, std::size_t count) const
{
    std::vector<std::uint8_t> bytes(count, kErased);
    for (const FlashPlace& place : kFlash) {
        const std::uint64_t from = std::max(offset, place.begin);
        const std::uint64_t to = std::min<std::uint64_t>(std::uint64_t{offset} + count, place.end);
        if (from >= to)
            continue;
        const auto piece = Read(tile, place.fileType, static_cast<std::uint32_t>(from - place.begin), to - from);
        if (piece)
            std::ranges::copy(piece->bytes, bytes.begin() + static_cast<std::ptrdiff_t>(from - offset));
    }
    return bytes;
}

TaskState TileFiles::WriteFlash(int tile, std::uint32_t offset, std::span<const std::uint8_t> bytes)
{
    const auto* place = std::ranges::find(kFlash, offset, &FlashPlace::begin);
    if (place == std::end(kFlash) || bytes.size() > place->end - place->begin)
        return TaskState::kFailed;
    return Write(tile, place->fileType, bytes);
}

const Calibration* TileFiles::CalibrationOf(int tile) const
{
    const auto known = calibrations.find(tile);
    return known != calibrations.end() ? &known->second : nullptr;
}

void TileFiles::ForgetCalibration(int tile)
{
    Drop({tile, kCalibrationFile});
    Drop({tile, kBusCalibrationFile});
    calibrations.erase(tile);
}

} // namespace vxsim
