// Tables in columns, as CSV and as JSON.
#include "vxctl/cli/textTable.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace vxctl {

namespace {

constexpr std::size_t kGap = 2;

// Characters of UTF-8, of which the bytes behind the first do not count.
std::size_t Width(const std::string& text)
{
    const auto isFirst = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isFirst));
}

Report::Json ToJson(const std::string& field, bool number)
{
    std::int64_t value = 0;
    const char* const end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    const bool isNumber = number && error == std::errc() && stop == end;
    return isNumber ? Report::Json(value) : Report::Json(field);
}

} // namespace

void TextTable::Add(TextRow row)
{
    row.resize(columns.size());
    rows.push_back(std::move(row));
}

void TextTable::Show(Report& report, const std::string& key, TableForm form) const
{
    if (report.IsJson()) {
        Report::Json objects = Report::Json::array();
        for (const TextRow& row : rows) {
            Report::Json object = Report::Json::object();
            for (std::size_t i = 0; i < columns.size(); ++i)
                object[columns[i].key] = ToJson(row[i], columns[i].number);
            objects.push_back(std::move(object));
        }
        return report.Put(key, std::move(objects));
    }
    // As they are shown, since that is what the columns are to hold.
    std::vector<TextRow> shown(1);
    for (const TextColumn& column : columns)
        shown.front().push_back(column.key);
    for (const TextRow& row : rows)
        std::ranges::transform(row, std::back_inserter(shown.emplace_back()), Printable);
    std::vector<std::size_t> widths(columns.size());
    for (const TextRow& row : shown) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    }
    for (const TextRow& row : shown)
        report.Line(form == TableForm::kCsv ? CsvLine(row) : Columns(row, widths));
}

std::string TextTable::Columns(const TextRow& row, const std::vector<std::size_t>& widths) const
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string padding(widths[i] - Width(row[i]), ' ');
        line += columns[i].number ? padding + row[i] : row[i] + padding;
        line.append(kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string CsvLine(const TextRow& row)
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string& field = row[i];
        const bool quoted =
            field.find_first_of(",\"\r\n") != std::string::npos || field.starts_with(' ') || field.ends_with(' ');
        line += i == 0 ? "" : ",";
        line += quoted ? "\"" : "";
        for (const char character : field)
            line.append(character == '"' && quoted ? 2 : 1, character);
        line += quoted ? "\"" : "";
    }
    return line;
}

} // namespace vxctl
