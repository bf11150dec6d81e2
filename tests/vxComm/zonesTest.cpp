// Zones and pages: major 54.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint8_t kData[] = {0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6, 0xA7, 0xA8, 0xA9, 0xAA, 0xAB, 0xAC, 0xAD};
constexpr ZoneHead kTwoZones{{1, 2, 3}, 2, {4, 5, 6, 7}};
constexpr DisplayHead kDisplay{{0x11, 0x12}, 3, {0x13, 0x14}};
constexpr ContentHead kContent{{1, 2, 3, 4, 5, 6}, 2};
constexpr SpeZoneHead kSpecial{{1, 2, 3, 4, 5, 6}, 3, {7, 8, 9, 10}};

constexpr char kDisplayBytes[] = "1112000000000000 0000000000000000 0000000000000000 00000000 0300 1314 A1A2A3";

TEST(Zones, Requests)
{
    Bytes entries = Bytes(12, 0xB1) + Bytes(12, 0xB2);
    void* at = entries.data();
    constexpr char kDivision[] = "01020302 04050607 B1B1B1B1B1B1B1B1B1B1B1B1 B2B2B2B2B2B2B2B2B2B2B2B2";
    DisplayHead bare = kDisplay;
    bare.dataLength = 0;
    ExpectRequests({
        {"vxDivideZoneBase", [] { return vxDivideZoneBase(1, 2, kData, 5); }, 54, 1, "01020000", "A1A2A3A4A5"},
        {"vxDivideZoneBase of nothing", [] { return vxDivideZoneBase(1, 2, nullptr, 0); }, 54, 1, "01020000", ""},
        {"vxDivideZone", [&] { return vxDivideZone(1, 2, kTwoZones, at); }, 54, 1, "01020000", kDivision},
        {"vxDivideZone4j", [&] { return vxDivideZone4j(1, 2, &kTwoZones, &at); }, 54, 1, "01020000", kDivision},
        {"vxSetDisplayBase", [] { return vxSetDisplayBase(1, 2, 3, kData, 1); }, 54, 3, "01020300", "A1"},
        {"vxSetDisplay", [] { return vxSetDisplay(1, 2, 3, kDisplay, kData); }, 54, 3, "01020300", kDisplayBytes},
        {"vxSetDisplay4j", [] { return vxSetDisplay4j(1, 2, 3, &kDisplay, kData); }, 54, 3, "01020300", kDisplayBytes},
        {"vxSetDisplay of its head", [=] { return vxSetDisplay(1, 2, 3, bare, nullptr); }, 54, 3, "01020300",
         "1112000000000000 0000000000000000 0000000000000000 00000000 0000 1314"},
        {"vxSetContentDisplayBase", [] { return vxSetContentDisplayBase(1, 2, kData, 2); }, 54, 4, "01020000", "A1A2"},
        {"vxSetContentDisplay", [] { return vxSetContentDisplay(1, 2, kContent, kData); }, 54, 4, "01020000",
         "0102030405060200 A1A2"},
        {"vxSetContentDisplay4j", [] { return vxSetContentDisplay4j(1, 2, &kContent, kData); }, 54, 4, "01020000",
         "0102030405060200 A1A2"},
        {"vxSetEnableMulitZone", [] { return vxSetEnableMulitZone(1); }, 54, 5, "01000000", ""},
        {"vxSetPageCount", [] { return vxSetPageCount(21); }, 54, 6, "15000000", ""},
        {"vxDivideSpeZone", [] { return vxDivideSpeZone(9, kSpecial, kData); }, 54, 7, "09000000",
         "010203040506 0300 0708090A A1A2A3A4A5A6A7A8A9AAABAC"},
    });
    std::uint8_t out[12];
    std::uint8_t* list = out;
    ZoneHead head;
    ExpectRequests({
        {"vxGetZoneBase", [&] { return vxGetZoneBase(out, 12); }, 54, 2, "", ""},
        {"vxGetZone", [&] { return vxGetZone(&head, out, 0, 9); }, 54, 2, "09000000", ""},
        {"vxGetZone4j", [&] { return vxGetZone4j(&head, &list, 0, 9); }, 54, 2, "09000000", ""},
        {"vxGetMulitZoneSetting", [&] { return vxGetMulitZoneSetting(out, out); }, 54, 8, "", ""},
    });
}

TEST(Zones, Replies)
{
    using Out = std::uint8_t*;
    const auto getZone = [](Out out, std::uint8_t most) { return vxGetZone(At<ZoneHead>(out, 0), out + 8, most, 1); };
    constexpr char kTwo[] = "0000000200000000 C1C1C1C1C1C1C1C1C1C1C1C1 C2C2C2C2C2C2C2C2C2C2C2C2";
    constexpr char kOne[] = "0000000200000000 C1C1C1C1C1C1C1C1C1C1C1C1";
    ExpectReplies({
        {"vxGetZoneBase", [](Out out) { return vxGetZoneBase(out, 9); }, "01020304", "A1A2A3", "A1A2A3"},
        {"vxGetZoneBase cut", [](Out out) { return vxGetZoneBase(out, 2); }, "", "A1A2A3", "A1A2"},
        {"vxGetZone of all", [=](Out out) { return getZone(out, 9); }, "01020304", kTwo, kTwo},
        {"vxGetZone of the first", [=](Out out) { return getZone(out, 1); }, "01020304", kTwo, kOne},
        {"vxGetZone of none", [=](Out out) { return getZone(out, 0); }, "01020304", kTwo, "0000000200000000"},
        {"vxGetZone of two words", [=](Out out) { return getZone(out, 1); }, "01020304 00000002 00000000", kTwo + 16,
         kOne},
        {"vxGetZone announced only", [=](Out out) { return getZone(out, 2); }, "01020304", "000000FF00000000 C1",
         "000000FF00000000 C10000000000000000000000 000000000000000000000000"},
        {"vxGetZone4j",
         [](Out out) {
             Out entries = out + 8;
             return vxGetZone4j(At<ZoneHead>(out, 0), &entries, 1, 1);
         },
         "01020304", kTwo, kOne},
        {"vxGetMulitZoneSetting", [](Out out) { return vxGetMulitZoneSetting(out + 1, out); }, "A1A2A3A4", "", "A2A1"},
    });
}

TEST(Zones, ArgumentsErrors)
{
    Bytes data(3072);
    void* none = nullptr;
    std::uint8_t* noEntries = nullptr;
    std::uint8_t out[12];
    ZoneHead head;
    ExpectArgumentsError({
        {"vxDivideZoneBase", [] { return vxDivideZoneBase(1, 2, nullptr, 1); }},
        {"vxDivideZone entries", [] { return vxDivideZone(1, 2, kTwoZones, nullptr); }},
        {"vxDivideZone of 128",
         [&] {
             return vxDivideZone(1, 2, {{}, 128, {}}, data.data());
         }},
        {"vxDivideZone4j head", [&] { return vxDivideZone4j(1, 2, nullptr, &none); }},
        {"vxDivideZone4j entries", [] { return vxDivideZone4j(1, 2, &kTwoZones, nullptr); }},
        {"vxDivideZone4j null entries", [&] { return vxDivideZone4j(1, 2, &kTwoZones, &none); }},
        {"vxGetZoneBase", [] { return vxGetZoneBase(nullptr, 1); }},
        {"vxGetZoneBase of nothing", [&] { return vxGetZoneBase(out, 0); }},
        {"vxGetZone head", [&] { return vxGetZone(nullptr, out, 1, 1); }},
        {"vxGetZone entries", [&] { return vxGetZone(&head, nullptr, 1, 1); }},
        {"vxGetZone4j entries", [&] { return vxGetZone4j(&head, nullptr, 1, 1); }},
        {"vxGetZone4j null entries", [&] { return vxGetZone4j(&head, &noEntries, 1, 1); }},
        {"vxSetDisplay", [] { return vxSetDisplay(1, 2, 3, kDisplay, nullptr); }},
        {"vxSetDisplay over the buffer",
         [&] {
             return vxSetDisplay(1, 2, 3, {{}, 3021, {}}, data.data());
         }},
        {"vxSetDisplay4j", [&] { return vxSetDisplay4j(1, 2, 3, nullptr, kData); }},
        {"vxSetContentDisplay4j", [&] { return vxSetContentDisplay4j(1, 2, nullptr, kData); }},
        {"vxSetContentDisplay over the buffer",
         [&] {
             return vxSetContentDisplay(1, 2, {{}, 65535}, data.data());
         }},
        {"vxDivideSpeZone", [] { return vxDivideSpeZone(1, kSpecial, nullptr); }},
        {"vxDivideSpeZone over the buffer",
         [&] {
             return vxDivideSpeZone(1, {{}, 761, {}}, data.data());
         }},
        {"vxGetMulitZoneSetting enable", [&] { return vxGetMulitZoneSetting(nullptr, out); }},
        {"vxGetMulitZoneSetting count", [&] { return vxGetMulitZoneSetting(out, nullptr); }},
    });
}

// The longest of each that goes out.
TEST(Zones, LongestRequests)
{
    const Bytes data(3072, 0x77);
    ScriptedSign sign;
    sign.Then(3, Good());
    EXPECT_EQ(vxDivideZone(1, 2, {{}, 127, {}}, data.data()), 0u);
    EXPECT_EQ(vxSetDisplay(1, 2, 3, {{}, 3020, {}}, data.data()), 0u);
    EXPECT_EQ(vxDivideSpeZone(1, {{}, 760, {}}, data.data()), 0u);
    ASSERT_EQ(sign.requests.size(), 3u);
    EXPECT_EQ(sign.requests[0].Extended(), Hex("0000007F00000000") + Bytes(1524, 0x77));
    EXPECT_EQ(sign.requests[1].bytes.size(), 3072u);
    EXPECT_EQ(sign.requests[2].bytes.size(), 3072u);
}

} // namespace
} // namespace vxsign::test
