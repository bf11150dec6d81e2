// The traffic signal controller: dump files, error and temperature logs.
#include "support/reportSign.h"

namespace vxsign::test {
namespace {

const Bytes kPhase = Hex("01020304 05060708 090A0B0C 0D0E0F10 11121314 15161718 191A1B1C 1D1E1F");

class TrafficFiles : public ReportTest
{
protected:
    // The whole of the log, read from a sign whose directory is of these entries, all in one page.
    std::uint32_t ReadTemperatures(const std::string& entries)
    {
        Taken::records.clear();
        sign.answers["7/12"] = {Page(static_cast<std::uint8_t>(entries.size() / 32), entries)};
        return vxReadTrafficTempLog(local.c_str(), "sign", Taken::Plain);
    }
    std::uint32_t ReadErrors(const std::string& file)
    {
        Taken::records.clear();
        const auto size = static_cast<std::uint8_t>(file.size());
        sign.answers["1/17"] = {Good({0, 0, 0, 0, size, 0, 0, 0}, FromText(file))};
        return vxReadTrafficErrLog(local.data(), "sign", Taken::Plain);
    }
    static Answer Page(std::uint8_t total, const std::string& entries)
    {
        return Good({total, 0, 0, 0}, FromText(entries));
    }
    // A directory entry: eight characters of name, three of extension, the attributes.
    static std::string Entry(const std::string& name, char attributes = 0x20)
    {
        return name + attributes + std::string(20, '\xFF');
    }
    // A file of rows, each of 24 bytes from one on.
    static std::string Month(std::initializer_list<char> rows)
    {
        std::string file(32, '\xEE');
        for (const char first : rows)
            for (int i = 0; i < 24; ++i)
                file += static_cast<char>(first + i);
        return file;
    }
    // "time sample source" of one record.
    static std::string Sample(std::size_t index)
    {
        const auto entry = Taken::As<TrafficTempEntry>(index);
        EXPECT_STREQ(entry.signName, "sign");
        return std::string(entry.time) + " " + std::to_string(entry.sample) + " " + std::to_string(entry.sourceId);
    }

    std::string local = folder.Path("log");
};

TEST_F(TrafficFiles, Dumps)
{
    // How many bytes come, and how many are kept behind the header.
    const std::tuple<const char*, std::uint32_t (*)(const char*), const char*, std::size_t, const char*, std::size_t>
        rows[] = {
            {"status", vxReadTrafficStatus, "10/6", 3, "4D540100 03000000 0000 1E14", 3},
            {"status over the buffer", vxReadTrafficStatus, "10/6", 3000, "4D540100 00080000 0000 1E14", 2048},
            {"monitor", vxReadTrafficMonitor, "10/5", 5, "43540100 05000000 0000 1E14", 5},
            {"real status, short", vxReadTrafficRealStatus, "10/17", 2, "54520100 66000000 0000 1E14", 102},
            {"real status, cut", vxReadTrafficRealStatus, "10/17", 200, "54520100 66000000 0000 1E14", 102},
        };
    for (const auto& [name, dump, code, sent, header, kept] : rows) {
        SCOPED_TRACE(name);
        sign.answers[code] = {Good({1, 2, 3, 4}, Bytes(sent, 'b'))};
        EXPECT_EQ(dump(local.c_str()), 0u);
        Bytes block(std::min(sent, kept), 'b');
        block.resize(kept);
        EXPECT_EQ(FromText(folder.Read("log")), Hex(header) + block);
        EXPECT_EQ(dump(folder.Path("no/such").c_str()), 20737u);
        sign.answers[code] = {Refusal(36869)};
        EXPECT_EQ(dump(folder.Path("none").c_str()), 36869u);
        EXPECT_FALSE(folder.Has("none"));
    }

    // The flow has the payload, too.
    const auto read = [&](Bytes payload, const Bytes& extended) {
        sign.answers["10/13"] = {Good(std::move(payload), extended)};
        EXPECT_EQ(vxTrafficRFlow(kPhase.data(), local.c_str()), 0u);
        return FromText(folder.Read("log"));
    };
    EXPECT_EQ(read(Hex("0102030405"), Hex("A1A2A3")), Hex("0102030405000000 A1A2A3"));
    EXPECT_EQ(read({}, {}), Bytes());
    EXPECT_EQ(read({9, 9, 9, 9}, Bytes(1532, 'x')).size(), 1536u);
    EXPECT_EQ(read({9, 9, 9, 9}, Bytes(1533, 'x')).size(), 1536u);
    EXPECT_EQ(vxTrafficRFlow(kPhase.data(), folder.Path("no/such").c_str()), 20737u);
    sign.answers["10/13"] = {Refusal(36869)};
    EXPECT_EQ(vxTrafficRFlow(kPhase.data(), folder.Path("none").c_str()), 36869u);
    EXPECT_FALSE(folder.Has("none"));

    // Without configuration.
    sign.requests.clear();
    sign.Config().initialised = 0;
    EXPECT_EQ(vxTrafficRFlow(kPhase.data(), "/dev/null"), 3u);
    EXPECT_EQ(vxReadTrafficStatus("/dev/null"), 20736u);
    EXPECT_TRUE(sign.requests.empty());
}

TEST_F(TrafficFiles, ErrorTexts)
{
    const auto expect = [&](std::uint32_t level, const std::vector<std::pair<unsigned, std::string>>& rows) {
        for (const auto& [error, text] : rows) {
            SCOPED_TRACE(error);
            const std::string record = HexText("26 20 12 31 23 59 58 FF") + ToText(Little(error, 2)) + HexText("FFFF");
            EXPECT_EQ(ReadErrors(std::string(32, '\xEE') + HexText("01000000") + record), 0u);
            const auto entry = Taken::As<TrafficLogEntry>(0);
            EXPECT_EQ(entry.level, level);
            EXPECT_STREQ(entry.time, "2026-12-31 23:59:58");
            EXPECT_STREQ(entry.signName, "sign");
            EXPECT_EQ(entry.text, text + " ErrCNT=65535");
        }
    };
    unsigned file = 0x0100;
    for (const char* const name : {"", "Map", "PHASE", "PERIOD", "SPECPERIOD", "IOTABLE", "IOTABLE MAN", "CARDETECT",
                                   "CONFLICT", "CONFIG", ""}) {
        expect(3,
               {{file + 1, std::string(name) + " File Format Err"}, {file, std::string(name) + " File Not Exist Err"}});
        file += 0x10;
    }
    expect(3, {{0x0132, "PERIOD File Not Exist Err"}});
    unsigned board = 0x0200;
    for (const char* const kind : {"(motor)", "(man)", "(motor ext)", "(man ext)"}) {
        expect(2, {{board + 15, std::string("Output board Communication Error") + kind + " Address = \x0F"},
                   {board + 0x0D02, std::string("Output board Error") + kind + " Address = \x02"}});
        board += 0x10;
    }
    expect(2, {{0x0200, "Output board Communication Error(motor) Address = "},
               {0x0241, " Address = \x01"},
               {0x0FF2, " Address = \x02"},
               {0x0307, "Keyboard communicate error, Address = 7"},
               {0x0410, "Loops communicate error, Address = @"},
               {0x0500, "Video communicate error, Address = 0"},
               {0x05D0, "Video communicate error, Address = "},
               {0x0612, "Slave Connect Error"},
               {0x0E00, "Green Conflict error"}});
    expect(4, {{0x0700, "Sync Error"},
               {0x0810, "AC Lower Error"},
               {0x0801, "AC High Error"},
               {0x0900, "temp error"},
               {0x0A00, "Communication offline error"},
               {0x0B00, "RTC error"},
               {0x0C00, "Reset error"},
               {0x0D00, "CAN communication error"}});
    expect(0, {{0x0011, ""}, {0x1011, ""}, {0xFFFF, ""}});
}

TEST_F(TrafficFiles, ErrorRecords)
{
    const std::string good = HexText("26 20 0102030405 FF 0007 0100") + std::string(20, '\xFF');
    const std::string blank = HexText("26 00 0102030405 FF 0007 0100") + std::string(20, '\xFF');
    const std::string head(32, '\xEE');
    const std::tuple<const char*, std::string, std::size_t, std::uint32_t> rows[] = {
        {"an empty one counts", head + HexText("02000000") + good + blank + good, 1, 0},
        {"fewer than announced", head + HexText("FFFFFFFF") + blank + good + good, 2, 0},
        {"the last one cut short", head + HexText("03000000") + good + good.substr(0, 5), 2, 0},
        {"the callback stops", head + HexText("03000000") + good + good + good, 1, 7},
        {"none", head + HexText("00000000") + good, 0, 0},
        {"no count", head + HexText("01"), 0, 0},
        {"no header", "x", 0, 0},
    };
    for (const auto& [name, file, records, returns] : rows) {
        SCOPED_TRACE(name);
        Taken::result = returns;
        EXPECT_EQ(ReadErrors(file), returns);
        EXPECT_EQ(Taken::records.size(), records);
    }
    Taken::result = 0;
    for (const std::size_t length : {100, 101}) {
        EXPECT_EQ(vxReadTrafficErrLog(local.data(), std::string(length, 'n').c_str(), Taken::Plain), 0u);
        sign.answers["1/17"] = {Good({0, 0, 0, 0, 68, 0, 0, 0}, FromText(head + HexText("01000000") + good))};
        Taken::records.clear();
        EXPECT_EQ(vxReadTrafficErrLog(local.data(), std::string(length, 'n').c_str(), Taken::Plain), 0u);
        const Bytes& record = Taken::records.at(0);
        EXPECT_EQ(Part(record, 24, 100), Bytes(100, 'n'));
        EXPECT_EQ(record[124], 'S') << "the text follows a full name at once";
    }
    // What no calendar and no clock has stays within its field.
    EXPECT_EQ(ReadErrors(head + HexText("01000000 FFFFFFFFFFFFFFFF")), 0u);
    EXPECT_STREQ(Taken::As<TrafficLogEntry>(0).time, "16665-165-165 165:1");

    sign.answers["1/17"] = {Refusal(36880)};
    EXPECT_EQ(vxReadTrafficErrLog(local.data(), "sign", Taken::Plain), 36880u);
    EXPECT_EQ(vxReadTrafficErrLog(folder.Path("no/such").data(), "sign", Taken::Plain), 20737u);
}

TEST_F(TrafficFiles, TemperatureNames)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"CAB05XYZTMP", "CAB05XYZ.TMP", "2020-05-01 00:00:00 65 100"},
        {"E1P4206 TMP", "E1P4206.TMP", "2019-06-01 00:00:00 65 442"},
        {"E1Q4205 T  ", "E1Q4205.T", "2020-05-01 00:00:00 65 542"},
        {"P9912   TMP", "P9912.TMP", "2019-12-01 00:00:00 65 299"},
        {"V0001   \x01\x02 ", "V0001.", "2020-01-01 00:00:00 65 300"},
        {"V0 01   TMP", "V001.TMP", ""},
        {"V0000   TMP", "V0000.TMP", ""},
        {"V0013   TMP", "V0013.TMP", ""},
        {"V0A01   TMP", "V0A01.TMP", ""},
        {"P99     12 ", "P99.12", ""},
        {"C          ", "C.", ""},
        {"E          ", "E.", ""},
        {"v0001   TMP", "v0001.TMP", ""},
        {"X0101   TMP", "X0101.TMP", ""},
    };
    for (const auto& [entry, path, first] : rows) {
        SCOPED_TRACE(entry);
        sign.asked.clear();
        sign.files = {{"E:\\TEP_REC\\" + std::string(path), Month({'A'})}};
        EXPECT_EQ(ReadTemperatures(Entry(entry)), 0u);
        EXPECT_EQ(sign.asked, (Asked{"7/12", "read E:\\TEP_REC\\" + std::string(path)}));
        ASSERT_EQ(Taken::records.size(), *first != '\0' ? 24u : 0u);
        if (*first != '\0') {
            EXPECT_EQ(Sample(0), first);
        }
    }
    // Folders, and entries that were announced but not sent.
    sign.asked.clear();
    EXPECT_EQ(ReadTemperatures(Entry("CAB05   TMP", 0x10) + std::string(32, '\0')), 0u);
    EXPECT_EQ(sign.asked, Asked{"7/12"});
    sign.answers["7/12"] = {Refusal(29441)};
    EXPECT_EQ(vxReadTrafficTempLog(local.c_str(), "sign", Taken::Plain), 29441u);
}

TEST_F(TrafficFiles, TemperatureDays)
{
    using Row = std::tuple<std::uint16_t, std::uint8_t, const char*, std::size_t>;
    for (const auto& [year, month, name, days] :
         {Row{2020, 5, "V0102   TMP", 29}, Row{2021, 1, "V0102   TMP", 29}, Row{2021, 2, "V0102   TMP", 28},
          Row{2000, 2, "V0102   TMP", 29}, Row{2100, 2, "V0102   TMP", 28}, Row{2020, 12, "V0101   TMP", 31},
          Row{2020, 5, "V0104   TMP", 30}}) {
        SCOPED_TRACE(year);
        FakeClock::SetLocalTime({year, month, 1, 0, 0, 0, 0});
        sign.files["E:\\TEP_REC\\" + std::string(name).substr(0, 5) + ".TMP"] = std::string(32 + 24 * 40, 'x');
        EXPECT_EQ(ReadTemperatures(Entry(name)), 0u);
        EXPECT_EQ(Taken::records.size(), 24 * days);
    }
    FakeClock::SetLocalTime({2020, 5, 13, 0, 0, 0, 0});

    // The third file of a page gives the third byte of each row, at every hour.
    sign.files = {{"E:\\TEP_REC\\V0105.TMP", Month({'A', 'a'}) + "0123"}};
    const std::string three = Entry("X          ", 0x10) + Entry("X          ", 0x10) + Entry("V0105   TMP");
    EXPECT_EQ(ReadTemperatures(three), 0u);
    ASSERT_EQ(Taken::records.size(), 72u);
    EXPECT_EQ(Sample(0), "2020-05-01 00:00:00 67 301");
    EXPECT_EQ(Sample(23), "2020-05-01 23:00:00 67 301");
    EXPECT_EQ(Sample(24), "2020-05-02 00:00:00 99 301");
    EXPECT_EQ(Sample(71), "2020-05-03 23:00:00 50 301") << "a row that is cut short counts";
    Taken::result = 9;
    EXPECT_EQ(ReadTemperatures(three), 9u);
    EXPECT_EQ(Taken::records.size(), 24u) << "stops behind the day";
}

TEST_F(TrafficFiles, TemperaturePages)
{
    const auto name = [](int number) {
        return "V" + std::string(number < 10 ? "0" : "") + std::to_string(number) + "05";
    };
    const auto page = [&](int from, int to) {
        std::string entries;
        for (int i = from; i < to; ++i)
            entries += Entry(name(i) + "   TMP");
        return Page(25, entries);
    };
    for (int i = 0; i < 25; ++i)
        sign.files["E:\\TEP_REC\\" + name(i) + ".TMP"] = Month({'A'});
    std::vector<Bytes> asked;
    const auto answer = sign.otherwise;
    sign.otherwise = [&](const Packet& request) {
        if (request.Major() == 7)
            asked.push_back(request.Payload());
        return answer(request);
    };
    const auto read = [&] {
        asked.clear();
        Taken::records.clear();
        sign.answers["7/12"] = {page(0, 20), page(20, 25)};
        return vxReadTrafficTempLog(local.c_str(), "sign", Taken::Plain);
    };
    EXPECT_EQ(read(), 0u);
    const Bytes path = Hex("453A5C54 45505F52 45435C00");
    EXPECT_EQ(asked, (std::vector<Bytes>{Hex("14000000") + path, Hex("14001400") + path}));
    ASSERT_EQ(Taken::records.size(), 25 * 24u);
    EXPECT_EQ(Sample(24 * 19), "2020-05-01 00:00:00 84 319");
    EXPECT_EQ(Sample(24 * 20), "2020-05-01 00:00:00 65 320");

    sign.files.erase("E:\\TEP_REC\\V0305.TMP");
    EXPECT_EQ(read(), 0u) << "a failure is replaced by the next file's success";
    EXPECT_EQ(Taken::records.size(), 24 * 24u);
    sign.files.erase("E:\\TEP_REC\\V1905.TMP");
    EXPECT_EQ(read(), 36872u) << "the last of a page";
    EXPECT_EQ(Taken::records.size(), 18 * 24u);
    EXPECT_EQ(asked.size(), 1u);
}

} // namespace
} // namespace vxsign::test
