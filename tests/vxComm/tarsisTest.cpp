// Tiles of the first family: majors 12 and 50.
#include "support/fakeClock.h"
#include "support/flatRows.h"
#include "support/tempFolder.h"

namespace vxsign::test {
namespace {

const Answer kWaiting = Good({}, Hex("000C"));
const Answer kProcessing = Good(Hex("030C0000"));

// A reply to the question for a task's progress.
Answer State(std::uint8_t state, const char* totalAndDone = "0A000000 05000000")
{
    return Good({}, Hex("00") + Hex(totalAndDone) + Hex("0000") + Bytes{state});
}

Answer Task(const char* id)
{
    return Good(Hex(id));
}

TEST(FirstTiles, Requests)
{
    std::uint32_t task;
    ExpectRequests({
        {"vxTarsisGetTileStat", [&] { return vxTarsisGetTileStat(3, &task); }, 12, 7, "03000000", ""},
        {"vxTarsisTileTest", [&] { return vxTarsisTileTest(494, 0xAB, &task); }, 12, 9, "F0AB0000", ""},
        {"vxTarsisFMCalOpt", [] { return vxTarsisFMCalOpt(9); }, 50, 9, "00000000", ""},
        {"vxFlashPGMConnectCMD", [] { return vxFlashPGMConnectCMD(); }, 12, 13, "", ""},
    });
    ExpectReplies({
        {"vxTarsisGetTileStat", [](std::uint8_t* out) { return vxTarsisGetTileStat(1, At<std::uint32_t>(out, 0)); },
         "01020304 05", "", "01020304"},
        {"vxTarsisTileTest", [](std::uint8_t* out) { return vxTarsisTileTest(1, 2, At<std::uint32_t>(out, 0)); },
         "FFEEDDCC", "", "FFEEDDCC"},
    });
}

TEST(FirstTiles, ArgumentsErrors)
{
    std::uint32_t task;
    std::uint16_t status;
    std::uint8_t buffer[4];
    ExpectArgumentsError({
        {"vxTarsisGetTileStat 495", [&] { return vxTarsisGetTileStat(495, &task); }},
        {"vxTarsisGetTileStat 65535", [&] { return vxTarsisGetTileStat(65535, &task); }},
        {"vxTarsisGetTileStat null", [] { return vxTarsisGetTileStat(1, nullptr); }},
        {"vxTarsisTileTest 495", [&] { return vxTarsisTileTest(495, 1, &task); }},
        {"vxTarsisTileTest 65534", [&] { return vxTarsisTileTest(65534, 1, &task); }},
        {"vxTarsisTileTest null", [] { return vxTarsisTileTest(1, 1, nullptr); }},
        {"vxTarsisSetTileCmd 495", [] { return vxTarsisSetTileCmd(495, 1); }},
        {"vxTarsisSetTileCmd 65534", [] { return vxTarsisSetTileCmd(65534, 1); }},
        {"vxTarsisGetResult buffer", [&] { return vxTarsisGetResult(1, nullptr, 4, &status); }},
        {"vxTarsisGetResult status", [&] { return vxTarsisGetResult(1, buffer, 4, nullptr); }},
        {"vxTarsisWriteTileFile", [] { return vxTarsisWriteTileFile(nullptr, 1, 0); }},
        {"vxTarsisReadTileFile", [] { return vxTarsisReadTileFile(nullptr, 1, 4); }},
    });
}

TEST(FirstTiles, NumbersRunOverTwoBuses)
{
    struct Row
    {
        std::uint16_t tile;
        std::uint16_t bus;
        std::uint8_t address;
        std::uint16_t busOfTest;
        std::uint8_t addressOfTest;
    };
    for (const Row& row : {Row{1, 0, 1, 0, 1}, Row{254, 0, 254, 0, 254}, Row{255, 1, 1, 1, 1}, Row{494, 1, 240, 1, 240},
                           Row{65535, 1, 1, 0, 255}}) {
        SCOPED_TRACE(row.tile);
        ScriptedSign sign;
        sign.Config().sourceAddress = 0x1234;
        sign.Then(Refusal(36912)).Then(Good()).Then(Good());
        EXPECT_EQ(vxTarsisSetTileCmd(row.tile, 0x77), 36912u);
        EXPECT_EQ(sign.requests[0].Minor(), 11);
        EXPECT_EQ(sign.requests[0].Word(6), row.bus);
        EXPECT_EQ(sign.requests[0].Payload(), (Bytes{row.address, 0x77, 0, 0}));
        std::uint32_t task;
        EXPECT_EQ(vxTarsisTileTest(row.tile, 0x77, &task), 0u);
        EXPECT_EQ(sign.requests[1].Word(6), row.busOfTest);
        EXPECT_EQ(sign.requests[1].Payload(), (Bytes{row.addressOfTest, 0x77, 0, 0}));
        EXPECT_EQ(vxBlackScreen(), 0u);
        EXPECT_EQ(sign.requests[2].Word(6), row.busOfTest) << "the bus stays selected";
    }
}

TEST(FirstTiles, ResultOfATask)
{
    struct Row
    {
        const char* name;
        std::vector<Answer> answers;
        std::uint32_t bufferSize;
        std::uint32_t result;
        std::uint16_t status;
        const char* buffer; // of eight bytes
    };
    const Row rows[] = {
        {"data at once", {Good({}, Hex("112233"))}, 8, 0, 3073, "112233EEEEEEEEEE"},
        {"data of a task that takes its time",
         {kWaiting, kProcessing, kWaiting, Good({}, Hex("000C00"))},
         8,
         0,
         3073,
         "000C00EEEEEEEEEE"},
        {"two bytes are a status", {Good({}, Hex("1122"))}, 8, 0, 0x2211, "EEEEEEEEEEEEEEEE"},
        {"more data than the buffer takes", {Good({}, Bytes(2000, 0x55))}, 3, 0, 3073, "555555EEEEEEEEEE"},
        {"no room", {Good({}, Hex("112233"))}, 0, 0, 3073, "EEEEEEEEEEEEEEEE"},
        {"data begins with the payload", {Good(Hex("AABBCCDD"), Hex("112233"))}, 8, 0, 3073, "AABBCCEEEEEEEEEE"},
        {"failed", {kProcessing, Good(Hex("040C0000"))}, 8, 0, 3076, "EEEEEEEEEEEEEEEE"},
        {"success without data", {Good(Hex("010C0000"))}, 8, 0, 3073, "EEEEEEEEEEEEEEEE"},
        {"a refusal that goes on",
         {Refusal(3075), Refusal(3072), Good({}, Hex("112233"))},
         8,
         0,
         3073,
         "112233EEEEEEEEEE"},
        {"a refusal", {Refusal(3079)}, 8, 3079, 3079, "EEEEEEEEEEEEEEEE"},
        {"an empty reply", {Good()}, 8, 0, 0, "EEEEEEEEEEEEEEEE"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const FakeClock clock;
        ScriptedSign sign;
        for (const Answer& answer : row.answers)
            sign.Then(answer);
        std::uint16_t status = 0xEEEE;
        Bytes buffer(8, 0xEE);
        EXPECT_EQ(vxTarsisGetResult(0x04030201, buffer.data(), row.bufferSize, &status), row.result);
        EXPECT_EQ(status, row.status);
        EXPECT_EQ(buffer, Hex(row.buffer));
        ASSERT_EQ(sign.requests.size(), row.answers.size());
        EXPECT_EQ(sign.requests[0].Major(), 12);
        EXPECT_EQ(sign.requests[0].Minor(), 2);
        EXPECT_EQ(sign.requests[0].Payload(), Hex("01020304"));
        for (const Packet& request : sign.requests)
            EXPECT_EQ(request.bytes, sign.requests[0].bytes) << "the same packet again";
        EXPECT_EQ(sign.progress, std::vector<std::uint32_t>(row.answers.size() - 1, 10));
        EXPECT_EQ(clock.SleptMs(), 100 * (row.answers.size() - 1));
    }
}

TEST(FirstTiles, WaitsThatEndWithoutTheTask)
{
    const FakeClock clock;
    ScriptedSign sign;
    std::uint16_t status = 1;
    std::uint8_t buffer[4];
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 20736u) << "silence";
    EXPECT_EQ(status, 0);
    sign.requests.clear();

    sign.otherwise = [](const Packet&) { return kProcessing; };
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 0u);
    EXPECT_EQ(status, 3075);
    EXPECT_EQ(sign.requests.size(), 3000u);
    sign.requests.clear();

    sign.otherwise = [&](const Packet&) {
        sign.Config().abortFlag = sign.requests.size() == 3 ? 1 : 0;
        return kProcessing;
    };
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 20497u);
    EXPECT_EQ(sign.requests.size(), 3u);
    sign.Config().abortFlag = 0;
    sign.requests.clear();

    sign.otherwise = [](const Packet& request) { return request.Minor() == 4 ? State(3) : Task("01000000"); };
    EXPECT_EQ(vxTarsisSetTileCmd(1, 1), 0u);
    EXPECT_EQ(sign.requests.size(), 3001u);

    // Noise that declares more than any reply holds is no result.
    sign.raw = [](const Packet& request) {
        Bytes reply = MakeReply(request, 0, {}, Bytes(1500, 7));
        reply[2] ^= 1;
        reply[5] = 0x11;
        return std::deque<Bytes>{reply};
    };
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 20736u);
    EXPECT_EQ(status, 0);
}

TEST(FirstTiles, ProgressOfACommand)
{
    struct Row
    {
        const char* name;
        std::vector<Answer> answers; // to the questions
        std::uint32_t result;
        std::vector<std::uint32_t> progress;
    };
    const Row rows[] = {
        {"done", {State(0), State(3, "04000000 03000000"), State(1), Good()}, 0, {50, 75}},
        {"failed, and asked once more", {State(9), Good()}, 3081, {}},
        {"failed, whatever the last answer", {State(4), Refusal(36912)}, 3076, {}},
        {"done, but the last answer fails", {State(1), Refusal(36912)}, 36912, {}},
        {"highest state", {State(255), Good()}, 3327, {}},
        {"first question fails", {Refusal(3079)}, 3079, {}},
        {"a later question fails", {State(3), Refusal(36912)}, 36912, {50}},
        {"a total of 0", {State(0, "00000000 05000000"), State(1), Good()}, 0, {0}},
        {"32 bits", {State(0, "01000000 FFFFFFFF"), State(1), Good()}, 0, {0xFFFFFF9C}},
        {"in the payload", {Good(Hex("00 04000000 01000000 0000 03")), State(1), Good()}, 0, {25}},
        {"a short reply goes on", {Good({}, Hex("0001")), State(1), Good()}, 0, {0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const FakeClock clock;
        ScriptedSign sign;
        sign.Then(Task("0A0B0C0D"));
        for (const Answer& answer : row.answers)
            sign.Then(answer);
        EXPECT_EQ(vxTarsisSetTileCmd(300, 2), row.result);
        EXPECT_EQ(sign.progress, row.progress);
        ASSERT_EQ(sign.requests.size(), row.answers.size() + 1);
        EXPECT_EQ(clock.SleptMs(), 100 * (row.answers.size() - 1));
        EXPECT_EQ(sign.requests[1].Minor(), 4);
        EXPECT_EQ(sign.requests[1].Payload(), Hex("0A0B0C0D 00000000"));
        EXPECT_EQ(sign.requests.back().bytes, sign.requests[1].bytes) << "the same packet again";
    }
}

// A status as a tile gives it: size, firmware, model.
Answer TileStatus(const char* begin)
{
    return Good({}, Hex(begin) + Bytes(20, 0));
}

std::string Requests(const ScriptedSign& sign)
{
    std::string all;
    for (const Packet& request : sign.requests)
        all += std::to_string(request.Major()) + "." + std::to_string(request.Minor()) + " ";
    return all;
}

class FirstTileFiles : public testing::Test
{
protected:
    TempFolder folder;
    FakeClock clock;
    ScriptedSign sign;
    std::string local = folder.Write("file", "abc");
};

TEST_F(FirstTileFiles, AreInstalledInFixedPlaces)
{
    struct Row
    {
        std::uint8_t type;
        const char* status;
        const char* path;
        const char* offset;
    };
    for (const Row& row : {Row{0, "0808000000", "C:\\R_DATA\\R.DAT", "00000000"},
                           Row{1, "0808000000", "C:\\DRIVER\\DRV.DAT", "D01A0000"},
                           Row{2, "0808000000", "C:\\CTL_FPGA\\FPGA.DAT", "F0600000"},
                           Row{3, "0808000000", "C:\\BACKUP\\CPU.BIN", "98E10100"},
                           Row{4, "0808008310", "C:\\R_DATA\\BRBLOCK.DAT", "40940100"},
                           Row{4, "0808008410", "C:\\R_DATA\\BRBLOCK.DAT", "30500100"},
                           Row{4, "080800FF10", "C:\\R_DATA\\BRBLOCK.DAT", "30500100"},
                           Row{4, "0808000011", "C:\\R_DATA\\BRBLOCK.DAT", "40940100"}}) {
        SCOPED_TRACE(std::string(row.path) + row.status);
        sign.requests.clear();
        sign.Then(Task("01000000")).Then(TileStatus(row.status)).Then(Good());
        sign.Then(Task("02000000")).Then(State(1)).Then(Good()).Then(Task("03000000"));
        sign.Then(Task("04000000")).Then(State(1)).Then(Good());
        EXPECT_EQ(vxTarsisWriteTileFile(local.c_str(), 256, row.type), 0u);
        ASSERT_EQ(Requests(sign), "12.7 12.2 2.13 12.15 12.4 12.4 12.9 12.11 12.4 12.4 ");
        const Bytes path = FromText(row.path) + Bytes{0};
        EXPECT_EQ(sign.requests[1].Payload(), Hex("01000000"));
        const Bytes copied = sign.requests[2].Payload();
        EXPECT_EQ(Bytes(copied.begin() + 14, copied.begin() + 14 + static_cast<long>(path.size())), path);
        EXPECT_EQ(sign.requests[2].Extended(), FromText("abc"));
        EXPECT_EQ(sign.requests[3].Payload(), Hex(row.offset) + Hex("0000 02 00"));
        EXPECT_EQ(sign.requests[3].Extended(), path);
        EXPECT_EQ(sign.requests[4].Payload(), Hex("02000000 00000000"));
        EXPECT_EQ(sign.requests[6].Payload(), Hex("02120000"));
        EXPECT_EQ(sign.requests[7].Payload(), Hex("02020000"));
        EXPECT_EQ(sign.requests[8].Payload(), Hex("04000000 00000000"));
    }
}

TEST_F(FirstTileFiles, InstallingGoesOnToItsLastCommand)
{
    struct Row
    {
        const char* name;
        std::uint8_t type;
        std::vector<Answer> answers;
        const char* requests;
        std::uint32_t result;
    };
    const Answer status = TileStatus("0808000000");
    const Answer task = Task("01000000");
    const Row rows[] = {
        {"no status task", 0, {Refusal(65535), Good(Hex("070C0000"))}, "12.7 12.2 ", 3079},
        {"no answer to the question", 0, {task, Refusal(36912)}, "12.7 12.2 ", 36912},
        {"another type of file", 5, {task, status}, "12.7 12.2 ", 2},
        {"no copy",
         0,
         {task, status, Refusal(8451), Good(), task, State(1), Good()},
         "12.7 12.2 2.13 12.9 12.11 12.4 12.4 ",
         0},
        {"no task to install",
         0,
         {task, status, Good(), Refusal(65535), Refusal(1), task, State(1), Good()},
         "12.7 12.2 2.13 12.15 12.9 12.11 12.4 12.4 ",
         0},
        {"not installed",
         0,
         {task, status, Good(), task, State(4), Good(), Good(), task, State(5), Good()},
         "12.7 12.2 2.13 12.15 12.4 12.4 12.9 12.11 12.4 12.4 ",
         3077},
        {"no last command",
         0,
         {task, status, Refusal(8451), Good(), Refusal(36881)},
         "12.7 12.2 2.13 12.9 12.11 ",
         36881},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        sign.requests.clear();
        for (const Answer& answer : row.answers)
            sign.Then(answer);
        EXPECT_EQ(vxTarsisWriteTileFile(local.c_str(), 1, row.type), row.result);
        EXPECT_EQ(Requests(sign), row.requests);
    }
}

TEST_F(FirstTileFiles, CalibrationIsReadInBlocks)
{
    struct Row
    {
        const char* status;
        std::size_t size;
        std::uint32_t firstOffset;
    };
    for (const Row& row : {Row{"0808000000 00", 1184, 103488}, Row{"0403008410 DF", 248, 86064},
                           Row{"0403000000 E0", 888, 103488}, Row{"0000000000 00", 32, 103488}}) {
        SCOPED_TRACE(row.status);
        sign.requests.clear();
        std::vector<Bytes> blocks;
        sign.Then(Task("07000000")).Then(TileStatus(row.status));
        sign.otherwise = [&](const Packet& request) {
            if (request.Minor() == 1) {
                blocks.push_back(request.Payload());
                return Task("08000000");
            }
            return Good({}, Bytes(264, static_cast<std::uint8_t>(blocks.size())));
        };
        EXPECT_EQ(vxTarsisReadTileFile(local.c_str(), 1, 4), 0u);
        std::string expected;
        for (std::size_t i = 0; expected.size() < row.size; ++i) {
            expected += std::string(std::min<std::size_t>(264, row.size - expected.size()), static_cast<char>(i + 1));
            const std::size_t offset = row.firstOffset + 264 * i;
            ASSERT_LT(i, blocks.size());
            EXPECT_EQ(blocks[i], (Bytes{static_cast<std::uint8_t>(offset), static_cast<std::uint8_t>(offset >> 8),
                                        static_cast<std::uint8_t>(offset >> 16), 0, 8, 1, 1, 0}));
        }
        EXPECT_EQ(folder.Read("file"), expected);
    }
}

TEST_F(FirstTileFiles, ReadingFailures)
{
    struct Row
    {
        const char* name;
        std::uint16_t tile;
        std::uint8_t type;
        const char* local;
        std::vector<Answer> answers; // behind the status task
        std::uint32_t result;
        std::string file;
    };
    const Answer task = Task("01000000");
    const std::string block(264, 'x');
    const Row rows[] = {
        {"another type of file", 1, 3, "file", {}, 2, "abc"},
        {"type 5", 1, 5, "file", {}, 2, "abc"},
        {"no local file", 1, 4, "no/such", {}, 20737, "abc"},
        {"no block", 1, 4, "file", {Refusal(65535)}, 65535, ""},
        {"a block that fails", 1, 4, "file", {task, Good({}, FromText(block)), task, Refusal(36912)}, 36912, block},
        {"a task that fails", 1, 4, "file", {task, Good(Hex("040C0000"))}, 3076, ""},
        {"a short block ends in zeros",
         1,
         4,
         "file",
         {task, Good({}, FromText("xyz")), task, Refusal(36912)},
         36912,
         "xyz" + std::string(261, '\0')},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        sign.Then(task).Then(TileStatus("0808000000 00"));
        for (const Answer& answer : row.answers)
            sign.Then(answer);
        folder.Write("file", "abc");
        EXPECT_EQ(vxTarsisReadTileFile(folder.Path(row.local).c_str(), row.tile, row.type), row.result);
        EXPECT_EQ(folder.Read("file"), row.file);
    }
    // A number that no tile has: the status task does not start, but another's result may be there.
    sign.Then(TileStatus("0808000000 00"));
    EXPECT_EQ(vxTarsisReadTileFile(local.c_str(), 495, 4), 2u);
    EXPECT_EQ(sign.requests.back().Minor(), 2);
}

} // namespace
} // namespace vxsign::test
