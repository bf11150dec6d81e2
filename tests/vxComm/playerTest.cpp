// The player core: major 122.
#include "support/flatRows.h"

#include <string>

namespace vxsign::test {
namespace {

const std::uint8_t* Text(const char* text)
{
    return reinterpret_cast<const std::uint8_t*>(text);
}

const std::uint8_t* const kA = Text("A");
const std::uint8_t* const kBc = Text("BC");
const std::uint8_t* const kDef = Text("DEF");
constexpr ProjectExtra kExtra{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}};

TEST(Player, Requests)
{
    std::uint8_t out[4];
    ExpectRequests({
        {"vxCoreGetFileProperty", [&] { return vxCoreGetFileProperty(kBc, out, 4); }, 122, 1, "00000000", "4243"},
        {"vxCoreGetFileProperty of null", [&] { return vxCoreGetFileProperty(nullptr, out, 4); }, 122, 1, "00000000",
         ""},
        // One minor, two payloads: a flag without a text, or the length of a fourth text.
        {"vxCorePlayProgram", [] { return vxCorePlayProgram(kA, kBc, kDef, 3); }, 122, 2, "0100 0200 0300 03 00",
         "41 4243 444546"},
        {"vxCorePlayWindowProgram", [] { return vxCorePlayWindowProgram(kA, kBc, kDef, kDef); }, 122, 2,
         "0100 0200 0300 0300", "41 4243 444546 444546"},
        {"vxCorePlayProgram of two", [] { return vxCorePlayProgram(kA, kBc, nullptr, 255); }, 122, 2,
         "0100 0200 0000 FF 00", "41 4243"},
        {"vxCorePlayWindowProgram of two", [] { return vxCorePlayWindowProgram(kA, kBc, nullptr, nullptr); }, 122, 2,
         "0100 0200 0000 0000", "41 4243"},
        {"vxCoreStopPlay", [] { return vxCoreStopPlay(kDef); }, 122, 5, "03000000 00000000", "444546"},
        {"vxCoreStopPlay of null", [] { return vxCoreStopPlay(nullptr); }, 122, 5, "00000000 00000000", ""},
        {"vxCoreWinMode", [] { return vxCoreWinMode(1, kDef, 2); }, 122, 6, "01000000 00000000", "4445"},
        {"vxCoreWinMode of null", [] { return vxCoreWinMode(1, nullptr, 50); }, 122, 6, "01000000 00000000", ""},
        {"vxCoreProjectInfo", [] { return vxCoreProjectInfo(kBc, 0x0102, 0x0304); }, 122, 7, "0200 0201 0403 0000",
         "4243"},
        {"vxCoreProjectInfo of null", [] { return vxCoreProjectInfo(nullptr, 1, 2); }, 122, 7, "0000 0100 0200 0000",
         ""},
        {"vxCorePrjSyncProgress", [&] { return vxCorePrjSyncProgress(out, out); }, 122, 8, "00000000", ""},
        {"vxCoreGetPlayInfo", [&] { return vxCoreGetPlayInfo(out, 4); }, 122, 9, "00000000", ""},
        {"vxCoreSwitchProgram", [] { return vxCoreSwitchProgram(kBc, 2); }, 122, 10, "02 0200 00 00000000", "4243"},
        {"vxCoreSwitchMode", [] { return vxCoreSwitchMode(2); }, 122, 11, "02000000", ""},
        {"vxCorePlayEmergencyProgram", [] { return vxCorePlayEmergencyProgram(kA, kBc, kDef); }, 122, 12,
         "0100 0200 0300 0000", "41 4243 444546"},
        {"vxCoreStopEmergencyProgram", [] { return vxCoreStopEmergencyProgram(); }, 122, 13, "", ""},
        {"vxCoreProjectInfoEx", [] { return vxCoreProjectInfoEx(kBc, 0x0102, 0x0304, &kExtra); }, 122, 16,
         "0200 0201 0403 0000 01020304 05060708 090A0B0C 0D0E0F10 11121314", "4243"},
    });
}

// Texts are cut at 255 bytes, but the name of a program to stop by the low 8 bits of its length, and that of a file not
// at all.
TEST(Player, LongNames)
{
    const std::string text(300, 'x');
    const auto* const name = Text(text.c_str());
    std::uint8_t out[4];
    ScriptedSign sign;
    sign.Then(4, Good());
    EXPECT_EQ(vxCoreProjectInfo(name, 1, 2), 0u);
    EXPECT_EQ(vxCorePlayWindowProgram(name, kA, name, name), 0u);
    EXPECT_EQ(vxCoreStopPlay(name), 0u);
    EXPECT_EQ(vxCoreGetFileProperty(name, out, 4), 0u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("FF00 0100 0200 0000"));
    EXPECT_EQ(sign.requests[0].Extended(), Bytes(255, 'x'));
    EXPECT_EQ(sign.requests[1].Payload(), Hex("FF00 0100 FF00 FF00"));
    EXPECT_EQ(sign.requests[1].Extended(), Bytes(255, 'x') + Bytes{'A'} + Bytes(510, 'x'));
    EXPECT_EQ(sign.requests[2].Payload(), Hex("2C000000 00000000"));
    EXPECT_EQ(sign.requests[2].Extended(), Bytes(44, 'x'));
    EXPECT_EQ(sign.requests[3].Extended(), Bytes(300, 'x'));
}

TEST(Player, Replies)
{
    using Out = std::uint8_t*;
    ExpectReplies({
        // As many bytes as the extended part has, but from the payload on.
        {"vxCoreGetFileProperty", [](Out out) { return vxCoreGetFileProperty(kA, out, 9); }, "01020304", "A1A2A3A4A5",
         "01020304A1"},
        {"vxCoreGetFileProperty cut", [](Out out) { return vxCoreGetFileProperty(kA, out, 3); }, "", "A1A2A3A4A5",
         "A1A2A3"},
        {"vxCoreGetFileProperty of nothing", [](Out out) { return vxCoreGetFileProperty(kA, out, 9); }, "01020304", "",
         ""},
        {"vxCorePrjSyncProgress", [](Out out) { return vxCorePrjSyncProgress(out + 1, out); }, "A1A2A3A4", "", "A2A1"},
        {"vxCoreGetPlayInfo", [](Out out) { return vxCoreGetPlayInfo(out, 9); }, "01020304", "A1A2", "01020304A1A2"},
        {"vxCoreGetPlayInfo cut", [](Out out) { return vxCoreGetPlayInfo(out, 2); }, "01020304", "", "0102"},
    });
}

TEST(Player, ArgumentsErrors)
{
    const std::string tooLong(4000, 'x');
    std::uint8_t out[4];
    ExpectArgumentsError({
        {"vxCoreGetFileProperty out", [] { return vxCoreGetFileProperty(kA, nullptr, 4); }},
        {"vxCoreGetFileProperty of nothing", [&] { return vxCoreGetFileProperty(kA, out, 0); }},
        {"vxCoreGetFileProperty too long", [&] { return vxCoreGetFileProperty(Text(tooLong.c_str()), out, 4); }},
        {"vxCorePlayProgram text1", [] { return vxCorePlayProgram(nullptr, kA, kA, 1); }},
        {"vxCorePlayProgram text2", [] { return vxCorePlayProgram(kA, nullptr, kA, 1); }},
        {"vxCorePlayWindowProgram text1", [] { return vxCorePlayWindowProgram(nullptr, kA, kA, kA); }},
        {"vxCorePlayEmergencyProgram text2", [] { return vxCorePlayEmergencyProgram(kA, nullptr, kA); }},
        {"vxCoreWinMode too long", [&] { return vxCoreWinMode(1, tooLong.c_str(), 4000); }},
        {"vxCorePrjSyncProgress out1", [&] { return vxCorePrjSyncProgress(nullptr, out); }},
        {"vxCorePrjSyncProgress out2", [&] { return vxCorePrjSyncProgress(out, nullptr); }},
        {"vxCoreGetPlayInfo out", [] { return vxCoreGetPlayInfo(nullptr, 4); }},
        {"vxCoreGetPlayInfo of nothing", [&] { return vxCoreGetPlayInfo(out, 0); }},
        {"vxCoreSwitchProgram name", [] { return vxCoreSwitchProgram(nullptr, 1); }},
        {"vxCoreSwitchProgram mode", [] { return vxCoreSwitchProgram(kA, 3); }},
        {"vxCoreSwitchMode", [] { return vxCoreSwitchMode(3); }},
        {"vxCoreProjectInfoEx", [] { return vxCoreProjectInfoEx(kA, 1, 2, nullptr); }},
    });
}

} // namespace
} // namespace vxsign::test
