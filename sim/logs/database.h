// The tables of the logs.
#pragma once

#include "sim/logs/openDatabases.h"
#include "sim/logs/waitingRows.h"
#include "sim/protocol/codes.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace vxsim {

// Bytes of row text in one answer: with its header it fits what hosts take.
inline constexpr std::size_t kMostRowText = 1500;
// Rows that a table keeps; the oldest go.
inline constexpr int kMostRows = 10000;

// What a host's statement gave: whole rows, each column in angle brackets, nothing between them.
struct RowPage
{
    Code code = Code::kOk;
    std::uint16_t rows = 0;
    std::string text;
};

// The tables of the sign's logs, in one SQLite file.
class SignDatabase
{
public:
    static constexpr int kBusyMs = 500;

    using Value = LogValue;
    using Row = LogRow;

    // Makes the file and the tables that are missing; a file that is no database is replaced. Who else writes to the
    // file is waited for so long. Throws std::runtime_error, which says why, if the tables cannot be made. As one of
    // many it is opened when a host asks for rows or too many of them wait, and tells if that fails.
    explicit SignDatabase(const std::filesystem::path& file, int busyMs = kBusyMs, OpenDatabases* many = nullptr);
    ~SignDatabase();
    SignDatabase(const SignDatabase&) = delete;
    SignDatabase& operator=(const SignDatabase&) = delete;

    // Told when rows get lost and when a statement fails for no fault of the host, in words.
    void Observe(std::function<void(const std::string&)> observer) { tell = std::move(observer); }

    // One statement of a host: select from the tables of the logs, or delete from them. Anything else, and what does
    // not compile, is refused; so is what takes too many steps, with nothing deleted then.
    RowPage Query(std::string_view sql);

    // The sign's own rows. A table that cannot be written stays as it is: no log is worth an answer to a host.
    void Add(const std::string& table, const Row& row);
    void Replace(const std::string& table, std::span<const Row> rows);

    // Counts a play of the file in its row of PlayLog.
    void AddPlay(const Row& windowGroupFileTime, std::int64_t seconds);

    // Opens the file if it is closed, and writes the rows that wait for it. False if it cannot be opened.
    bool Open();

    // Until it is needed again; for one of many.
    void Close() { database.reset(); }

private:
    struct Closer
    {
        void operator()(sqlite3* open) const;
    };
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

    void Make();
    int Connect(); // what SQLite says to the file
    void WriteWaiting();
    bool CountPlay(Row windowGroupFileTime, std::int64_t times, std::int64_t seconds);
    bool Run(const std::string& sql, std::span<const Value> values = {});
    bool Insert(const std::string& table, const Row& row);
    void Trim(const std::string& table);
    bool Written(bool done);
    void Trouble(const char* what) const;
    RowPage Rows(sqlite3_stmt* statement);
    RowPage Failed() const;

    static int Authorize(void* self, int action, const char* first, const char* second, const char*, const char*);
    static int CountSteps(void* self);

    std::filesystem::path file;
    int busyMs;
    OpenDatabases* others; // null for one that is open for good
    WaitingRows waiting;   // as long as it is closed
    std::function<void(const std::string&)> tell;
    bool losesRows = false;
    std::unique_ptr<sqlite3, Closer> database;
    bool hostSpeaks = false;  // the rules for hosts hold
    bool touchesRows = false; // the statement that is compiled for a host selects or deletes
    int stepsLeft = 0;        // thousands
};

} // namespace vxsim
