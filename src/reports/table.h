// The tables of the sign's database, read page by page.
#pragma once

#include "reports/pattern.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace vxsign {

/// Where a column of the table goes in the record: its offset, its bytes, and whether they hold a number.
struct Column
{
    std::size_t offset;
    std::size_t size; // of a number 2 or 4
    bool number;

    void Put(void* record, std::string_view value) const;
};

constexpr Column NumberAt(std::size_t offset, std::size_t size = sizeof(std::int32_t))
{
    return {offset, size, true};
}
constexpr Column TextAt(std::size_t offset, std::size_t size)
{
    return {offset, size, false};
}

/// A table and how to read it.
struct Table
{
    const char* name;
    const char* selection; // the columns as the query names them
    std::uint32_t pageSize;
    const char* queryEnd;
    std::span<const Column> columns;
    void (*clear)(const Table& table); // null: the table stays
};

/// Deletes all rows on the sign, whatever becomes of it.
void ClearTable(const Table& table);

using RowTaker = std::function<void(const Groups& columns)>;

/// What a row of that many columns matches: each in angle brackets, with nothing between.
std::string RowExpression(std::size_t columns);

/// Hands over the rows of a page, a text that ends with a NUL. The first row that does not match ends it.
void TakeRows(const Pattern& row, const char* text, std::uint32_t count, const RowTaker& take);

/// A row as a record. What has no column is as in `blank`.
template <class Record>
Record RecordOf(const Table& table, const Groups& groups, const Record& blank = {})
{
    Record record = blank;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        table.columns[i].Put(&record, groups[i + 1]);
    return record;
}

struct TableResult
{
    std::uint32_t
        code; // of the count when that fails, else of the last page; VX_CALL without memory for the expression
    bool counted;
};

/// Reads all rows, calls take with the columns of each, then clears the table: when a page failed too, but not when the
/// rows could not be counted.
TableResult ReadTable(const Table& table, const RowTaker& take);

/// The same with each row as a record.
template <class Record, class Deliver>
TableResult ReadRecords(const Table& table, const Record& blank, const Deliver& deliver)
{
    return ReadTable(table, [&](const Groups& groups) { deliver(RecordOf(table, groups, blank)); });
}

} // namespace vxsign
