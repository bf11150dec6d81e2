// Rows as columns for people, as CSV, and as JSON objects.
#pragma once

#include "vxctl/cli/report.h"

#include <string>
#include <vector>

namespace vxctl {

struct TextColumn
{
    std::string key; // in JSON and CSV
    bool number = false;
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

    // The rows below a line that names the columns; for programs they are objects in the array with this key. Fields of
    // number columns become numbers where they are some.
    void Show(Report& report, const std::string& key, TableForm form = TableForm::kColumns) const;

private:
    std::string Columns(const TextRow& row, const std::vector<std::size_t>& widths) const;

    std::vector<TextColumn> columns;
    std::vector<TextRow> rows;
};

// The fields of a line of CSV: those with commas, quotes or blanks at their ends are quoted.
std::string CsvLine(const TextRow& row);

} // namespace vxctl
