// Changes of the book's text that leave the rest of it, comments above all, as people wrote it.
#pragma once

#include <string>
#include <string_view>

namespace vxctl {

// A text as a book has it, in quotes.
std::string BookText(const std::string& text);

// With a table for a sign at the end, of lines such as "url = ...". Throws UsageError for a book that would be wrong.
std::string WithSign(std::string_view text, const std::string& file, const std::string& name, const std::string& lines);

// Without the table of a sign, and the comment right above it. Throws UsageError when there is no such sign, or when it
// has no table of its own.
std::string WithoutSign(std::string_view text, const std::string& file, const std::string& name);

} // namespace vxctl
