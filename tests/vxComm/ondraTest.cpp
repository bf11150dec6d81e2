// Tiles of the second family: major 28.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

constexpr std::uint8_t kData[] = {0xA1, 0xA2, 0xA3};

class SecondTiles : public ScriptedTest
{
protected:
    std::string file = folder.Write("file", "abc");
    const char* local = file.c_str();
    std::uint32_t detail = 0xEEEEEEEE;
};

// Each operation with a task: the copy to the sign's disk, if any, its start, and how it waits.
TEST_F(SecondTiles, TasksAreStartedAndWaitedFor)
{
    const Bytes params(88, 0x99);
    struct Row
    {
        std::function<std::uint32_t()> call;
        const char* payload;
        Bytes extended;
        std::uint32_t limitMs; // 0 for none
        std::uint8_t minor;    // 1 reads a file, 2 writes one, by way of the sign's disk
    };
    const auto path = [](const char* text) { return FromText(text) + Bytes{0}; };
    const Bytes calibrated = FromText("C:\\port7\\00ff.bri") + Bytes(47, 0);
    const Bytes mode0 = calibrated + Hex("01000000") + params + Bytes(36, 0);
    const Bytes mode2 = calibrated + Bytes(128, 0);
    const Row rows[] = {
        {[] { return vxOndraTileTest(9, 1, 0x0203); }, "0302010900000000", {}, 0, 4},
        {[] { return vxOndraTileCMD(9, 1, 0x0203, kData, 3); }, "0302010900000000", Hex("A1A2A3"), 300000, 5},
        {[] { return vxOndraTileCMDTimeout(9, 1, 2, nullptr, 0, 250); }, "0200010900000000", {}, 250, 5},
        {[] { return vxOndraPicCalShow(1, 0x0203, 4, 0xFFFF); }, "010003020400FFFF00000000", {}, 0, 8},
        {[&] { return vxOndraReadTileFile(local, 10, 254, 0xABC, 0, &detail); }, "BC0AFE0A00000000", {}, 300000, 1},
        {[&] { return vxOndraReadTileFileTimeout(local, 0, 0, 1, 0, &detail, 50); }, "0100000000000000", {}, 50, 1},
        {[&] { return vxOndraReadTileFileExt(local, 13, 1, 2, 0x77, 0, &detail); }, "0200010D77000000", {}, 0, 1},
        {[&] { return vxOndraWriteTileFile(local, 0, 10, 65535, &detail); }, "FFFF0A0000000000",
         path("C:\\port10\\ffff.cpu"), 0, 2},
        {[&] { return vxOndraWriteTileFileExt(local, 13, 254, 0xABC, 5, &detail); }, "BC0AFE0D05000000",
         path("C:\\port254\\0abc.mcc"), 0, 2},
        {[&] { return vxOndraWriteTileFileExt(local, 19, 1, 2, 5, &detail); }, "0200011305000000",
         path("C:\\port1\\0002.cpu"), 0, 2},
        {[&] { return vxOndraWritePxlCal(local, 7, 255, 0, &detail, params.data()); }, "FF00070500000000", mode0, 0, 2},
        {[&] { return vxOndraWritePxlCal(local, 7, 255, 2, &detail, nullptr); }, "FF00070500000000", mode2, 0, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        sign.Renew();
        const bool reads = row.minor == 1;
        const bool copies = row.minor == 2;
        const bool details = reads || copies;
        const std::uint32_t sleepMs = reads ? 20 : 100;
        const auto run = [&](const std::string& answers) {
            sign.requests.clear();
            sign.progress.clear();
            detail = 0xEEEEEEEE;
            Play(sign, Words({copies ? "." : "", answers}));
            return row.call();
        };
        const std::uint64_t before = clock.SleptMs();
        if (reads)
            sign.otherwise = [](const Packet&) { return Good(Hex("03000000"), FromText("abc")); };
        EXPECT_EQ(run("+0A0B0C0D =05010000 =FF020000 =64043412"), 0u);
        const std::size_t start = copies ? 1 : 0;
        ASSERT_EQ(sign.requests.size(), start + 4 + (reads ? 1 : 0));
        EXPECT_EQ(sign.requests[start].Major(), 28);
        EXPECT_EQ(sign.requests[start].Minor(), row.minor);
        EXPECT_EQ(sign.requests[start].Payload(), Hex(row.payload));
        EXPECT_EQ(sign.requests[start].Extended(), row.extended);
        if (copies) {
            EXPECT_EQ(sign.requests[0].Major(), 2);
            EXPECT_EQ(sign.requests[0].Extended(), FromText("abc"));
            const Bytes record = sign.requests[0].Payload();
            const auto end = std::find(row.extended.begin(), row.extended.end(), 0);
            EXPECT_TRUE(std::equal(row.extended.begin(), end, record.begin() + 14)) << "the path is the task's";
        }
        for (std::size_t i = 1; i < 4; ++i) {
            EXPECT_EQ(sign.requests[start + i].Minor(), 3);
            EXPECT_EQ(sign.requests[start + i].Payload(), Hex("0A0B0C0D 00000000"));
        }
        ASSERT_GE(sign.progress.size(), start + 2);
        EXPECT_EQ(sign.progress[start], 5u);
        EXPECT_EQ(sign.progress[start + 1], 100u) << "255 is the sign's word";
        EXPECT_EQ(clock.SleptMs() - before, 2 * sleepMs);
        EXPECT_EQ(detail, details ? 0x1234u : 0xEEEEEEEEu);

        EXPECT_EQ(run("+01 =64037856"), 3078u);
        EXPECT_EQ(detail, details ? 0x5678u : 0xEEEEEEEEu);
        EXPECT_EQ(run("!65535"), 65535u);
        EXPECT_EQ(run("=0A0B0C0D =64040000"), 0u);
        EXPECT_EQ(sign.requests[start + 1].Payload(), Bytes(8, 0)) << "an extended part names no task";
        if (copies) {
            Play(sign, "!8451");
            EXPECT_EQ(row.call(), 8451u) << "without a copy no task";
        }
        EXPECT_EQ(run("+01 =00010000 !3079"), 3079u);
        EXPECT_EQ(run("+01 ."), 3078u) << "no state is no success";
        EXPECT_EQ(detail, details ? 0u : 0xEEEEEEEEu);

        if (row.limitMs == 0)
            continue;
        sign.otherwise = [](const Packet&) { return Good(Hex("00020000")); };
        EXPECT_EQ(run(""), 4u);
        EXPECT_EQ(sign.requests.size(), 1 + row.limitMs / sleepMs + 1) << "the limit itself is still in time";
    }
}

TEST_F(SecondTiles, ExtensionsOfWhatIsRead)
{
    const char* const extensions[] = {".cpu", ".pga", ".gam", ".cfg", ".drv", ".bri", ".mod", ".sta",
                                      ".pix", ".ifo", ".all", ".rev", ".rev", ".rev", ".org", ".dst",
                                      ".gan", ".gap", ".dap", ".log", ".cpu", ".pga"};
    for (std::uint8_t type = 0; type < 22; ++type) {
        SCOPED_TRACE(int(type));
        const std::string path = std::string("C:\\port3\\00ab") + extensions[type];
        const auto expectPath = [&](std::uint32_t result) {
            EXPECT_EQ(result, 0u);
            const Bytes record = sign.requests.back().Payload();
            EXPECT_EQ(std::string(record.begin() + 8, std::find(record.begin() + 8, record.end(), 0)), path);
        };
        const Answer answer = Good(Hex("03000000"), FromText("abc"));
        sign.Then(answer);
        expectPath(vxOndraReadTileFileExt(local, type, 3, 0xAB, 0, 1, &detail));
        if (type < 11) {
            sign.Then(answer);
            expectPath(vxOndraReadTileFile(local, type, 3, 0xAB, -1, &detail));
        }
    }
    for (const Packet& request : sign.requests)
        EXPECT_EQ(request.Major(), 1) << "the tile is left alone";
    EXPECT_EQ(detail, 0xEEEEEEEEu);
    sign.Then(Refusal(36872));
    EXPECT_EQ(vxOndraReadTileFile(local, 0, 3, 0xAB, 1, &detail), 36872u);
}

TEST_F(SecondTiles, Burn)
{
    using Row = std::tuple<const char*, const char*, std::uint32_t>;
    for (const auto& [name, states, result] :
         {Row{"under way", "=09010000 =00020000 =0A010000", 0}, Row{"progress counts first", "=0A050000", 0},
          Row{"failed", "=00010000 =09030000", 3078}, Row{"failed otherwise", "=09050000", 3078},
          Row{"no answer", "=00010000 !3079", 3079}}) {
        SCOPED_TRACE(name);
        sign.Renew();
        const std::size_t answers = Play(sign, Words({". +0A0B0C0D", states}));
        const std::uint64_t before = clock.SleptMs();
        EXPECT_EQ(vxOndraWritePxlCalBurn(local, 7, 255, 1, 0x1234, nullptr, &detail), result);
        EXPECT_EQ(detail, 0x0D0C0B0Au);
        EXPECT_EQ(sign.requests[1].Payload(), Hex("FF00070500000000"));
        EXPECT_EQ(clock.SleptMs() - before, 100 * (answers - 3));
        EXPECT_EQ(sign.progress.size(), 1u) << "of the copy alone";
    }
    sign.Renew();
    Play(sign, "!8451 . +01 =0A010000");
    EXPECT_EQ(vxOndraWritePxlCalBurn(local, 1, 1, 0, 0, nullptr, &detail), 8451u);
    EXPECT_EQ(detail, 0u);
    EXPECT_EQ(vxOndraWritePxlCalBurn(local, 7, 255, 1, 0, nullptr, nullptr), 0u);
}

// A task that stays below progress 10 is given up ten minutes behind its last change, or when the flag is set.
TEST_F(SecondTiles, BurnThatDoesNotBegin)
{
    using Row = std::tuple<const char*, std::uint64_t, std::uint64_t, std::uint32_t, std::uint64_t>;
    constexpr std::uint64_t kNever = 10'000'000;
    for (const auto& [name, changeMs, abortMs, result, endMs] :
         {Row{"ended at once", 0, kNever, 20736, 600'100}, Row{"stirs", 900'000, kNever, 20736, 1'500'100},
          Row{"stopped", 900'000, 700'000, 20497, 700'000}}) {
        SCOPED_TRACE(name);
        sign.Renew();
        Play(sign, ". +01");
        const std::uint64_t start = clock.SleptMs();
        sign.otherwise = [&, changeMs = changeMs, abortMs = abortMs](const Packet&) {
            const std::uint64_t gone = clock.SleptMs() - start;
            sign.Config().abortFlag = gone >= abortMs ? 1 : 0;
            return Good({}, {static_cast<std::uint8_t>(std::min(gone, changeMs) / 100'000), 4, 0, 0});
        };
        EXPECT_EQ(vxOndraWritePxlCalBurn(local, 7, 255, 1, 0, nullptr, &detail), result);
        EXPECT_EQ(clock.SleptMs() - start, endMs);
    }

    // A limit of zero is over with the next millisecond.
    sign.Renew();
    sign.Config().abortFlag = 0;
    Play(sign, "+01 =00010000");
    EXPECT_EQ(vxOndraTileCMDTimeout(1, 2, 3, kData, 3, 0), 4u);
    sign.otherwise = [](const Packet&) {
        FakeClock::Advance(1);
        return Good();
    };
    EXPECT_EQ(vxOndraTileCMDTimeout(1, 2, 3, kData, 3, 0), 4u);
    EXPECT_EQ(sign.requests.size(), 3u);
}

} // namespace
} // namespace vxsign::test
