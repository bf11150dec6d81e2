// Rows that wait for their database to be opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vxsim {

using LogValue = std::variant<std::int64_t, std::string>;
using LogRow = std::vector<LogValue>;

// Takes rows as the tables of the logs do, as long as they are few. What is refused wants the database.
class WaitingRows
{
public:
    static constexpr std::size_t kMost = 64; // of each kind

    struct Plays
    {
        LogValue last; // time of the last one
        std::int64_t times = 0;
        std::int64_t seconds = 0;
    };

    bool Add(const std::string& table, const LogRow& row)
    {
        if (added.size() >= kMost)
            return false;
        added.emplace_back(table, row);
        return true;
    }

    bool Replace(const std::string& table, std::span<const LogRow> rows)
    {
        if (rows.size() > kMost)
            return false;
        replaced[table].assign(rows.begin(), rows.end());
        return true;
    }

    // The last of the values is the time.
    bool AddPlay(const LogRow& row, std::int64_t seconds)
    {
        const LogRow file(row.begin(), row.end() - 1);
        if (played.size() >= kMost && !played.contains(file))
            return false;
        Plays& plays = played[file];
        plays = {row.back(), plays.times + 1, plays.seconds + seconds};
        return true;
    }

    std::vector<std::pair<std::string, LogRow>> added; // in their order
    std::map<std::string, std::vector<LogRow>> replaced;
    std::map<LogRow, Plays> played;

    bool IsEmpty() const { return added.empty() && replaced.empty() && played.empty(); }
};

} // namespace vxsim
