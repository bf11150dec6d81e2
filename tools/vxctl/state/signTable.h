// The tables of the sign's database, page by page.
#pragma once

#include "vxctl/cli/textTable.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// A page of rows as the sign sends it: each column in angle brackets, nothing between. What follows the last whole row
// is left out: the sign cuts a page that is too long.
std::vector<TextRow> ParseRows(std::string_view text, std::size_t columns);

struct SignTable
{
    std::string name;
    std::string selection; // the columns as the query names them, or *
    std::size_t columns = 0;
};

// How many rows the table has. Throws SignFailure.
std::uint32_t CountRows(const std::string& table);

// The latest rows of the table, at most so many, oldest first; the table stays as it is. progress gets the percentage
// after each page. Throws SignFailure: also when the sign's rows have other columns.
std::vector<TextRow> ReadRows(const SignTable& table, std::uint32_t most,
                              const std::function<void(std::uint32_t)>& progress = {});

} // namespace vxctl
