// A tile's calibration as CSV and JSON.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/tiles/tilePixels.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <limits>

namespace vxctl {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kHead = "x,y,rr,rg,rb,gr,gg,gb,br,bg,bb";
constexpr std::size_t kFields = 2 + kTileCoefficients;
constexpr std::uint32_t kLargest = std::numeric_limits<std::uint16_t>::max();

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

using Row = std::array<std::uint32_t, kFields>;

Row ParseRow(std::string_view line, std::size_t number)
{
    Row row{};
    for (std::size_t field = 0; field < row.size(); ++field) {
        const std::size_t comma = std::min(line.find(','), line.size());
        const auto value = ParseNumber(line.substr(0, comma));
        const std::uint32_t most = field < 2 ? kLongestTileSide - 1 : kLargest;
        const bool isLast = comma == line.size();
        if (!value || *value > most || isLast != (field + 1 == row.size()))
            throw UsageError("line " + std::to_string(number) + " of the CSV is not " + std::string(kHead));
        row.at(field) = *value;
        line.remove_prefix(std::min(comma + 1, line.size()));
    }
    return row;
}

} // namespace

std::string TileCsv(const TilePixels& pixels)
{
    std::string text(kHead);
    text += '\n';
    for (std::size_t pixel = 0; pixel < pixels.Count(); ++pixel) {
        text.append(std::to_string(pixel % pixels.width)).append(",").append(std::to_string(pixel / pixels.width));
        for (std::size_t i = 0; i < kTileCoefficients; ++i)
            text.append(",").append(std::to_string(pixels.coefficients[pixel * kTileCoefficients + i]));
        text += '\n';
    }
    return text;
}

TilePixels ParseTileCsv(std::string_view text)
{
    if (TakeLine(text) != kHead)
        throw UsageError("the first line of the CSV is not " + std::string(kHead));
    std::vector<Row> rows;
    TilePixels pixels;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        if (line.empty())
            continue;
        if (rows.size() == std::size_t{kLongestTileSide} * kLongestTileSide)
            throw UsageError("the CSV has too many lines");
        rows.push_back(ParseRow(line, rows.size() + 2));
        pixels.width = std::max(pixels.width, rows.back()[0] + 1);
        pixels.height = std::max(pixels.height, rows.back()[1] + 1);
    }
    std::vector<bool> seen(pixels.Count());
    pixels.coefficients.resize(pixels.Count() * kTileCoefficients);
    for (const Row& row : rows) {
        const std::size_t pixel = std::size_t{row[1]} * pixels.width + row[0];
        if (seen[pixel])
            throw UsageError("the CSV has a pixel twice: " + std::to_string(row[0]) + "," + std::to_string(row[1]));
        seen[pixel] = true;
        for (std::size_t i = 0; i < kTileCoefficients; ++i)
            pixels.coefficients[pixel * kTileCoefficients + i] = static_cast<std::uint16_t>(row.at(2 + i));
    }
    if (rows.empty() || std::find(seen.begin(), seen.end(), false) != seen.end())
        throw UsageError("the CSV has not all pixels of its tile");
    return pixels;
}

std::string TileJson(const TilePixels& pixels)
{
    Json matrices = Json::array();
    for (auto at = pixels.coefficients.begin(); at != pixels.coefficients.end(); at += kTileCoefficients)
        matrices.push_back(std::vector<std::uint16_t>(at, at + kTileCoefficients));
    const Json whole = {{"width", pixels.width}, {"height", pixels.height}, {"pixels", std::move(matrices)}};
    return whole.dump() + '\n';
}

TilePixels ParseTileJson(std::string_view text)
{
    const Json whole = Json::parse(text, nullptr, false);
    const auto member = [&](const char* name) { return whole.is_object() ? whole.value(name, Json()) : Json(); };
    const auto number = [](const Json& value, std::uint32_t most) {
        if (!value.is_number_unsigned() || value.get<std::uint64_t>() > most)
            throw UsageError("the JSON has a number that is none of a tile: " +
                             value.dump(-1, ' ', false, Json::error_handler_t::replace).substr(0, 40));
        return value.get<std::uint32_t>();
    };
    const Json matrices = member("pixels");
    TilePixels pixels{number(member("width"), kLongestTileSide), number(member("height"), kLongestTileSide), {}};
    if (!matrices.is_array() || pixels.Count() == 0 || matrices.size() != pixels.Count())
        throw UsageError("the JSON has not as many pixels as its width and height tell");
    for (const Json& matrix : matrices) {
        if (!matrix.is_array() || matrix.size() != kTileCoefficients)
            throw UsageError("a pixel of the JSON has not 9 coefficients");
        for (const Json& coefficient : matrix)
            pixels.coefficients.push_back(static_cast<std::uint16_t>(number(coefficient, kLargest)));
    }
    return pixels;
}

} // namespace vxctl
