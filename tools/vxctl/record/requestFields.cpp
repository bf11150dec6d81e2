// Reads requests by a table.
#include "vxctl/record/requestFields.h"

#include "vxctl/cli/bytes.h"

#include <algorithm>

namespace vxctl {

namespace {

enum class Kind : std::uint8_t
{
    kNumber,
    kText,
    kExtendedText // in the extended part, all others in the payload
};

struct FieldRow
{
    const char* name;
    std::uint8_t major;
    std::uint8_t firstMinor;
    std::uint8_t lastMinor;
    Kind kind;
    std::size_t at;
    std::size_t size; // of a text the most
};

constexpr std::size_t kRest = SIZE_MAX;

constexpr FieldRow kFields[] = {
    {"file", 1, 2, 3, Kind::kText, 0, 12},
    {"number", 1, 2, 3, Kind::kNumber, 14, 2},
    {"drive", 1, 4, 7, Kind::kText, 0, 1},
    {"file", 1, 4, 7, Kind::kText, 4, 12},
    {"number", 1, 4, 7, Kind::kNumber, 18, 2},
    {"path", 1, 8, 8, Kind::kText, 4, kRest},
    {"number", 1, 8, 8, Kind::kNumber, 2, 2},
    {"path", 1, 17, 17, Kind::kText, 8, kRest},
    {"number", 1, 17, 17, Kind::kNumber, 4, 4},
    {"path", 1, 31, 31, Kind::kText, 8, kRest},
    {"number", 1, 31, 31, Kind::kNumber, 4, 4},
    {"number", 1, 9, 9, Kind::kNumber, 2, 2},
    {"sql", 1, 21, 21, Kind::kExtendedText, 0, kRest},
    {"file", 2, 2, 3, Kind::kText, 0, 12},
    {"number", 2, 2, 3, Kind::kNumber, 20, 2},
    {"packets", 2, 2, 3, Kind::kNumber, 18, 2},
    {"drive", 2, 4, 7, Kind::kText, 0, 1},
    {"file", 2, 4, 7, Kind::kText, 2, 12},
    {"number", 2, 4, 7, Kind::kNumber, 22, 2},
    {"packets", 2, 4, 7, Kind::kNumber, 20, 2},
    {"path", 2, 8, 8, Kind::kText, 10, kRest},
    {"number", 2, 8, 8, Kind::kNumber, 8, 2},
    {"packets", 2, 8, 8, Kind::kNumber, 6, 2},
    {"path", 2, 13, 13, Kind::kText, 14, kRest},
    {"number", 2, 13, 13, Kind::kNumber, 10, 4},
    {"packets", 2, 13, 13, Kind::kNumber, 6, 4},
    {"file", 2, 14, 14, Kind::kText, 0, 32},
    {"front", 4, 7, 7, Kind::kNumber, 0, 1},
    {"back", 4, 7, 7, Kind::kNumber, 1, 1},
    {"path", 7, 3, 6, Kind::kText, 0, kRest},
    {"path", 7, 11, 11, Kind::kText, 0, kRest},
    {"path", 7, 12, 12, Kind::kText, 4, kRest},
    {"drive", 7, 13, 13, Kind::kText, 0, 1},
    {"path", 7, 14, 14, Kind::kText, 0, kRest},
    {"path", 7, 16, 16, Kind::kText, 0, kRest},
    {"user", 10, 1, 1, Kind::kText, 0, 14},
    {"user", 10, 3, 3, Kind::kText, 0, 14},
    {"page", 54, 1, 4, Kind::kNumber, 0, 1},
    {"zone", 54, 1, 4, Kind::kNumber, 1, 1},
};

std::string TextOf(std::span<const std::uint8_t> part, const FieldRow& row)
{
    if (row.at >= part.size())
        return {};
    const auto bytes = part.subspan(row.at, std::min(row.size, part.size() - row.at));
    return {bytes.begin(), std::ranges::find(bytes, 0)};
}

} // namespace

std::vector<RequestField> FieldsOf(const SignPacket& request)
{
    std::vector<RequestField> fields;
    for (const FieldRow& row : kFields) {
        const auto part = row.kind == Kind::kExtendedText ? request.Extended() : request.Payload();
        if (request.IsForTile() || row.major != request.Major() || request.Minor() < row.firstMinor ||
            request.Minor() > row.lastMinor || row.at >= part.size())
            continue;
        const bool isText = row.kind != Kind::kNumber;
        fields.push_back(
            {row.name, isText ? TextOf(part, row) : std::to_string(LoadNumber(part, row.at, row.size)), isText});
    }
    return fields;
}

} // namespace vxctl
