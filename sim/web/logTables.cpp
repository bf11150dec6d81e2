#include "sim/web/logTables.h"

#include "sim/web/refusal.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>

namespace vxsim {
namespace {

constexpr int kBusyMs = 500;
constexpr int kMissing = 404;

struct Closer
{
    void operator()(sqlite3* open) const { sqlite3_close(open); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

// A database, and one statement in it.
class Reading
{
public:
    Reading(const std::filesystem::path& file, const std::string& sql)
    {
        sqlite3* opened = nullptr;
        sqlite3_stmt* compiled = nullptr;
        const bool isOpen = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK;
        database.reset(opened);
        sqlite3_busy_timeout(opened, kBusyMs);
        if (!isOpen || sqlite3_prepare_v2(opened, sql.c_str(), -1, &compiled, nullptr) != SQLITE_OK)
            throw Refusal(kMissing, "the logs cannot be read");
        statement.reset(compiled);
    }

    bool Next() { return sqlite3_step(statement.get()) == SQLITE_ROW; }
    int Columns() const { return sqlite3_column_count(statement.get()); }
    std::string Name(int column) const { return sqlite3_column_name(statement.get(), column); }

    std::string Text(int column) const
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
        const int size = sqlite3_column_bytes(statement.get(), column);
        return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(size));
    }

    std::vector<std::string> Row() const
    {
        std::vector<std::string> row;
        row.reserve(static_cast<std::size_t>(Columns()));
        for (int column = 0; column < Columns(); ++column)
            row.push_back(Text(column));
        return row;
    }

private:
    std::unique_ptr<sqlite3, Closer> database;
    std::unique_ptr<sqlite3_stmt, Closer> statement;
};

} // namespace

std::vector<std::string> LogTableNames(const std::filesystem::path& database)
{
    std::vector<std::string> names;
    for (Reading tables(database, "select name from sqlite_master where type='table' order by name"); tables.Next();)
        names.push_back(tables.Text(0));
    return names;
}

LogTable ReadLogTable(const std::filesystem::path& database, const std::string& name, std::uint64_t mostRows)
{
    const auto names = LogTableNames(database);
    if (std::ranges::find(names, name) == names.end())
        throw Refusal(kMissing, "there is no such table");
    Reading rows(database, "select * from \"" + name + "\" order by rowid desc limit " + std::to_string(mostRows));
    LogTable table;
    for (int column = 0; column < rows.Columns(); ++column)
        table.columns.push_back(rows.Name(column));
    while (rows.Next())
        table.rows.push_back(rows.Row());
    return table;
}

} // namespace vxsim
