// The extra board: major 96.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint8_t kData[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                                  16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30,
                                  31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45};
constexpr char kInfo[] = "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B2C";

TEST(ExtraBoard, Requests)
{
    std::uint8_t out[68];
    std::uint8_t info[44];
    std::copy_n(kData, sizeof info, info);
    std::uint32_t result = 0;
    ExpectRequests({
        {"vxExtraCollectCtrl", [] { return vxExtraCollectCtrl(kData, 3); }, 96, 48, "", "0102030405060708"},
        {"vxExtraCollectRead", [&] { return vxExtraCollectRead(out, 3); }, 96, 49, "", ""},
        {"vxExtraIOCtrl", [] { return vxExtraIOCtrl(kData, 3); }, 96, 64, "", "0102030405060708090A0B0C0D0E0F10"},
        {"vxExtraIORead", [&] { return vxExtraIORead(out, 3); }, 96, 65, "", ""},
        {"vxExtraWifiUnlock", [&] { return vxExtraWifiUnlock(kData, 3, &result); }, 96, 96, "", "010203"},
        {"vxExtraWifiUnlock of nothing", [&] { return vxExtraWifiUnlock(nullptr, 0, &result); }, 96, 96, "", ""},
        {"vxExtraWifiSetInfo", [] { return vxExtraWifiSetInfo(kData); }, 96, 97, "", kInfo},
        {"vxExtraWifiGetInfo", [&] { return vxExtraWifiGetInfo(info); }, 96, 98, "", kInfo},
        {"vxExtraWifiReset", [] { return vxExtraWifiReset(); }, 96, 99, "", ""},
    });
    ExpectArgumentsError({
        {"vxExtraCollectCtrl", [] { return vxExtraCollectCtrl(nullptr, 3); }},
        {"vxExtraCollectRead", [] { return vxExtraCollectRead(nullptr, 3); }},
        {"vxExtraIOCtrl", [] { return vxExtraIOCtrl(nullptr, 3); }},
        {"vxExtraIORead", [] { return vxExtraIORead(nullptr, 3); }},
        {"vxExtraWifiUnlock data", [&] { return vxExtraWifiUnlock(nullptr, 1, &result); }},
        {"vxExtraWifiUnlock result", [] { return vxExtraWifiUnlock(kData, 3, nullptr); }},
        {"vxExtraWifiSetInfo", [] { return vxExtraWifiSetInfo(nullptr); }},
        {"vxExtraWifiGetInfo", [] { return vxExtraWifiGetInfo(nullptr); }},
    });
}

TEST(ExtraBoard, Replies)
{
    using Out = std::uint8_t*;
    constexpr char kForty[] = "A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1 B1B2";
    constexpr char kThirtyEight[] = "A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1";
    ExpectReplies({
        {"vxExtraCollectRead", [](Out out) { return vxExtraCollectRead(out, 3); }, "01020304", kForty, kThirtyEight},
        {"vxExtraCollectRead of two", [](Out out) { return vxExtraCollectRead(out, 3); }, "", "A1A2", "A1A2"},
        {"vxExtraIORead", [](Out out) { return vxExtraIORead(out, 3); }, "", kForty, kForty},
        {"vxExtraWifiUnlock", [](Out out) { return vxExtraWifiUnlock(kData, 1, At<std::uint32_t>(out, 0)); },
         "A1A2A3A4", "B1", "A1A2A3A4"},
        {"vxExtraWifiGetInfo", [](Out out) { return vxExtraWifiGetInfo(out); }, "01020304", "A1A2A3", "A1A2A3"},
    });
    ScriptedSign sign;
    Bytes out(70, 0xEE);
    sign.Then(Good({}, Bytes(69, 0x11))).Then(Good({}, Bytes(45, 0x22)));
    EXPECT_EQ(vxExtraIORead(out.data(), 3), 0u);
    EXPECT_EQ(out, Bytes(68, 0x11) + Bytes(2, 0xEE));
    EXPECT_EQ(vxExtraWifiGetInfo(out.data()), 0u);
    EXPECT_EQ(out, Bytes(44, 0x22) + Bytes(24, 0x11) + Bytes(2, 0xEE));
}

// Packets to a board have its address; the thread's own is not touched, not even while the command runs.
TEST(ExtraBoard, Addresses)
{
    ScriptedSign sign;
    sign.Config().destinationAddress = 0x0707;
    std::uint8_t out[68];
    const std::function<std::uint32_t()> calls[] = {
        [&] { return vxExtraCollectRead(out, 3); }, [] { return vxExtraCollectCtrl(kData, 255); },
        [&] { return vxExtraIORead(out, 3); },      [] { return vxExtraIOCtrl(kData, 0); },
        [] { return vxExtraWifiReset(); },
    };
    std::vector<std::uint16_t> during;
    sign.otherwise = [&](const Packet&) {
        during.push_back(sign.Config().destinationAddress);
        return Good();
    };
    for (const auto& call : calls)
        EXPECT_EQ(call(), 0u);
    std::vector<std::uint16_t> addresses;
    for (const Packet& request : sign.requests)
        addresses.push_back(request.Word(8));
    EXPECT_EQ(addresses, (std::vector<std::uint16_t>{0x0302, 0xFF02, 0x0304, 0x0004, 0x0707}));
    EXPECT_EQ(during, std::vector<std::uint16_t>(5, 0x0707));
}

} // namespace
} // namespace vxsign::test
