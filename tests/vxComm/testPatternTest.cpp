// Test patterns and the clock: majors 3 and 5.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint64_t kArea[] = {0x0807060504030201, 0x11, 0x22};
constexpr vxCrayState kCray{0x04030201, 0x0605};
constexpr std::uint16_t kPlaces[] = {0x0201, 0x0403, 0x0605};

TEST(TestPatterns, Requests)
{
    std::uint16_t word;
    std::uint32_t number;
    std::uint8_t byte;
    ExpectRequests({
        {"vxConnectTest", [&] { return vxConnectTest(&word, &word, &number); }, 3, 1, "", ""},
        {"vxPatternTest 2", [] { return vxPatternTest(2); }, 3, 2, "", ""},
        {"vxPatternTest 11", [] { return vxPatternTest(11); }, 3, 11, "", ""},
        {"vxPatternTest 15", [] { return vxPatternTest(15); }, 3, 15, "", ""},
        {"vxStopTest", [] { return vxStopTest(); }, 3, 9, "", ""},
        {"vxCrayTest", [] { return vxCrayTest(&kCray); }, 3, 10, "01020304 05060000", ""},
        {"vxColorTest", [] { return vxColorTest(1, 2, 3); }, 3, 11, "01020300 00000000 00000000 00000000", ""},
        {"vxAreaTest", [] { return vxAreaTest(kArea); }, 3, 13, "01020304 05060708 11000000 00000000 22000000 00000000",
         ""},
        {"vxLocationTest", [] { return vxLocationTest(1, 2, 3, 4, kPlaces, 3, 0x0506); }, 3, 16,
         "0100 0200 0300 0400 0605 0000 00000000", "010203040506"},
        {"vxLocationTest of none", [] { return vxLocationTest(1, 2, 3, 4, nullptr, 0, 5); }, 3, 16,
         "0100 0200 0300 0400 0500 0000 00000000", ""},
        {"vxDebugInfoSetting", [] { return vxDebugInfoSetting(0x01020304); }, 3, 48, "04030201", ""},
        {"vxStabilityTest", [] { return vxStabilityTest("abc", 3, 9); }, 3, 49, "", "616263"},
        {"vxStabilityTest of nothing", [] { return vxStabilityTest(nullptr, 0, 9); }, 3, 49, "", ""},
        {"vxReadLEDTime", [&] { return vxReadLEDTime(&word, &byte, &byte, &byte, &byte, &byte, &byte, &byte); }, 5, 1,
         "", ""},
        {"vxAjustLEDTimeEx", [] { return vxAjustLEDTimeEx(2020, 12, 31, 23, 59, 45, 6, 0xFE); }, 5, 4,
         "2020 12 31 23 59 45 06 FE 000000", ""},
        {"vxAjustLEDTimeEx 1999", [] { return vxAjustLEDTimeEx(1999, 1, 2, 3, 4, 5, 6, 7); }, 5, 4,
         "9919 01 02 03 04 05 06 07 000000", ""},
        {"vxWriteSpeedLimit", [] { return vxWriteSpeedLimit(0x0102, 0x0304); }, 5, 5, "02010403 00000000", ""},
    });
}

TEST(TestPatterns, ArgumentsErrors)
{
    std::uint16_t word;
    std::uint32_t number;
    std::uint8_t byte;
    const auto time = [&](int missing) {
        const auto b = [&](int place) { return place == missing ? nullptr : &byte; };
        return vxReadLEDTime(missing == 1 ? nullptr : &word, b(2), b(3), b(4), b(5), b(6), b(7), b(8));
    };
    ExpectArgumentsError({
        {"vxConnectTest first", [&] { return vxConnectTest(nullptr, &word, &number); }},
        {"vxConnectTest second", [&] { return vxConnectTest(&word, nullptr, &number); }},
        {"vxConnectTest third", [&] { return vxConnectTest(&word, &word, nullptr); }},
        {"vxPatternTest 1", [] { return vxPatternTest(1); }},
        {"vxPatternTest 16", [] { return vxPatternTest(16); }},
        {"vxCrayTest", [] { return vxCrayTest(nullptr); }},
        {"vxAreaTest", [] { return vxAreaTest(nullptr); }},
        {"vxLocationTest", [] { return vxLocationTest(1, 2, 3, 4, nullptr, 1, 5); }},
        {"vxLocationTest over the buffer", [] { return vxLocationTest(1, 2, 3, 4, Bytes(3042).data(), 1521, 5); }},
        {"vxLocationTest of a length that wraps", [] { return vxLocationTest(1, 2, 3, 4, kPlaces, 0x80000001, 5); }},
        {"vxStabilityTest", [] { return vxStabilityTest(nullptr, 1, 5); }},
    });
    for (int missing = 1; missing <= 8; ++missing)
        ExpectArgumentsError({{"vxReadLEDTime", [&] { return time(missing); }}});
}

TEST(TestPatterns, Replies)
{
    using Out = std::uint8_t*;
    const auto time = [](Out out) {
        return vxReadLEDTime(At<std::uint16_t>(out, 0), out + 2, out + 3, out + 4, out + 5, out + 6, out + 7, out + 8);
    };
    ExpectReplies({
        {"vxConnectTest",
         [](Out out) {
             return vxConnectTest(At<std::uint16_t>(out, 0), At<std::uint16_t>(out, 2), At<std::uint32_t>(out, 4));
         },
         "0102030405060708", "", "0102030405060708"},
        {"vxReadLEDTime", time, "2020 12 31 23 59 45 9A", "", "E407 0C 1F 17 3B 00 2D 9A"},
        {"vxReadLEDTime without digits", time, "FFFF FF FF FF FF FF FF", "", "1941 A5 A5 A5 A5 00 A5 FF"},
        {"vxReadLEDTime of nothing", time, "", "", "0000 00 00 00 00 00 00 00"},
    });
}

TEST(TestPatterns, StabilityTestSetsTheIds)
{
    ScriptedSign sign;
    sign.Then(3, Good());
    EXPECT_EQ(vxStabilityTest("", 0, 65535), 0u);
    EXPECT_EQ(vxStopTest(), 0u);
    EXPECT_EQ(vxStabilityTest("", 0, 0x1233), 0u);
    EXPECT_EQ(sign.requests[0].Id(), 0);
    EXPECT_EQ(sign.requests[1].Id(), 1);
    EXPECT_EQ(sign.requests[2].Id(), 0x1234);
}

TEST(SendTempHumi, IsSentOnceWhateverComesBack)
{
    struct Row
    {
        std::int8_t value;
        const char* payload;
    };
    for (const Row& row : {Row{25, "07900100"}, Row{-1, "07F00F00"}, Row{0, "07000000"}, Row{127, "07F00700"},
                           Row{-128, "07000800"}, Row{-100, "07C00900"}}) {
        SCOPED_TRACE(int(row.value));
        ScriptedSign sign;
        EXPECT_EQ(vxSendTempHumi(7, row.value), 0u) << "no answer";
        ASSERT_EQ(sign.requests.size(), 1u);
        EXPECT_EQ(sign.requests[0].Major(), 5);
        EXPECT_EQ(sign.requests[0].Minor(), 3);
        EXPECT_EQ(sign.requests[0].Payload(), Hex(row.payload));
        sign.Then(Refusal(36912));
        EXPECT_EQ(vxSendTempHumi(7, row.value), 0u);
        EXPECT_TRUE(sign.log.empty());
    }
}

} // namespace
} // namespace vxsign::test
