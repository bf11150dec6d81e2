// Rows as columns for people, as CSV, and as JSON objects.
#pragma once

#include "vxctl/cli/report.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vxctl {

// What the fields are in JSON. What is no such number or time is null there, with its text behind it.
enum ColumnKind : std::uint8_t
{
    kTexts,
    kNumbers,
    kTimes, // of the sign; in JSON with zone
    kTruths // "yes" or "no"
};

struct TextColumn
{
    std::string key; // in JSON and CSV
    ColumnKind kind = kTexts;
    CodeNames names = {}; // of the numbers in the column, which are codes
};

using TextRow = std::vector<std::string>; // a field for each column

enum class TableForm
{
    kColumns,
    kCsv
};

class TextTable
{
public:
    explicit TextTable(std::vector<TextColumn> tableColumns) : columns(std::move(tableColumns)) {}

    // Fields that are missing are empty, those beyond the last column go.
    void Add(TextRow row);

    std::size_t Size() const { return rows.size(); }

    // The rows below a line that names the columns; for programs they are objects in the array with this key.
    void Show(Report& report, const std::string& key, TableForm form = TableForm::kColumns) const;

    // The same, but for people an empty table is a line, or none.
    void ShowOr(Report& report, const std::string& key, const Shown& ifEmpty,
                TableForm form = TableForm::kColumns) const;

    // For programs alone.
    void Put(Report& report, const std::string& key) const;

private:
    std::string TextOf(const TextRow& row, std::size_t column) const;
    Report::Json ObjectOf(const TextRow& row) const;
    std::string Columns(const TextRow& row, const std::vector<std::size_t>& widths) const;

    std::vector<TextColumn> columns;
    std::vector<TextRow> rows;
};

// The fields of a line of CSV: those with commas, quotes or blanks at their ends are quoted.
std::string CsvLine(const TextRow& row);

} // namespace vxctl
