// Tiles of the first family: majors 12 and 50.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

// A status as a tile gives it: 8 by 8 pixels, firmware 0, model 0.
constexpr char kStatus[] = "=08080000000000";

// The end of a task with success, and the answer after it.
constexpr char kDone[] = "=000A00000005000000000001 .";

using FirstTiles = ScriptedTest;

TEST_F(FirstTiles, NumbersRunOverTwoBuses)
{
    using Row = std::tuple<std::uint16_t, std::uint16_t, std::uint8_t, std::uint16_t, std::uint8_t>;
    for (const auto& [tile, bus, address, busOfTest, addressOfTest] :
         {Row{1, 0, 1, 0, 1}, Row{254, 0, 254, 0, 254}, Row{255, 1, 1, 1, 1}, Row{494, 1, 240, 1, 240},
          Row{65535, 1, 1, 0, 255}}) {
        SCOPED_TRACE(tile);
        sign.Renew();
        sign.Config().sourceAddress = 0x1234;
        sign.Then(Refusal(36912)).Then(Good()).Then(Good());
        EXPECT_EQ(vxTarsisSetTileCmd(tile, 0x77), 36912u);
        EXPECT_EQ(sign.requests[0].Minor(), 11);
        EXPECT_EQ(sign.requests[0].Word(6), bus);
        EXPECT_EQ(sign.requests[0].Payload(), (Bytes{address, 0x77, 0, 0}));
        std::uint32_t task;
        EXPECT_EQ(vxTarsisTileTest(tile, 0x77, &task), 0u);
        EXPECT_EQ(sign.requests[1].Word(6), busOfTest);
        EXPECT_EQ(sign.requests[1].Payload(), (Bytes{addressOfTest, 0x77, 0, 0}));
        EXPECT_EQ(vxBlackScreen(), 0u);
        EXPECT_EQ(sign.requests[2].Word(6), busOfTest) << "the bus stays selected";
    }
}

TEST_F(FirstTiles, ResultOfATask)
{
    using Row = std::tuple<const char*, const char*, std::uint32_t, std::uint32_t, std::uint16_t, const char*>;
    for (const auto& [name, script, bufferSize, result, wantedStatus, bytes] :
         {Row{"data at once", "=112233", 8, 0, 3073, "112233"},
          Row{"data that takes its time", "=000C +030C0000 =000C =000C00", 8, 0, 3073, "000C00"},
          Row{"two bytes are a status", "=1122", 8, 0, 0x2211, ""},
          Row{"more data than the buffer takes", "=11223344556677889900", 3, 0, 3073, "112233"},
          Row{"failed", "+030C0000 =000C +040C0000", 8, 0, 3076, ""},
          Row{"success without data", "+010C0000", 8, 0, 3073, ""},
          Row{"a refusal that goes on", "!3075 !3072 =112233", 8, 0, 3073, "112233"},
          Row{"a refusal", "!3079", 8, 3079, 3079, ""}, Row{"an empty reply", ".", 8, 0, 0, ""}}) {
        SCOPED_TRACE(name);
        sign.Renew();
        const std::uint64_t slept = clock.SleptMs();
        const std::size_t answers = Play(sign, script);
        std::uint16_t status = 0xEEEE;
        Bytes buffer(8, 0xEE);
        Bytes expected = Hex(bytes);
        expected.resize(8, 0xEE);
        EXPECT_EQ(vxTarsisGetResult(0x04030201, buffer.data(), bufferSize, &status), result);
        EXPECT_EQ(status, wantedStatus);
        EXPECT_EQ(buffer, expected);
        ASSERT_EQ(sign.requests.size(), answers);
        EXPECT_EQ(sign.Road().substr(0, 4), "12.2");
        EXPECT_EQ(sign.requests[0].Payload(), Hex("01020304"));
        EXPECT_EQ(sign.requests.back().bytes, sign.requests[0].bytes) << "the same packet again";
        EXPECT_EQ(sign.progress, std::vector<std::uint32_t>(answers - 1, 10));
        EXPECT_EQ(clock.SleptMs() - slept, 100 * (answers - 1));
    }
}

TEST_F(FirstTiles, WaitsThatEndWithoutTheTask)
{
    std::uint16_t status = 1;
    std::uint8_t buffer[4];
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 20736u) << "silence";
    EXPECT_EQ(status, 0);
    sign.requests.clear();

    sign.otherwise = [](const Packet&) { return Good(Hex("030C0000")); };
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 0u);
    EXPECT_EQ(status, 3075);
    EXPECT_EQ(sign.requests.size(), 3000u);
    sign.requests.clear();

    sign.otherwise = [&](const Packet&) {
        sign.Config().abortFlag = sign.requests.size() == 3 ? 1 : 0;
        return Good(Hex("030C0000"));
    };
    EXPECT_EQ(vxTarsisGetResult(1, buffer, 4, &status), 20497u);
    EXPECT_EQ(sign.requests.size(), 3u);
    sign.Config().abortFlag = 0;
    sign.requests.clear();

    // A command whose task never ends gives the task's last state, after a failed question that failure.
    for (const auto& [state, last, result] :
         {std::tuple{3, Good({}, Bytes(12, 3)), 3u}, {0, Good({}, Bytes(12, 0)), 0u}, {3, Refusal(36912), 36912u}}) {
        sign.requests.clear();
        sign.otherwise = [&, state = static_cast<std::uint8_t>(state), last = last](const Packet&) {
            return sign.requests.size() > 3000 ? last : Good({}, Bytes(12, state));
        };
        EXPECT_EQ(vxTarsisSetTileCmd(1, 1), result);
        EXPECT_EQ(sign.requests.size(), 3001u);
    }

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

TEST_F(FirstTiles, ProgressOfACommand)
{
    // Total, done and, at the end, the state of a task.
    const auto at = [](const std::string& state) { return "=000A000000050000000000" + state + " "; };
    using Row = std::tuple<const char*, std::string, std::uint32_t, std::vector<std::uint32_t>>;
    for (const auto& [name, script, result, progress] :
         {Row{"done", at("00") + "=000400000003000000000003 " + at("01") + ".", 0, {50, 75}},
          Row{"failed, and asked once more", at("09") + ".", 3081, {}},
          Row{"failed, whatever the last answer", at("04") + "!36912", 3076, {}},
          Row{"done, but the last answer fails", at("01") + "!36912", 36912, {}},
          Row{"highest state", at("FF") + ".", 3327, {}}, Row{"first question fails", "!3079", 3079, {}},
          Row{"a later question fails", at("03") + "!36912", 36912, {50}},
          Row{"a total of 0", "=000000000005000000000000 " + at("01") + ".", 0, {0}},
          Row{"32 bits", "=0001000000FFFFFFFF000003 " + at("01") + ".", 0, {100}},
          Row{"in the payload", "+000400000001000000000003 " + at("01") + ".", 0, {25}},
          Row{"a short reply goes on", "=0001 " + at("01") + ".", 0, {0}}}) {
        SCOPED_TRACE(name);
        sign.Renew();
        const std::uint64_t slept = clock.SleptMs();
        const std::size_t answers = Play(sign, Words({"+0A0B0C0D", script}));
        EXPECT_EQ(vxTarsisSetTileCmd(300, 2), result);
        EXPECT_EQ(sign.progress, progress);
        ASSERT_EQ(sign.requests.size(), answers);
        EXPECT_EQ(clock.SleptMs() - slept, 100 * (answers - 2));
        EXPECT_EQ(sign.Road().substr(0, 10), "12.11 12.4");
        EXPECT_EQ(sign.requests[1].Payload(), Hex("0A0B0C0D 00000000"));
        EXPECT_EQ(sign.requests.back().bytes, sign.requests[1].bytes) << "the same packet again";
    }
}

class FirstTileFiles : public ScriptedTest
{
protected:
    const std::string local = folder.Write("file", "abc");
};

TEST_F(FirstTileFiles, AreInstalledInFixedPlaces)
{
    using Row = std::tuple<std::uint8_t, const char*, const char*, const char*>;
    for (const auto& [type, wantedStatus, staged, offset] :
         {Row{0, "=0808000000", "C:\\R_DATA\\R.DAT", "00000000"},
          Row{1, "=0808000000", "C:\\DRIVER\\DRV.DAT", "D01A0000"},
          Row{2, "=0808000000", "C:\\CTL_FPGA\\FPGA.DAT", "F0600000"},
          Row{3, "=0808000000", "C:\\BACKUP\\CPU.BIN", "98E10100"},
          Row{4, "=0808008310", "C:\\R_DATA\\BRBLOCK.DAT", "40940100"},
          Row{4, "=0808008410", "C:\\R_DATA\\BRBLOCK.DAT", "30500100"},
          Row{4, "=080800FF10", "C:\\R_DATA\\BRBLOCK.DAT", "30500100"},
          Row{4, "=0808000011", "C:\\R_DATA\\BRBLOCK.DAT", "40940100"}}) {
        SCOPED_TRACE(std::string(staged) + wantedStatus);
        sign.requests.clear();
        Play(sign, Words({"+01", wantedStatus, ". +02000000", kDone, "+03 +04000000", kDone}));
        EXPECT_EQ(vxTarsisWriteTileFile(local.c_str(), 256, type), 0u);
        ASSERT_EQ(sign.Road(), "12.7 12.2 2.13 12.15 12.4 12.4 12.9 12.11 12.4 12.4");
        const Bytes path = FromText(staged) + Bytes{0};
        EXPECT_EQ(sign.requests[1].Payload(), Hex("01000000"));
        const Bytes copied = sign.requests[2].Payload();
        EXPECT_EQ(Bytes(copied.begin() + 14, copied.begin() + 14 + static_cast<long>(path.size())), path);
        EXPECT_EQ(sign.requests[2].Extended(), FromText("abc"));
        EXPECT_EQ(sign.requests[3].Payload(), Hex(offset) + Hex("0000 02 00"));
        EXPECT_EQ(sign.requests[3].Extended(), path);
        EXPECT_EQ(sign.requests[4].Payload(), Hex("02000000 00000000"));
        EXPECT_EQ(sign.requests[6].Payload(), Hex("02120000"));
        EXPECT_EQ(sign.requests[7].Payload(), Hex("02020000"));
        EXPECT_EQ(sign.requests[8].Payload(), Hex("04000000 00000000"));
    }
}

TEST_F(FirstTileFiles, InstallingGoesOnToItsLastCommand)
{
    using Row = std::tuple<const char*, std::uint8_t, std::string, const char*, std::uint32_t>;
    for (const auto& [name, type, script, requests, result] :
         {Row{"no status task", 0, "!65535 +070C0000", "12.7 12.2", 3079},
          Row{"no answer to the question", 0, "+01 !36912", "12.7 12.2", 36912},
          Row{"another type of file", 5, Words({"+01", kStatus}), "12.7 12.2", 2},
          Row{"no copy", 0, Words({"+01", kStatus, "!8451 . +01", kDone}), "12.7 12.2 2.13 12.9 12.11 12.4 12.4", 0},
          Row{"no task to install", 0, Words({"+01", kStatus, ". !65535 !1 +01", kDone}),
              "12.7 12.2 2.13 12.15 12.9 12.11 12.4 12.4", 0},
          Row{"not installed", 0, Words({"+01", kStatus, ". +01 =000000000000000000000004 . . +01", kDone}),
              "12.7 12.2 2.13 12.15 12.4 12.4 12.9 12.11 12.4 12.4", 0},
          Row{"no last command", 0, Words({"+01", kStatus, "!8451 . !36881"}), "12.7 12.2 2.13 12.9 12.11", 36881}}) {
        SCOPED_TRACE(name);
        sign.requests.clear();
        Play(sign, script);
        EXPECT_EQ(vxTarsisWriteTileFile(local.c_str(), 1, type), result);
        EXPECT_EQ(sign.Road(), requests);
    }
    Play(sign, Words({"+01", kStatus, "!8451 . +01"}));
    sign.otherwise = [](const Packet&) { return Good({}, Bytes(12, 3)); };
    EXPECT_EQ(vxTarsisWriteTileFile(local.c_str(), 1, 0), 3u) << "a last command that never ends";
}

TEST_F(FirstTileFiles, CalibrationIsReadInBlocks)
{
    using Row = std::tuple<const char*, std::size_t, std::uint32_t>;
    for (const auto& [wantedStatus, size, firstOffset] :
         {Row{"=080800000000", 1184, 103488}, Row{"=0403008410DF", 248, 86064}, Row{"=0403000000E0", 888, 103488},
          Row{"=000000000000", 32, 103488}}) {
        SCOPED_TRACE(wantedStatus);
        sign.requests.clear();
        std::vector<Bytes> blocks;
        Play(sign, Words({"+07", wantedStatus}));
        sign.otherwise = [&](const Packet& request) {
            if (request.Minor() == 1) {
                blocks.push_back(request.Payload());
                return Good(Hex("08000000"));
            }
            return Good({}, Bytes(264, static_cast<std::uint8_t>(blocks.size())));
        };
        EXPECT_EQ(vxTarsisReadTileFile(local.c_str(), 1, 4), 0u);
        std::string expected;
        for (std::size_t i = 0; expected.size() < size; ++i) {
            expected += std::string(std::min<std::size_t>(264, size - expected.size()), static_cast<char>(i + 1));
            const std::size_t offset = firstOffset + 264 * i;
            ASSERT_LT(i, blocks.size());
            EXPECT_EQ(blocks[i], (Bytes{static_cast<std::uint8_t>(offset), static_cast<std::uint8_t>(offset >> 8),
                                        static_cast<std::uint8_t>(offset >> 16), 0, 8, 1, 1, 0}));
        }
        EXPECT_EQ(folder.Read("file"), expected);
    }
}

TEST_F(FirstTileFiles, ReadingFailures)
{
    using Row = std::tuple<const char*, std::uint8_t, const char*, std::string, std::uint32_t, std::string>;
    const std::string zeros(261, '\0');
    for (const auto& [name, type, place, script, result, left] :
         {Row{"another type of file", 3, "file", "", 2, "abc"}, Row{"no local file", 4, "no/such", "", 20737, "abc"},
          Row{"no block", 4, "file", "!65535", 65535, ""},
          Row{"a short block ends in zeros", 4, "file", "+01 =78797A +01 !36912", 36912, "xyz" + zeros},
          Row{"a task that fails", 4, "file", "+01 =78797A +01 +040C0000", 3076, "xyz" + zeros}}) {
        SCOPED_TRACE(name);
        Play(sign, Words({"+01", kStatus, script}));
        folder.Write("file", "abc");
        EXPECT_EQ(vxTarsisReadTileFile(folder.Path(place).c_str(), 1, type), result);
        EXPECT_EQ(folder.Read("file"), left);
    }
    // A number that no tile has: the status task does not start, but another's result may be there.
    Play(sign, kStatus);
    EXPECT_EQ(vxTarsisReadTileFile(local.c_str(), 495, 4), 2u);
    EXPECT_EQ(sign.requests.back().Minor(), 2);
}

} // namespace
} // namespace vxsign::test
