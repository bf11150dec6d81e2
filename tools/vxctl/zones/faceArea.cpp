// Reads, writes and divides areas.
#include "vxctl/zones/faceArea.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <limits>
#include <optional>

namespace vxctl {

namespace {

constexpr std::uint32_t kMostPixels = std::numeric_limits<std::uint16_t>::max();

// Takes the number ahead of `end` off the front of the text; without `end`, all of it.
std::optional<std::uint16_t> TakeNumber(std::string_view& text, std::string_view end)
{
    const std::size_t at = end.empty() ? text.size() : text.find(end);
    if (at == std::string_view::npos)
        return std::nullopt;
    const auto number = ParseNumber(text.substr(0, at));
    text.remove_prefix(at + end.size());
    if (!number || *number > kMostPixels)
        return std::nullopt;
    return static_cast<std::uint16_t>(*number);
}

// Where part `index` of `count` begins.
unsigned Begin(unsigned size, unsigned count, unsigned index)
{
    return size * index / count;
}

} // namespace

FaceArea ParseArea(std::string_view text)
{
    std::string_view rest = text;
    const auto left = TakeNumber(rest, ",");
    const auto top = TakeNumber(rest, ",");
    const auto width = TakeNumber(rest, "x");
    const auto height = TakeNumber(rest, "");
    if (!left || !top || !width || !height || *width == 0 || *height == 0)
        throw UsageError("'" + std::string(text) + "' is no area such as 0,0,64x32: X,Y,WIDTHxHEIGHT");
    return {*left, *top, *width, *height};
}

std::vector<FaceArea> ParseGrid(std::string_view text, unsigned width, unsigned height)
{
    std::string_view rest = text;
    const auto columns = TakeNumber(rest, "x");
    const auto rows = TakeNumber(rest, "");
    if (!columns || !rows || *columns == 0 || *rows == 0 || *columns > width || *rows > height)
        throw UsageError("'" + std::string(text) + "' is no grid such as 2x1 for a face of " + std::to_string(width) +
                         "x" + std::to_string(height));
    std::vector<FaceArea> areas;
    for (unsigned row = 0; row < *rows; ++row) {
        for (unsigned column = 0; column < *columns; ++column) {
            const unsigned left = Begin(width, *columns, column);
            const unsigned top = Begin(height, *rows, row);
            areas.push_back({static_cast<std::uint16_t>(left), static_cast<std::uint16_t>(top),
                             static_cast<std::uint16_t>(Begin(width, *columns, column + 1) - left),
                             static_cast<std::uint16_t>(Begin(height, *rows, row + 1) - top)});
        }
    }
    return areas;
}

void StoreArea(std::span<std::uint8_t, kFaceAreaSize> record, const FaceArea& area)
{
    std::size_t at = 0;
    for (const std::uint16_t number : {area.left, area.top, area.width, area.height}) {
        Store(record.subspan(at, sizeof number), number);
        at += sizeof number;
    }
}

FaceArea LoadArea(std::span<const std::uint8_t, kFaceAreaSize> record)
{
    return {Load16(record, 0), Load16(record, 2), Load16(record, 4), Load16(record, 6)};
}

} // namespace vxctl
