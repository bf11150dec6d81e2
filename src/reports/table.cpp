// Reads any table of the sign's database from its description.
#include "reports/table.h"

#include "util/littleEndian.h"
#include "util/text.h"

#include <vxsign/read.h>
#include <vxsign/result.h>

#include <algorithm>

namespace vxsign {
namespace {

constexpr std::uint16_t kDatabase = 1;

// What the readers take of the head and of the rows of an answer, by contract with the applications. A longer row does
// not match its expression.
constexpr std::uint32_t kTaken = 8;

// The answer to one statement.
struct Answer
{
    std::uint8_t head[kTaken] = {};
    char rows[kTaken + 1] = {}; // with a terminator

    std::uint32_t Ask(const std::string& sql)
    {
        *this = {};
        return vxReadDB(kDatabase, sql.c_str(), head, kTaken, rows, kTaken);
    }
    std::uint16_t RowCount() const { return Load16(head); }
};

std::uint32_t CountRows(const Table& table, std::int64_t& count)
{
    Answer answer;
    const std::uint32_t result = answer.Ask(std::string("select count(*) from ") + table.name);
    count = answer.rows[0] == '<' ? NumberOf(answer.rows + 1) : 0;
    return result;
}

std::string PageQuery(const Table& table, std::int64_t offset)
{
    return std::string("select ") + table.selection + " from " + table.name + " limit " +
           std::to_string(table.pageSize) + " offset " + std::to_string(offset) + table.queryEnd;
}

} // namespace

void Column::Put(void* record, std::string_view value) const
{
    void* const field = static_cast<std::uint8_t*>(record) + offset;
    if (!number) {
        CopyToField(field, size, value);
        return;
    }
    const std::int32_t wide = NumberOf(value);
    const auto narrow = static_cast<std::uint16_t>(wide);
    if (size == sizeof narrow)
        std::memcpy(field, &narrow, sizeof narrow);
    else
        std::memcpy(field, &wide, sizeof wide);
}

std::string RowExpression(std::size_t columns)
{
    std::string expression;
    for (std::size_t i = 0; i < columns; ++i)
        expression += "<([^>]*)>";
    return expression;
}

void TakeRows(const Pattern& row, const char* text, std::uint32_t count, const RowTaker& take)
{
    Groups groups;
    for (std::uint32_t i = 0; i < count && row.Find(text, groups); ++i) {
        take(groups);
        text += groups[0].size();
    }
}

void ClearTable(const Table& table)
{
    Answer answer;
    answer.Ask(std::string("delete from ") + table.name);
}

TableResult ReadTable(const Table& table, const RowTaker& take)
{
    const Pattern row(RowExpression(table.columns.size()).c_str());
    if (!row.Good())
        return {VX_CALL, false};
    std::int64_t remaining = 0;
    std::uint32_t result = CountRows(table, remaining);
    if (result != VX_OK)
        return {result, false};
    Answer answer;
    for (std::int64_t offset = 0; remaining != 0; offset += table.pageSize) {
        result = answer.Ask(PageQuery(table, offset));
        if (result != VX_OK || answer.RowCount() == 0)
            break;
        TakeRows(row, answer.rows, answer.RowCount(), take);
        remaining = std::max<std::int64_t>(remaining - answer.RowCount(), 0);
    }
    if (table.clear != nullptr)
        table.clear(table);
    return {result, true};
}

} // namespace vxsign
