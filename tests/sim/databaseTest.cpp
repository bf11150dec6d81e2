// The sign's database: what it logs, and what it answers.
#include "sim/logs/database.h"
#include "support/signFixture.h"

#include <sqlite3.h>

namespace vxsign::test {
namespace {

using Database = LogTest;
using vxsim::SignDatabase;

TEST_F(Database, CommandsAreLoggedWithWhoGaveThem)
{
    arrival.host = 0x7F000001;
    EXPECT_EQ(RowsOf("select count(*) from SysLog"), "<0>");
    AskAt(1000, 4, 3);
    Ask(1, 10); // changes nothing
    AskAt(2000, 5, 4, {0x20, 0x20, 0x05, 0x13, 0x23, 0x59, 0x58, 0, 0});
    arrival.host = 0;
    AskAt(4000, 7, 2, {'X'});
    const Bytes page = AskDatabase("select Type,DateTime,Operate,Author,Result from SysLog limit 5 offset 0");
    EXPECT_EQ(PayloadOf(page), (Bytes{3, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(page), Text("<4><2020-05-13 10:20:31><power off><127.0.0.1><OK>"
                                     "<5><2020-05-13 23:59:58><set clock><127.0.0.1><OK>"
                                     "<7><2020-05-14 00:00:00><format><serial line><refused, code 29185>"));
    EXPECT_EQ(RowsOf("select Type from SysLog limit 5 offset 2;"), "<7>");
    EXPECT_EQ(RowsOf("delete from SysLog"), "");
    EXPECT_EQ(RowsOf("select count(*) from SysLog"), "<0>");

    // A user who is logged in is the author. Logs survive a restart.
    settings.users = {{"admin", "1234"}};
    Rebuild(32, 32);
    Expect(0, {{10, 1, Padded("admin", 14) + Padded("1234", 6)}});
    Ask(4, 1);
    Ask(10, 2);
    settings.users.clear();
    Rebuild(32, 32);
    EXPECT_EQ(RowsOf("select Operate,Author from SysLog"), "<log in><admin><black screen><admin><log out><admin>");
}

TEST_F(Database, RefusesWhatIsNeitherReadingNorDeletingLogs)
{
    for (const char* sql :
         {"attach '/tmp/other' as other", "pragma user_version", "select * from pragma_table_info('SysLog')",
          "select name from sqlite_master", "select load_extension('x')", "select replace('aaaa','a','aaaaaaaa')",
          "select 1 where 'aaaa' like '%a%a%b'", "insert into SysLog values(1,2,3,4,5)", "update SysLog set Type=1",
          "drop table SysLog", "begin", "vacuum", "vacuum into '/tmp/other'", "delete from SysLog; delete from TempLog",
          "explain select * from SysLog", "explain query plan delete from SysLog",
          "with recursive a(x) as (select 1 union all select x+1 from a) select x from a", "selec", ";"})
        EXPECT_EQ(CodeOf(AskDatabase(sql)), 36881U) << sql;
    EXPECT_EQ(CodeOf(AskDatabase(std::string(2000, ' '))), 36881U);
    EXPECT_EQ(CodeOf(AskDatabase("select 1", {2, 0, 1, 0})), 36881U);
    EXPECT_EQ(CodeOf(AskDatabase("")), 36870U);
    EXPECT_EQ(CodeOf(Ask(1, 21, {}, Text("select 1"))), 36870U);
    EXPECT_EQ(RowsOf(std::string("select 1\0 from nowhere", 22)), "<1>");
}

TEST(SignDatabase, AnswersAreWholeRowsThatCanBeTakenApart)
{
    const TempFolder folder;
    SignDatabase database(folder.path / "logs");
    database.Add("EventLog", {std::int64_t{-3}, "<b>\n", std::int64_t{0}, std::string(700, 'x')});
    database.Add("EventLog", {std::int64_t{2}, "", std::int64_t{0}, std::string(700, 'y')});
    database.Add("EventLog", {std::int64_t{3}, "", std::int64_t{0}, std::string(2000, 'z')});
    const auto page = database.Query("select EventType,DateTime,Note,null from EventLog");
    EXPECT_EQ(page.rows, 2);
    EXPECT_EQ(page.text, "<-3><(b) ><" + std::string(700, 'x') + "><><2><><" + std::string(700, 'y') + "><>");
    EXPECT_EQ(database.Query("select Note from EventLog limit 1 offset 2").code, vxsim::Code::kBadPacketSize);
    EXPECT_EQ(database.Query("select Note from EventLog limit 1 offset 3").rows, 0);

    // Statements without end are stopped and change nothing.
    const std::vector<SignDatabase::Row> rows(1000, {std::int64_t{1}, "t", std::int64_t{1}, "n"});
    database.Replace("EventLog", rows);
    const std::string endless = "(select count(*) from EventLog a,EventLog b,EventLog c,EventLog d)";
    EXPECT_EQ(database.Query("select " + endless).code, vxsim::Code::kWriteFailed);
    EXPECT_EQ(database.Query("select a.Note||b.Note from EventLog a,EventLog b,EventLog c order by 1").code,
              vxsim::Code::kWriteFailed);
    EXPECT_EQ(database.Query("delete from EventLog where " + endless + ">0").code, vxsim::Code::kWriteFailed);
    EXPECT_EQ(database.Query("select count(*) from EventLog").text, "<1000>");
}

TEST(SignDatabase, KeepsTheLatestRowsAndReplacesABrokenFile)
{
    const TempFolder folder;
    std::ofstream(folder.path / "logs") << std::string(4096, 'x');
    SignDatabase database(folder.path / "logs");
    const std::vector<SignDatabase::Row> rows(vxsim::kMostRows, {std::int64_t{1}, "", std::int64_t{0}, ""});
    database.Replace("EventLog", rows);
    database.Add("EventLog", {std::int64_t{7}, "", std::int64_t{0}, ""});
    EXPECT_EQ(database.Query("select count(*),max(EventType) from EventLog").text, "<10000><7>");
    EXPECT_THROW(SignDatabase(folder.path / "missing" / "logs"), std::runtime_error);
}

TEST(SignDatabase, OfManyAFewAreOpenAndTheRowsOfTheOthersWait)
{
    const TempFolder folder;
    const auto file = [&](std::size_t i) { return folder.path / std::to_string(i); };
    const SignDatabase::Row play{std::int64_t{1}, "list", "file", "now"};
    for (const bool areKept : {false, true}) {
        vxsim::OpenDatabases many(areKept);
        std::list<SignDatabase> all;
        for (std::size_t i = 0; i < vxsim::OpenDatabases::kMost + 2; ++i) {
            SignDatabase& database = all.emplace_back(file(i), 0, &many);
            for (int round = 0; round < 2; ++round) {
                database.Add("EventLog", {std::int64_t{round}, "", std::int64_t{0}, ""});
                database.AddPlay(play, 5);
                database.Replace("TileInfo", {});
            }
            EXPECT_FALSE(std::filesystem::exists(file(i)));
        }
        for (int round = 0; round < 2; ++round) { // the first ones are closed when the last ones open
            for (SignDatabase& database : all)
                EXPECT_EQ(
                    database.Query("select (select count(*) from EventLog),PlayTimes,TotalSeconds from PlayLog").text,
                    "<2><2><10>");
        }
        EXPECT_FALSE(std::filesystem::exists(file(0).string() + "-wal")) << "closed";
        std::list<SignDatabase> late;
        for (std::size_t rows : {vxsim::WaitingRows::kMost, vxsim::WaitingRows::kMost + 1}) {
            SignDatabase& database = late.emplace_back(file(100 + rows), 0, &many);
            for (std::size_t i = 0; i < rows; ++i)
                database.Add("EventLog", {std::int64_t{1}, "", std::int64_t{0}, ""});
            EXPECT_EQ(std::filesystem::exists(file(100 + rows)), rows > vxsim::WaitingRows::kMost);
        }
        late.clear();
        EXPECT_EQ(std::filesystem::exists(file(100 + vxsim::WaitingRows::kMost)), areKept);
        all.clear();
        for (const auto& entry : std::filesystem::directory_iterator(folder.path))
            std::filesystem::remove(entry);
    }
    vxsim::OpenDatabases many(true);
    SignDatabase lost(folder.path / "missing" / "logs", 0, &many);
    EXPECT_EQ(lost.Query("select count(*) from EventLog").code, vxsim::Code::kWriteFailed);
}

// Somebody who has opened the file beside the sign.
class Onlooker
{
public:
    explicit Onlooker(const std::filesystem::path& file) { sqlite3_open(file.c_str(), &open); }
    ~Onlooker() { sqlite3_close(open); }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    void Run(const char* sql) { EXPECT_EQ(sqlite3_exec(open, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql; }

private:
    sqlite3* open = nullptr;
};

TEST(SignDatabase, AReaderBesideItIsInNobodysWayAndAWriterIsNamed)
{
    const TempFolder folder;
    SignDatabase database(folder.path / "logs", 0);
    std::vector<std::string> told;
    database.Observe([&](const std::string& what) { told.push_back(what); });
    const SignDatabase::Row row{std::int64_t{1}, "", std::int64_t{0}, ""};
    database.Add("SysLog", {std::int64_t{1}, "", "", "", ""});
    Onlooker onlooker(folder.path / "logs");
    onlooker.Run("begin; select * from EventLog");
    database.Add("EventLog", row);
    database.Replace("TileInfo", {});
    EXPECT_EQ(database.Query("delete from SysLog").code, vxsim::Code::kOk);
    EXPECT_EQ(database.Query("select count(*) from EventLog").text, "<1>");
    EXPECT_EQ(told, std::vector<std::string>());
    onlooker.Run("commit; begin immediate");
    for (int i = 0; i < 2; ++i)
        database.Add("EventLog", row);
    EXPECT_EQ(told, std::vector<std::string>{"logs: rows are lost: database is locked"}) << "once";
    EXPECT_EQ(database.Query("delete from EventLog").code, vxsim::Code::kWriteFailed);
    EXPECT_EQ(told.back(), "logs: a statement fails: database is locked");
    onlooker.Run("commit");
    database.Add("EventLog", row);
    EXPECT_EQ(database.Query("select count(*) from EventLog").text, "<2>");

    // A file that is locked at the start is not replaced.
    Onlooker locker(folder.path / "others");
    locker.Run("create table EventLog(EventType integer); insert into EventLog values(7); begin exclusive");
    try {
        SignDatabase(folder.path / "others", 0);
        FAIL() << "it is locked";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("others: database is locked"), std::string::npos) << error.what();
    }
    locker.Run("commit");
    EXPECT_EQ(SignDatabase(folder.path / "others").Query("select EventType from EventLog").text, "<7>");
}

TEST_F(Database, PlaysAreCountedByFile)
{
    PlayThree();
    PutFile("C:\\SEQUENT.SYS", FlatList({"RED.BMP", "GREEN.BMP"}));
    for (std::uint64_t ms = 0; ms <= 10000; ms += 500)
        stage->KeepUp(ms);
    const std::string sql = "select WinID,GroupName,FileName,Time,PlayTimes,TotalSeconds from PlayLog";
    EXPECT_EQ(RowsOf(sql), "<1><SEQUENT><D:\\T\\RED.BMP><2020-05-13 10:20:36><2><6>"
                           "<1><SEQUENT><D:\\T\\GREEN.BMP><2020-05-13 10:20:33><1><3>");
    PutFile("C:\\SEQUENT.SYS", FlatList({"RED.BMP"})); // a list of one file has turns too
    for (std::uint64_t ms = 10500; ms <= 17000; ms += 500)
        stage->KeepUp(ms);
    EXPECT_EQ(RowsOf("select PlayTimes from PlayLog"), "<4><2>");
}

} // namespace
} // namespace vxsign::test
