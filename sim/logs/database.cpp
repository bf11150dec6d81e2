#include "sim/logs/database.h"

#include <algorithm>
#include <array>
#include <limits>
#include <sqlite3.h>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

struct Table
{
    std::string_view name;
    const char* columns;
};

constexpr Table kTables[] = {
    {"PlayLog", "WinID integer,GroupName text,FileName text,Time text,PlayTimes integer,TotalSeconds integer"},
    {"SysLog", "Type integer,DateTime text,Operate text,Author text,Result text"},
    {"TempLog", "BeginTime text,EndTime text,OutHightTemp integer,OutLowTemp integer,OutAvgTemp integer,"
                "InHightTemp integer,InLowTemp integer,InAvgTemp integer,BoxHightTemp integer,BoxLowTemp integer,"
                "BoxAvgTemp integer"},
    {"TileInfo", "Address integer,X integer,Y integer,Width integer,Height integer,Temperature integer,"
                 "Voltage integer,Hardware text,Firmware text,RunSeconds integer,Lamps text,BadLamps integer,"
                 "SignalErrors integer,State integer,Serial text,Limits integer,Note text,Brightness integer"},
    {"EventLog", "EventType integer,DateTime text,Status integer,Note text"},
    {"PixelStatus", "X integer,Y integer,Status text,DateTime text"},
    {"PixelSignalErr", "X integer,Y integer,Status text,DateTime text"},
};

// What a host may call. Nothing that makes long texts of short ones or compares patterns: the steps of a statement are
// counted, and one step of those can last for ever.
constexpr std::string_view kFunctions[] = {"count", "sum",      "total",  "min",      "max",    "avg",
                                           "abs",   "round",    "lower",  "upper",    "length", "date",
                                           "time",  "datetime", "ifnull", "coalesce", "substr"};

constexpr int kStepUnit = 1000;
constexpr int kMostSteps = 1000; // units: a small part of a second
constexpr int kLongestValue = 4096;
constexpr sqlite3_int64 kMostMemory = 64 << 20;

bool IsTable(const char* name)
{
    return name != nullptr && std::ranges::any_of(kTables, [&](const Table& table) {
               return sqlite3_stricmp(name, std::string(table.name).c_str()) == 0;
           });
}

// Whether a statement ended by what it asks for, not by what befell the file.
bool IsOfHost(int result)
{
    constexpr int kOfHost[] = {SQLITE_OK,        SQLITE_ERROR,  SQLITE_AUTH, SQLITE_RANGE,
                               SQLITE_INTERRUPT, SQLITE_TOOBIG, SQLITE_NOMEM};
    return std::ranges::find(kOfHost, result) != std::end(kOfHost);
}

// Nothing in a value may look like the end of its column.
void AppendColumn(sqlite3_stmt* statement, int column, std::string& text)
{
    const auto* bytes = sqlite3_column_text(statement, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    text += '<';
    for (std::size_t i = 0; bytes != nullptr && i < size; ++i) {
        if (bytes[i] == '<' || bytes[i] == '>')
            text += bytes[i] == '<' ? '(' : ')';
        else
            text += bytes[i] < ' ' ? ' ' : static_cast<char>(bytes[i]);
    }
    text += '>';
}

} // namespace

void SignDatabase::Closer::operator()(sqlite3* open) const
{
    sqlite3_close(open);
}

void SignDatabase::Finalizer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

void OpenDatabases::Enter(SignDatabase& opened)
{
    open.push_back(&opened);
    if (open.size() <= kMost)
        return;
    open.front()->Close();
    open.pop_front();
}

SignDatabase::SignDatabase(const std::filesystem::path& path, int busy, OpenDatabases* many)
    : file(path), busyMs(busy), others(many)
{
    sqlite3_hard_heap_limit64(kMostMemory);
    if (others == nullptr)
        Make();
}

SignDatabase::~SignDatabase()
{
    if (others == nullptr)
        return;
    if (others->AreKept() && !waiting.IsEmpty())
        Open();
    others->Leave(*this);
}

bool SignDatabase::Open()
{
    if (database)
        return true;
    try {
        Make();
    } catch (const std::runtime_error& error) {
        database.reset();
        if (tell && !std::exchange(losesRows, true))
            tell(error.what());
        return false;
    }
    others->Enter(*this);
    WriteWaiting();
    return true;
}

void SignDatabase::WriteWaiting()
{
    const WaitingRows rows = std::exchange(waiting, {});
    Run("begin");
    for (const auto& [table, row] : rows.added)
        Add(table, row);
    for (const auto& [row, plays] : rows.played) {
        Row whole = row;
        whole.push_back(plays.last);
        CountPlay(std::move(whole), plays.times, plays.seconds);
    }
    Run("commit");
    for (const auto& [table, all] : rows.replaced)
        Replace(table, all);
}

void SignDatabase::Make()
{
    int result = Connect();
    if (result == SQLITE_NOTADB || result == SQLITE_CORRUPT) {
        database.reset();
        std::error_code error;
        for (const char* part : {"", "-wal", "-shm"})
            std::filesystem::remove(file.string() + part, error);
        result = Connect();
    }
    if (result != SQLITE_OK)
        throw std::runtime_error("cannot make the tables in " + file.string() + ": " + sqlite3_errstr(result));
}

int SignDatabase::Connect()
{
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(file.c_str(), &opened);
    database.reset(opened);
    if (result != SQLITE_OK)
        return result;
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, kLongestValue);
    sqlite3_limit(opened, SQLITE_LIMIT_SQL_LENGTH, kLongestValue);
    sqlite3_limit(opened, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(opened, SQLITE_LIMIT_EXPR_DEPTH, 50);
    sqlite3_limit(opened, SQLITE_LIMIT_COMPOUND_SELECT, 8);
    sqlite3_busy_timeout(opened, busyMs);
    sqlite3_set_authorizer(opened, Authorize, this);
    sqlite3_progress_handler(opened, kStepUnit, CountSteps, this);
    // Whoever reads beside the sign, for as long as he likes, does not keep it from writing. Logs need not outlive a
    // failing machine.
    std::vector<std::string> begin{"pragma synchronous=off", "pragma journal_mode=wal", "pragma temp_store=memory",
                                   "begin"};
    for (const Table& table : kTables)
        begin.push_back("create table if not exists " + std::string(table.name) + "(" + table.columns + ")");
    begin.emplace_back("commit");
    const bool made = std::ranges::all_of(begin, [this](const std::string& sql) { return Run(sql); });
    return made ? SQLITE_OK : sqlite3_errcode(opened);
}

int SignDatabase::Authorize(void* self, int action, const char* first, const char* second, const char*, const char*)
{
    auto& database = *static_cast<SignDatabase*>(self);
    database.touchesRows |= action == SQLITE_SELECT || action == SQLITE_DELETE;
    if (!database.hostSpeaks || action == SQLITE_SELECT)
        return SQLITE_OK;
    if (action == SQLITE_READ || action == SQLITE_DELETE)
        return IsTable(first) ? SQLITE_OK : SQLITE_DENY;
    if (action == SQLITE_FUNCTION && second != nullptr)
        return std::ranges::find(kFunctions, std::string_view(second)) != std::end(kFunctions) ? SQLITE_OK
                                                                                               : SQLITE_DENY;
    return SQLITE_DENY;
}

int SignDatabase::CountSteps(void* self)
{
    auto& database = *static_cast<SignDatabase*>(self);
    return database.hostSpeaks && --database.stepsLeft < 0 ? 1 : 0;
}

RowPage SignDatabase::Query(std::string_view sql)
{
    // Statements end with the text, or at a terminator in it.
    sql = sql.substr(0, sql.find('\0'));
    if (sql.size() > kLongestValue)
        return {Code::kNotSupported, 0, {}};
    if (!Open())
        return {Code::kWriteFailed, 0, {}};
    hostSpeaks = true;
    touchesRows = false; // some statements, such as vacuum, ask for no permission until they run
    stepsLeft = kMostSteps;
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    const int compiled = sqlite3_prepare_v2(database.get(), sql.data(), static_cast<int>(sql.size()), &prepared, &tail);
    Statement statement(prepared);
    const bool alone =
        tail != nullptr && std::all_of(tail, sql.data() + sql.size(), [](char c) { return c == ' ' || c == ';'; });
    RowPage page{Code::kNotSupported, 0, {}};
    const bool explains = sqlite3_stmt_isexplain(prepared) != 0; // shows more than rows, and asks for no permission
    if (compiled == SQLITE_OK && statement && alone && touchesRows && !explains)
        page = Rows(statement.get());
    else if (!IsOfHost(compiled))
        page = Failed();
    statement.reset(); // ends it under the rules for hosts
    hostSpeaks = false;
    return page;
}

RowPage SignDatabase::Rows(sqlite3_stmt* statement)
{
    RowPage page;
    int result = SQLITE_ROW;
    while (page.rows < std::numeric_limits<std::uint16_t>::max() && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        const std::size_t before = page.text.size();
        for (int column = 0; column < sqlite3_column_count(statement) && page.text.size() <= kMostRowText; ++column)
            AppendColumn(statement, column, page.text);
        if (page.text.size() > kMostRowText) { // the rows so far are the page
            page.text.resize(before);
            return page.rows != 0 ? page : RowPage{Code::kBadPacketSize, 0, {}};
        }
        ++page.rows;
    }
    if (result == SQLITE_ROW || result == SQLITE_DONE)
        return page;
    return IsOfHost(result) ? RowPage{Code::kWriteFailed, 0, {}} : Failed();
}

RowPage SignDatabase::Failed() const
{
    Trouble("a statement fails");
    return {Code::kWriteFailed, 0, {}};
}

bool SignDatabase::Run(const std::string& sql, std::span<const Value> values)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        return false;
    const Statement statement(prepared);
    int index = 0;
    for (const Value& value : values) {
        ++index;
        if (const auto* number = std::get_if<std::int64_t>(&value))
            sqlite3_bind_int64(prepared, index, *number);
        else
            sqlite3_bind_text(prepared, index, std::get<std::string>(value).c_str(), -1, SQLITE_TRANSIENT);
    }
    const int result = sqlite3_step(prepared);
    return result == SQLITE_DONE || result == SQLITE_ROW;
}

bool SignDatabase::Insert(const std::string& table, const Row& row)
{
    std::string marks = "?";
    for (std::size_t i = 1; i < row.size(); ++i)
        marks += ",?";
    return Run("insert into " + table + " values(" + marks + ")", row);
}

void SignDatabase::Add(const std::string& table, const Row& row)
{
    if (!database && waiting.Add(table, row))
        return;
    if (Open() && Written(Insert(table, row)))
        Trim(table);
}

void SignDatabase::Trim(const std::string& table)
{
    Run("delete from " + table + " where rowid<=last_insert_rowid()-" + std::to_string(kMostRows));
}

void SignDatabase::Replace(const std::string& table, std::span<const Row> rows)
{
    if ((!database && waiting.Replace(table, rows)) || !Open())
        return;
    bool done = Run("begin") && Run("delete from " + table);
    for (const Row& row : rows.first(std::min<std::size_t>(rows.size(), kMostRows)))
        done = done && Insert(table, row);
    if (!Written(done && Run("commit")))
        Run("rollback");
}

void SignDatabase::AddPlay(const Row& windowGroupFileTime, std::int64_t seconds)
{
    if ((!database && waiting.AddPlay(windowGroupFileTime, seconds)) || !Open())
        return;
    if (CountPlay(windowGroupFileTime, 1, seconds))
        Trim("PlayLog");
}

// True if the file has a row of its own from now on.
bool SignDatabase::CountPlay(Row row, std::int64_t times, std::int64_t seconds)
{
    row.emplace_back(seconds);
    row.emplace_back(times);
    const bool updated = Run("update PlayLog set Time=?4,PlayTimes=PlayTimes+?6,TotalSeconds=TotalSeconds+?5 "
                             "where WinID=?1 and GroupName=?2 and FileName=?3",
                             row);
    const bool isNew = updated && sqlite3_changes(database.get()) == 0;
    return Written(updated && (!isNew || Run("insert into PlayLog values(?1,?2,?3,?4,?6,?5)", row))) && isNew;
}

// Tells of rows that get lost once, until rows are written again. Nobody is waited for meanwhile: hosts wait too.
bool SignDatabase::Written(bool done)
{
    if (!done && !losesRows)
        Trouble("rows are lost");
    losesRows = !done;
    sqlite3_busy_timeout(database.get(), losesRows ? 0 : busyMs);
    return done;
}

void SignDatabase::Trouble(const char* what) const
{
    if (tell)
        tell(file.filename().string() + ": " + what + ": " + sqlite3_errmsg(database.get()));
}

} // namespace vxsim
