// Reads requests by a table.
#include "vxctl/record/requestFields.h"

#include "vxctl/cli/bytes.h"

#include <algorithm>

namespace vxctl {

namespace {

struct FieldRow
{
    std::uint8_t major;
    std::uint8_t firstMinor;
    std::uint8_t lastMinor;
    const char* name;
    std::size_t at;   // in the payload
    std::size_t size; // of a number, or the most of a text
    bool isText;
    bool isExtended = false; // there in place of the payload
};

constexpr std::size_t kRest = SIZE_MAX;

constexpr FieldRow kFields[] = {
    {1, 2, 3, "file", 0, 12, true},           {1, 2, 3, "number", 14, 2, false},   {1, 4, 7, "drive", 0, 1, true},
    {1, 4, 7, "file", 4, 12, true},           {1, 4, 7, "number", 18, 2, false},   {1, 8, 8, "path", 4, kRest, true},
    {1, 8, 8, "number", 2, 2, false},         {1, 17, 17, "path", 8, kRest, true}, {1, 17, 17, "number", 4, 4, false},
    {1, 31, 31, "path", 8, kRest, true},      {1, 31, 31, "number", 4, 4, false},  {1, 9, 9, "number", 2, 2, false},
    {1, 21, 21, "sql", 0, kRest, true, true}, {2, 2, 3, "file", 0, 12, true},      {2, 2, 3, "number", 20, 2, false},
    {2, 2, 3, "packets", 18, 2, false},       {2, 4, 7, "drive", 0, 1, true},      {2, 4, 7, "file", 2, 12, true},
    {2, 4, 7, "number", 22, 2, false},        {2, 4, 7, "packets", 20, 2, false},  {2, 8, 8, "path", 10, kRest, true},
    {2, 8, 8, "number", 8, 2, false},         {2, 8, 8, "packets", 6, 2, false},   {2, 13, 13, "path", 14, kRest, true},
    {2, 13, 13, "number", 10, 4, false},      {2, 13, 13, "packets", 6, 4, false}, {2, 14, 14, "file", 0, 32, true},
    {4, 7, 7, "front", 0, 1, false},          {4, 7, 7, "back", 1, 1, false},      {10, 1, 1, "user", 0, 14, true},
    {10, 3, 3, "user", 0, 14, true},          {54, 1, 4, "page", 0, 1, false},     {54, 1, 4, "zone", 1, 1, false},
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
        const auto part = row.isExtended ? request.Extended() : request.Payload();
        if (request.IsForTile() || row.major != request.Major() || request.Minor() < row.firstMinor ||
            request.Minor() > row.lastMinor || row.at >= part.size())
            continue;
        fields.push_back({row.name, row.isText ? TextOf(part, row) : std::to_string(LoadNumber(part, row.at, row.size)),
                          row.isText});
    }
    return fields;
}

} // namespace vxctl
