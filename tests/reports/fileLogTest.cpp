// The binary log files, and the batch of files.
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

struct Log
{
    const char* name;
    std::function<std::uint32_t(const char* folder)> read;
    const char* signFile;
    const char* local;
    bool deleted;
    std::string header;
    std::string first;     // 2020-05-13 10:20, 15 in the seconds' bits
    std::string second;    // month 13 or 0, day 0
    std::string values[2]; // what stands ahead of the time, hexadecimal
    const char* noLog;     // a header without records behind it
};

const std::string kNothing36(72, '9');

using FileLogs = ReportTest;

const std::vector<Log>& Logs()
{
    const auto battery = [](const char* name, auto read, std::int8_t kind, const char* file, const char* local,
                            bool deleted) {
        return Log{name,
                   [=](const char* folder) { return read(folder, 7, 0, kind, Taken::WithUser); },
                   file,
                   local,
                   deleted,
                   HexText("FFFFFFFF 01000000 FFFFFFFF FFFFFFFF"),
                   HexText("AD50 8F52 01020304 05060708 090A 0B0C FFFF 0D 0E 0F10 1112 1314 1516 1718 191A"),
                   HexText("A051 8F52") + std::string(28, '\0'),
                   {"01020304 05060708 090A 0B0C 0000 0D 0E 0F10 1112 1314 1516 1718 191A", std::string(56, '0')},
                   "FFFFFFFF 00000000 FFFFFFFF FFFFFFFF"};
    };
    static const std::vector<Log> logs = {
        {"old radar",
         [](const char* folder) { return vxReadRadarLog(folder, 7, 0, Taken::WithUser); },
         "D:\\RADARLog.log",
         "RADAR.LOG",
         false,
         HexText("00000001 FFFFFFFF FFFFFFFF"),
         HexText("0102 F304 " + kNothing36 + "AD50 8F52"),
         HexText("FFFF 0000 " + kNothing36 + "0050 8F52"),
         {"01020000 F3040000", "FFFF0000 00000000"},
         "00000000 01010101 01010101"},
        {"new radar",
         [](const char* folder) { return vxReadNewRadarLog(folder, 7, 0, Taken::WithUser); },
         "E:\\RADAR.log",
         "RADAR.LOG",
         true,
         "RLOG" + HexText("00010000 FFFFFFFF FFFFFFFF"),
         HexText("0102 F304 AD50 8F52"),
         HexText("FFFF 0000 A051 8F52"),
         {"01020000 F3040000", "FFFF0000 00000000"},
         "524C4F67 01000000 01010101 01010101"},
        battery("battery", vxReadBatInfoLog, 0, "D:\\batinfo.log", "BATINFO.LOG", false),
        battery("second battery", vxReadBatInfoLog, 1, "D:\\dbatinfo.log", "DBATINFO.LOG", false),
        battery("battery, deleted", vxReadBatInfoLogII, 2, "D:\\batinfo.log", "BATINFO.LOG", true),
        battery("second battery, deleted", vxReadBatInfoLogII, 1, "D:\\dbatinfo.log", "DBATINFO.LOG", true),
    };
    return logs;
}

TEST_F(FileLogs, Records)
{
    for (const Log& log : Logs()) {
        SCOPED_TRACE(log.name);
        sign.Renew();
        const std::string fetch = std::string("read ") + log.signFile;
        const Bytes first = Hex(log.values[0]) + FromText("2020-05-13 10:20:15") + Hex("00");
        const Bytes second = Hex(log.values[1]) + FromText("2020-01-01 10:20:15") + Hex("00");
        sign.files[log.signFile] = log.header + log.first + log.second;
        EXPECT_EQ(log.read(folder.Path().c_str()), 0u);
        EXPECT_EQ(sign.asked, log.deleted ? (Asked{fetch, std::string("delete ") + log.signFile}) : Asked{fetch});
        EXPECT_EQ(Taken::records, (std::vector{first, second}));
        EXPECT_EQ(Taken::user, 7u);
        EXPECT_EQ(folder.Read(log.local), sign.files[log.signFile]);

        // The callback ends it; a last record that is cut short counts.
        Taken::result = 5;
        EXPECT_EQ(log.read(folder.Path().c_str()), 5u);
        EXPECT_EQ(Taken::records.size(), 3u);
        Taken::result = 0;
        sign.files[log.signFile] = log.header + log.first + log.second.substr(0, 2);
        EXPECT_EQ(log.read(folder.Path().c_str()), 0u);
        EXPECT_EQ(Taken::records.size(), 5u);

        // Headers that are none, or cut short; then failures.
        for (const std::string& header : {HexText(log.noLog), std::string(1, '\0'), std::string(4, '\0')}) {
            sign.files[log.signFile] = header + (header.size() > 4 ? log.first : "");
            EXPECT_EQ(log.read(folder.Path().c_str()), 0u);
        }
        sign.files.clear();
        sign.asked.clear();
        EXPECT_EQ(log.read(folder.Path().c_str()), 36872u);
        EXPECT_EQ(sign.asked, Asked{fetch});
        EXPECT_EQ(log.read(folder.Path("no/such/").c_str()), 20737u);
        EXPECT_EQ(Taken::records.size(), 5u);
    }
}

TEST_F(FileLogs, RadarOfLanes)
{
    const auto read = [&] { return vxReadTJRadarLog(folder.Path().c_str(), 7, 0, Taken::WithUser); };
    const Bytes page = Hex("01020304 05060708 AD50 8F52 A9 FFFFFF") + // lane code 169
                       Hex("00000304 05060708 AD50 8F52 A9 FFFFFF") + // passed over
                       Hex("00FF0000 00000000 A051 8F52 FF 000000") + // 13th month, day 0
                       Hex("01010101 01010101");                      // cut short
    sign.answers["6/23"] = {Good({}, page)};
    EXPECT_EQ(read(), 0u);
    EXPECT_EQ(sign.asked, (Asked{"6/23", "6/22"}));
    EXPECT_EQ(Taken::records,
              (std::vector{Hex("0A000000 01000000 02000000 03000000 06000000 04000000 07000000 05000000 08000000") +
                               FromText("2020-05-13 10:20:15") + Hex("00"),
                           Hex("06000000 00000000 FF000000 00000000 00000000 00000000 00000000 00000000 00000000") +
                               FromText("2020-13-00 10:20:15") + Hex("00")}));
    Taken::result = 5;
    EXPECT_EQ(read(), 5u);
    EXPECT_EQ(Taken::records.size(), 3u);
    sign.answers["6/23"] = {Refusal(36912)};
    sign.asked.clear();
    EXPECT_EQ(read(), 36912u);
    EXPECT_EQ(sign.asked, Asked{"6/23"}) << "a log that did not arrive stays";
}

TEST_F(FileLogs, TheBatchSendsUntilOneFails)
{
    const std::string local = folder.Write("a", "abc");
    const std::string header = "MC" + HexText("FFFF 01000000 01000000") + std::string(104, 'x');
    const auto block = [](std::string from, std::string to) {
        from.resize(256, '\0');
        to.resize(256, '\0');
        return from + to;
    };
    const auto run = [&](const std::string& bytes) { return vxExecFileCMD(folder.Write("batch", bytes).c_str()); };
    EXPECT_EQ(run(header), 0u);
    EXPECT_EQ(run(header + block(local, "D:\\A") + block(local, "D:\\B") + "cut short"), 0u);
    ASSERT_EQ(sign.asked, (Asked{"2/8", "2/8"}));
    const Bytes payload = sign.requests[1].Payload();
    const Bytes path = FromText("D:\\B");
    EXPECT_NE(std::search(payload.begin(), payload.end(), path.begin(), path.end()), payload.end());
    EXPECT_EQ(sign.requests[1].Extended(), FromText("abc"));
    // The first failure ends it, be it on the sign or here.
    sign.answers["2/8"] = {Refusal(36912)};
    EXPECT_EQ(run(header + block(local, "D:\\A") + block(local, "D:\\B")), 36912u);
    EXPECT_EQ(run(header + block(std::string(256, 'a'), std::string(256, 'b')) + block(local, "D:\\B")), 20737u);
    EXPECT_EQ(sign.asked.size(), 3u);
    for (const std::string& bad : {"MD" + header.substr(2), "MC" + HexText("0000 02000000 01000000"),
                                   "MC" + HexText("0000 01000000 00000000"), std::string("MC"), std::string()})
        EXPECT_EQ(run(bad), 258u);
    EXPECT_EQ(vxExecFileCMD(folder.Path("missing").c_str()), 20737u);
}

} // namespace
} // namespace vxsign::test
