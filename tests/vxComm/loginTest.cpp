// Login and passwords: major 10.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

TEST(Login, RequestsCutTheirTexts)
{
    std::uint32_t total;
    std::uint8_t entries[68];
    ExpectRequests({
        {"vxLogin", [] { return vxLogin("admin", "1234"); }, 10, 1, "61646D696E 000000000000000000 31323334 0000", ""},
        {"vxLogin cut", [] { return vxLogin("ABCDEFGHIJKLMNOPQRST", "1234567"); }, 10, 1,
         "4142434445464748494A4B4C4D 00 313233343536", ""},
        {"vxLogout", [] { return vxLogout(); }, 10, 2, "", ""},
        {"vxChangePSW", [] { return vxChangePSW("me", "1", "22"); }, 10, 3,
         "6D65 000000000000000000000000 310000000000 3232000000000000", ""},
        {"vxChangePSW cut", [] { return vxChangePSW("ABCDEFGHIJKLMN", "123456", "7890123"); }, 10, 3,
         "4142434445464748494A4B4C4D 00 313233343536 3738393031320000", ""},
        {"vxGetAPIServerTable", [&] { return vxGetAPIServerTable(&total, entries, 1); }, 10, 48, "00000000", ""},
    });
    ExpectArgumentsError({
        {"vxLogin user", [] { return vxLogin(nullptr, "1"); }},
        {"vxLogin password", [] { return vxLogin("me", nullptr); }},
        {"vxChangePSW user", [] { return vxChangePSW(nullptr, "1", "2"); }},
        {"vxChangePSW old", [] { return vxChangePSW("me", nullptr, "2"); }},
        {"vxChangePSW new", [] { return vxChangePSW("me", "1", nullptr); }},
        {"vxGetAPIServerTable total", [&] { return vxGetAPIServerTable(nullptr, entries, 1); }},
        {"vxGetAPIServerTable entries", [&] { return vxGetAPIServerTable(&total, nullptr, 1); }},
    });
}

TEST(Login, ServerTableInWholeRecords)
{
    ScriptedSign sign;
    std::uint32_t total = 0;
    Bytes entries(204, 0xEE);
    const auto get = [&](std::uint32_t most) { return vxGetAPIServerTable(&total, entries.data(), most); };

    sign.Then(Good(Hex("07000909"), Bytes(200, 1)));
    EXPECT_EQ(get(0xFFFFFFFF), 0u);
    EXPECT_EQ(total, 7u);
    EXPECT_EQ(entries, Bytes(136, 1) + Bytes(68, 0xEE)) << "200 bytes are two records";
    sign.Then(Good(Hex("07000000"), Bytes(200, 2)));
    EXPECT_EQ(get(1), 0u);
    EXPECT_EQ(entries, Bytes(68, 2) + Bytes(68, 1) + Bytes(68, 0xEE));
    sign.Then(Good({}, Bytes(67, 3))).Then(Refusal(36912));
    EXPECT_EQ(get(3), 0u);
    EXPECT_EQ(get(3), 36912u);
    EXPECT_EQ(entries[0], 2);
}

} // namespace
} // namespace vxsign::test
