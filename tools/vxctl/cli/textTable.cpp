// Tables in columns, as CSV and as JSON.
#include "vxctl/cli/textTable.h"

#include "vxctl/cli/numbers.h"

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

// Null for what is none.
Report::Json NumberIn(const std::string& field)
{
    std::int64_t value = 0;
    const char* const end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    return error == std::errc() && stop == end ? Report::Json(value) : Report::Json();
}

Report::Json ValueOf(ColumnKind kind, const std::string& field)
{
    switch (kind) {
    case kNumbers:
        return NumberIn(field);
    case kTimes:
        return JsonTime(ParseClockTime(field));
    case kTruths:
        return field == "yes";
    default:
        return field;
    }
}

void PutField(Report::Json& object, const TextColumn& column, const std::string& field)
{
    Report::Json value = ValueOf(column.kind, field);
    const bool isLost = value.is_null() && !field.empty();
    object[column.key] = std::move(value);
    if (isLost)
        object[column.key + "Text"] = field;
}

} // namespace

void TextTable::Add(TextRow row)
{
    row.resize(columns.size());
    rows.push_back(std::move(row));
}

void TextTable::Show(Report& report, const std::string& key, TableForm form) const
{
    Put(report, key);
    if (report.IsJson())
        return;
    // As they are shown, since that is what the columns are to hold.
    std::vector<TextRow> shown(1);
    for (const TextColumn& column : columns)
        shown.front().push_back(column.key);
    for (const TextRow& row : rows) {
        TextRow& line = shown.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i)
            line.push_back(Printable(TextOf(row, i)));
    }
    std::vector<std::size_t> widths(columns.size());
    for (const TextRow& row : shown) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    }
    for (const TextRow& row : shown)
        report.Line(form == TableForm::kCsv ? CsvLine(row) : Columns(row, widths));
}

void TextTable::ShowOr(Report& report, const std::string& key, const Shown& ifEmpty, TableForm form) const
{
    if (Size() != 0 || form == TableForm::kCsv)
        return Show(report, key, form);
    Put(report, key);
    if (!ifEmpty.IsEmpty())
        report.Line(ifEmpty);
}

void TextTable::Put(Report& report, const std::string& key) const
{
    if (!report.IsForPrograms())
        return;
    Report::Json objects = Report::Json::array();
    for (const TextRow& row : rows)
        objects.push_back(ObjectOf(row));
    report.Put(key, std::move(objects));
}

// A code shows as its name.
std::string TextTable::TextOf(const TextRow& row, std::size_t column) const
{
    const CodeNames names = columns[column].names;
    const auto code = ParseNumber(row[column]);
    return names.empty() || !code ? row[column] : NameOf(names, *code);
}

Report::Json TextTable::ObjectOf(const TextRow& row) const
{
    Report::Json object = Report::Json::object();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const TextColumn& column = columns[i];
        if (column.names.empty()) {
            PutField(object, column, row[i]);
            continue;
        }
        object[column.key] = TextOf(row, i);
        object[column.key + "Code"] = NumberIn(row[i]);
    }
    return object;
}

std::string TextTable::Columns(const TextRow& row, const std::vector<std::size_t>& widths) const
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string padding(widths[i] - Width(row[i]), ' ');
        line += columns[i].kind == kNumbers && columns[i].names.empty() ? padding + row[i] : row[i] + padding;
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
