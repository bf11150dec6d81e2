// Reads the sign's database.
#include "vxctl/state/signTable.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/read.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace vxctl {

namespace {

constexpr std::uint16_t kDatabase = 1;
constexpr std::uint32_t kRoom = 4096; // more than any packet holds
constexpr std::uint32_t kPageRows = 10;

struct Page
{
    std::uint32_t announced = 0;
    std::vector<TextRow> rows;
};

Page Ask(const std::string& sql, std::size_t columns)
{
    std::array<std::uint8_t, 64> head{};
    std::array<char, kRoom> text{};
    Check(vxReadDB(kDatabase, sql.c_str(), head.data(), static_cast<int>(head.size()), text.data(), kRoom));
    const std::size_t size = ::strnlen(text.data(), text.size());
    return {Load16(head, 0), ParseRows({text.data(), size}, columns)};
}

} // namespace

std::vector<TextRow> ParseRows(std::string_view text, std::size_t columns)
{
    std::vector<TextRow> rows;
    while (columns != 0) {
        TextRow row;
        while (row.size() < columns && text.starts_with('<')) {
            const std::size_t end = text.find('>');
            if (end == std::string_view::npos)
                return rows;
            row.emplace_back(text.substr(1, end - 1));
            text.remove_prefix(end + 1);
        }
        if (row.size() < columns)
            return rows;
        rows.push_back(std::move(row));
    }
    return rows;
}

std::uint32_t CountRows(const std::string& table)
{
    const Page page = Ask("select count(*) from " + table, 1);
    const auto count = page.rows.empty() ? std::nullopt : ParseNumber(page.rows[0][0]);
    if (!count)
        throw SignFailure(VX_FILE_FORMAT);
    return *count;
}

std::vector<TextRow> ReadRows(const SignTable& table, std::uint32_t most,
                              const std::function<void(std::uint32_t)>& progress)
{
    const std::uint32_t count = CountRows(table.name);
    const std::uint32_t wanted = std::min(count, most);
    std::vector<TextRow> rows;
    while (rows.size() < wanted) {
        // A page may have fewer rows than were asked for; the next one begins behind those that came.
        const auto got = static_cast<std::uint32_t>(rows.size());
        Page page = Ask("select " + table.selection + " from " + table.name + " limit " +
                            std::to_string(std::min(kPageRows, wanted - got)) + " offset " +
                            std::to_string(count - wanted + got),
                        table.columns);
        if (page.announced == 0)
            break; // somebody has cleared the table meanwhile
        if (page.rows.empty())
            throw SignFailure(VX_FILE_FORMAT);
        page.rows.resize(std::min<std::size_t>(page.rows.size(), wanted - got));
        std::move(page.rows.begin(), page.rows.end(), std::back_inserter(rows));
        if (progress)
            progress(static_cast<std::uint32_t>(rows.size() * 100 / wanted));
    }
    return rows;
}

} // namespace vxctl
