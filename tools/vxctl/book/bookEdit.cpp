// Finds the lines of a sign.
#include "vxctl/book/bookEdit.h"

#include "vxctl/book/signBook.h"
#include "vxctl/cli/argument.h"
#include "vxctl/cli/failure.h"

#include <toml++/toml.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <vector>

namespace vxctl {

namespace {

using Lines = std::vector<std::string_view>;

// The lines on which the tables outside of one begin, except those within a line.
void FindTables(const toml::table& table, const toml::table& except, std::vector<std::size_t>& found)
{
    for (const auto& [key, value] : table) {
        const toml::table* const inner = value.as_table();
        if (inner == nullptr || inner == &except || inner->is_inline())
            continue;
        found.push_back(inner->source().begin.line - 1);
        FindTables(*inner, except, found);
    }
}

// The comment right above a line. One at the very top is about the book.
std::size_t WithComment(const Lines& lines, std::size_t line)
{
    std::size_t first = line;
    while (first > 0 && lines[first - 1].starts_with('#'))
        --first;
    return first == 0 ? line : first;
}

// Without the lines from that of the table to the next one outside of it.
std::string Cut(std::string_view text, const toml::table& book, const toml::table& sign)
{
    const Lines lines = Split(text, '\n');
    std::vector<std::size_t> others{lines.size()};
    FindTables(book, sign, others);
    const std::size_t begin = sign.source().begin.line - 1;
    std::erase_if(others, [begin](std::size_t line) { return line <= begin; });
    const std::size_t next = *std::ranges::min_element(others);
    const std::size_t first = WithComment(lines, begin);
    const std::size_t last = next == lines.size() ? next : WithComment(lines, next);
    std::string kept;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < first || i >= last)
            kept.append(lines[i]).append("\n");
    }
    return kept;
}

} // namespace

std::string BookText(const std::string& text)
{
    std::ostringstream quoted;
    quoted << toml::value<std::string>(text);
    return quoted.str();
}

std::string WithSign(std::string_view text, const std::string& file, const std::string& name, const std::string& lines)
{
    if (!IsBookName(name))
        throw UsageError("'" + name + "' is no name of a sign");
    const SignBook book = ParseBook(text, file);
    if (std::ranges::find(book, name, &BookSign::name) != book.end())
        throw UsageError("the book has a sign " + name + " already");
    std::string changed(text);
    if (!changed.empty())
        changed += changed.back() == '\n' ? "\n" : "\n\n";
    // A dot in a name would begin a table within a table.
    changed += "[sign." + (name.find('.') == std::string::npos ? name : BookText(name)) + "]\n" + lines;
    ParseBook(changed, file);
    return changed;
}

std::string WithoutSign(std::string_view text, const std::string& file, const std::string& name)
{
    SignBook book = ParseBook(text, file);
    Select(book, {name}); // with its complaint
    const toml::table parsed = toml::parse(text);
    const toml::table* const sign = parsed["sign"][name].as_table();
    std::erase_if(book, [&name](const BookSign& other) { return other.name == name; });
    std::string changed = Cut(text, parsed, *sign);
    try {
        if (ParseBook(changed, file) == book)
            return changed;
    } catch (const UsageError&) { // it was cut in the wrong place
    }
    throw UsageError("sign " + name + " has no table of its own in " + file + ": take it out by hand");
}

} // namespace vxctl
