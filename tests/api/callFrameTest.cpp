// What stands around every command: the thread's record, its limits, its callbacks.
#include "support/scriptedSign.h"
#include "thread/socketSupport.h"
#include "vxBaseCMD/call.h"

#include <cstring>
#include <thread>

namespace vxsign::test {
namespace {

using CallFrame = ScriptedTest;

TEST_F(CallFrame, InitMarksTheRecordAndNumbersOutOfRangeAreCorrectedForGood)
{
    vxApiConfig config = sign.MakeConfig();
    config.initialised = 0;
    config.port = 4711;
    EXPECT_EQ(vxInitAPI(&config), 0u);
    config.port = 1;
    EXPECT_EQ(sign.Config().initialised, 1u);
    EXPECT_EQ(sign.Config().port, 4711u) << "the caller's own record is not referred to again";
    EXPECT_EQ(vxFreeAPI(), 0u);
    EXPECT_EQ(sign.Config().initialised, 1u);

    using Limits = std::tuple<std::uint32_t, std::uint32_t, std::uint16_t>;
    const Limits standard{3000, 3, 768};
    const std::pair<Limits, Limits> cases[] = {{{49, 0, 63}, standard},
                                               {{50, 1, 64}, {50, 1, 64}},
                                               {{60000, 100, 1280}, {60000, 100, 1280}},
                                               {{60001, 101, 1281}, standard}};
    for (const auto& [given, kept] : cases) {
        auto live = std::tie(sign.Config().timeoutMs, sign.Config().retries, sign.Config().dataSize);
        live = given;
        sign.Then(Good());
        vxBlackScreen();
        EXPECT_EQ(live, kept);
    }
}

TEST_F(CallFrame, WithoutInitNothingIsSentButTheCallbacksRun)
{
    sign.Config().initialised = 0;
    EXPECT_EQ(vxBlackScreen(), 20736u);
    EXPECT_EQ(sign.opened, 1);
    EXPECT_EQ(sign.closed, 1);
    EXPECT_TRUE(sign.requests.empty());

    // One callback alone does not count.
    sign.Renew();
    sign.Config().onWrite = nullptr;
    sign.Config().kind = 9; // no such channel
    EXPECT_EQ(vxBlackScreen(), 20736u);
    EXPECT_TRUE(sign.readWaits.empty());

    // Nothing is sent from a thread that was never set up.
    sign.Renew();
    std::uint32_t result = 0;
    vxApiConfig seen{};
    std::thread([&] {
        result = vxBlackScreen();
        seen = *static_cast<vxApiConfig*>(vxTLSGet(0));
    }).join();
    EXPECT_EQ(result, 20736u);
    EXPECT_EQ(sign.opened, 0);
    EXPECT_EQ(seen.initialised, 0u);
    EXPECT_EQ(seen.timeoutMs, 3000u) << "its record is put right all the same";
}

// Every place that calls a callback, with one that throws there.
TEST_F(CallFrame, NothingThatACallbackThrowsLeavesAnExport)
{
    using Config = vxApiConfig;
    using Number = std::uint32_t;
    constexpr auto open = [](Config& c) { c.onOpen = [](Config*) { throw 1; }; };
    constexpr auto close = [](Config& c) { c.onClose = [](Config*) { throw 1; }; };
    constexpr auto progress = [](Config& c) { c.onProgress = [](Config*, Number, Number) { throw 1; }; };
    constexpr auto log = [](Config& c) {
        c.onLog = [](Config*, const char*, Number, Number, const char*) { throw 1; };
    };
    constexpr auto read = [](Config& c) {
        c.onRead = [](Config*, std::uint8_t*, Number, Number) -> std::int32_t { throw 1; };
    };
    constexpr auto write = [](Config& c) {
        c.onWrite = [](Config*, const std::uint8_t*, Number, Number) -> std::int32_t { throw 1; };
    };
    constexpr auto convert = [](Config& c) {
        c.onMessageToGif = [](Config*, const char*, const char*, Number, Number) -> Number { throw 1; };
    };
    constexpr auto place = [](Config& c) { c.onTempPath = [](Config*, char*, Number) { throw 1; }; };

    const std::string lights = folder.Path("TRAFFICLIGHT.SYS");
    const std::uint8_t byte = 1;
    constexpr auto ignore = [](Number, const vxStatusRecord*, const std::uint8_t*, const char*) { return 0U; };
    *ThreadState() = {};
    const std::tuple<void (*)(Config&), std::function<Number()>, Number> rows[] = {
        {open, [] { return vxBlackScreen(); }, 20736},
        {close, [] { return vxBlackScreen(); }, 0},
        {progress, [&] { return vxUploadBuffer(&byte, 1); }, 20736},
        {progress, [] { return vxPxlChk("a", "b"); }, 20736},
        {progress, [&] { return vxRWFile(lights.c_str(), nullptr, VX_MOVE_READ); }, 20736},
        {log, [] { return vxPatternTest(9); }, 20736},
        {read, [] { return vxBlackScreen(); }, 20736},
        {write, [] { return vxBlackScreen(); }, 20736},
        {write, [&] { return vxWriteCmdBuf(&byte, 1); }, 21061},
        {log, [] { return Call<CBaseCMD>([](CBaseCMD&) -> Number { throw 1; }); }, 20736},
        {convert, [] { return vxCurrentMsg2Gif("x", "y"); }, 20736},
        {convert, [&] { return vxReadStatusInfo("x", 1, 0, ignore, 0, 0, 0); }, 20736},
        {place, [] { return vxInitProperty(); }, 20737},
    };
    int row = 0;
    for (const auto& [install, call, result] : rows) {
        sign.otherwise = [](const Packet& request) { return request.Major() == 3 ? Refusal(36912) : Good(); };
        sign.Renew();
        install(sign.Config());
        EXPECT_EQ(call(), result) << "row " << ++row;
    }
}

TEST(ThreadRecords, EachThreadHasItsOwn)
{
    void* const mine = vxTLSGet(0);
    EXPECT_EQ(vxTLSGet(0), mine);
    EXPECT_NE(vxTLSGet(1), nullptr);
    EXPECT_NE(vxTLSGet(2), nullptr);
    EXPECT_EQ(vxTLSGet(3), nullptr);
    EXPECT_EQ(vxTLSGet(-1), nullptr);
    std::thread([&] {
        EXPECT_NE(vxTLSGet(0), mine);
        const Bytes zeros(16 + 52 + 300);
        EXPECT_EQ(std::memcmp(vxTLSGet(1), zeros.data(), zeros.size()), 0);
    }).join();
}

int starts;
int stops;
int startResult;

TEST(SocketSupport, OnlyAFailedStartIsCounted)
{
    SocketSupport sockets([] { return ++starts, startResult; }, [] { ++stops; });
    starts = stops = startResult = 0;
    sockets.Start();
    sockets.Start();
    sockets.Stop();
    EXPECT_EQ(starts, 2) << "after a good start the next one runs again";
    EXPECT_EQ(stops, 0);
    startResult = 10091;
    sockets.Start();
    sockets.Start();
    EXPECT_EQ(starts, 3) << "after a failed start the next one does nothing";
    sockets.Stop();
    sockets.Stop();
    EXPECT_EQ(stops, 1);
    EXPECT_EQ(vxSocketup(), 0u);
    EXPECT_EQ(vxCleanSocket(), 0u);
    EXPECT_STREQ(vxAPIVersion(), "2.3.10 2020-05-13");
}

} // namespace
} // namespace vxsign::test
