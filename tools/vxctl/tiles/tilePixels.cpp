// Reads, writes and changes calibrations.
#include "vxctl/tiles/tilePixels.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/local.h>
#include <vxsign/tarsis.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace vxctl {

namespace {

constexpr std::uint32_t kMostPercent = 1000;

struct FormName
{
    std::string_view name;
    TileForm form;
};

constexpr FormName kForms[] = {{"tile", TileForm::kFirst},
                               {"bri", TileForm::kFlat},
                               {"blocks", TileForm::kBlocks},
                               {"csv", TileForm::kCsv},
                               {"json", TileForm::kJson}};

std::uint32_t PixelBytes(const TilePixels& pixels)
{
    return static_cast<std::uint32_t>(pixels.coefficients.size() * sizeof(std::uint16_t));
}

// The library works from a file, so that what cannot be a size is refused here, where it can be named.
void CheckShape(const TileShape& shape, bool modules)
{
    if (shape.width == 0 || shape.height == 0)
        throw UsageError("the size of the tile is missing: --size WIDTHxHEIGHT");
    if (modules && (shape.moduleWidth == 0 || shape.moduleHeight == 0))
        throw UsageError("the size of a module is missing: --module WIDTHxHEIGHT");
    if (shape.moduleWidth > shape.width || shape.moduleHeight > shape.height)
        throw UsageError("a module is larger than the tile");
}

TilePixels LoadFirst(const std::string& path, const TileShape& shape)
{
    CheckShape(shape, true);
    TilePixels pixels = PlainTile(shape.width, shape.height, 0);
    const std::uint32_t result =
        vxTarsisTilePxlLoad(pixels.coefficients.data(), PixelBytes(pixels), path.c_str(), shape.kind, shape.model,
                            shape.width, shape.height, shape.moduleWidth, shape.moduleHeight);
    if (result == VX_OPEN_FILE && !ReadWhole(path).empty())
        throw UsageError("'" + path + "' is no pixel file of a tile of that size");
    Check(result);
    return pixels;
}

void WriteBytes(const std::string& path, const void* bytes, std::size_t size)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(vxFOpen(path.c_str(), "wb"), std::fclose);
    if (!file || std::fwrite(bytes, 1, size, file.get()) != size || std::fclose(file.release()) != 0)
        throw SignFailure(VX_OPEN_FILE);
}

std::string WholeText(const std::string& path)
{
    const auto bytes = ReadWhole(path);
    return {bytes.begin(), bytes.end()};
}

} // namespace

TileForm TileFormOf(const std::string& path, const std::string& name)
{
    std::string wanted = name.empty() ? std::filesystem::path(path).extension().string() : name;
    if (name.empty() && !wanted.empty())
        wanted.erase(0, 1);
    std::transform(wanted.begin(), wanted.end(), wanted.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    const auto* const found = std::find_if(std::begin(kForms), std::end(kForms),
                                           [&](const FormName& candidate) { return candidate.name == wanted; });
    if (found != std::end(kForms))
        return found->form;
    if (!name.empty())
        throw UsageError("'" + name + "' is no form of file: tile, bri, blocks, csv or json");
    return TileForm::kFirst;
}

TilePixels LoadTilePixels(const std::string& path, TileForm form, const TileShape& shape)
{
    switch (form) {
    case TileForm::kCsv:
        return ParseTileCsv(WholeText(path));
    case TileForm::kJson:
        return ParseTileJson(WholeText(path));
    case TileForm::kFlat:
    case TileForm::kBlocks:
        CheckShape(shape, false);
        return ParseCalibrationFile(ReadWhole(path), shape);
    case TileForm::kFirst:
        break;
    }
    return LoadFirst(path, shape);
}

void SaveTilePixels(const TilePixels& pixels, const std::string& path, TileForm form, const TileShape& shape)
{
    const auto text = [&](const std::string& whole) { WriteBytes(path, whole.data(), whole.size()); };
    switch (form) {
    case TileForm::kCsv:
        return text(TileCsv(pixels));
    case TileForm::kJson:
        return text(TileJson(pixels));
    case TileForm::kFlat:
    case TileForm::kBlocks: {
        CheckShape(shape, form == TileForm::kBlocks);
        const auto file = MakeCalibrationFile(pixels, form == TileForm::kBlocks, shape);
        return WriteBytes(path, file.data(), file.size());
    }
    case TileForm::kFirst:
        CheckShape(shape, true);
        return Check(vxTarsisTilePxlSave(pixels.coefficients.data(), PixelBytes(pixels), path.c_str(), shape.kind,
                                         shape.model, shape.width, shape.height, shape.moduleWidth,
                                         shape.moduleHeight));
    }
}

TilePixels PlainTile(std::uint32_t width, std::uint32_t height, std::uint16_t full)
{
    TilePixels pixels{width, height, {}};
    pixels.coefficients.assign(pixels.Count() * kTileCoefficients, 0);
    for (std::size_t at = 0; at < pixels.coefficients.size(); at += kTileCoefficients)
        for (const std::size_t diagonal : {0U, 4U, 8U})
            pixels.coefficients[at + diagonal] = full;
    return pixels;
}

void ScaleTile(TilePixels& pixels, const std::string& levels)
{
    std::vector<std::uint32_t> percents;
    for (std::size_t from = 0; from <= levels.size();) {
        const std::size_t comma = std::min(levels.find(',', from), levels.size());
        std::string_view part = std::string_view(levels).substr(from, comma - from);
        if (part.ends_with('%'))
            part.remove_suffix(1);
        const auto percent = ParseNumber(part);
        if (!percent || *percent > kMostPercent)
            throw UsageError("'" + levels + "' is no level such as 50% or 100%,80%,60%, each from 0 to 1000");
        percents.push_back(*percent);
        from = comma + 1;
    }
    if (percents.size() == 1)
        percents.resize(3, percents.front());
    if (percents.size() != 3)
        throw UsageError("--level takes one number, or three for red, green and blue");
    for (std::size_t i = 0; i < pixels.coefficients.size(); ++i) {
        std::uint16_t& coefficient = pixels.coefficients[i];
        const std::uint32_t scaled = (coefficient * percents[i % kTileCoefficients / 3] + 50) / 100;
        coefficient = static_cast<std::uint16_t>(std::min<std::uint32_t>(scaled, kFullCoefficient));
    }
}

std::uint16_t FullCoefficientOf(const TilePixels& pixels)
{
    const auto largest = std::max_element(pixels.coefficients.begin(), pixels.coefficients.end());
    return largest == pixels.coefficients.end() || *largest > kFullCompact ? kFullCoefficient : kFullCompact;
}

} // namespace vxctl
