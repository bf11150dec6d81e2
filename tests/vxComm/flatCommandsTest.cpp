// The flat commands that stand: requests and replies to the byte.
#include "support/flatRows.h"

#include <cstring>

namespace vxsign::test {
namespace {

constexpr std::uint8_t kCount[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18,
                                   19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36,
                                   37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52};

TEST(FlatCommands, Requests)
{
    ExpectRequests({
        {"vxBlackScreen", [] { return vxBlackScreen(); }, 4, 1, "", ""},
        {"vxEndBlackScreen", [] { return vxEndBlackScreen(); }, 4, 2, "", ""},
        {"vxDelete", [] { return vxDelete("D:\\T\\A.B"); }, 7, 6, "443A5C54 5C412E42 00000000", ""},
        {"vxTubeSet", [] { return vxTubeSet(9, kCount, 5); }, 14, 9, "01020304 05000000", ""},
        {"vxTubeSet without data", [] { return vxTubeSet(9, nullptr, 0); }, 14, 9, "", ""},
        {"vxWriteUrgentMsg", [] { return vxWriteUrgentMsg(7, 8, kCount, 3); }, 2, 9, "07000800", "010203"},
        {"vxWriteUrgentMsg of nothing", [] { return vxWriteUrgentMsg(7, 8, nullptr, 0); }, 2, 9, "07000800", ""},
        {"vxWriteBrightCtrlBlock", [] { return vxWriteBrightCtrlBlock(kCount); }, 2, 10, "01020304 05060708 090A0B0C",
         ""},
        {"vxWriteSNMAC", [] { return vxWriteSNMAC(kCount, 20, kCount + 40, 6); }, 2, 11, "",
         "0B 01020304 05060708 090A0B 00000000 292A2B2C 2D2E 00000000 00000000 0000"},
        {"vxWriteSNMAC cut", [] { return vxWriteSNMAC(kCount, 2, kCount, 52); }, 2, 11, "",
         "02 0102 0000 00000000 00000000 000000 01020304 05060708 090A0B0C 0D0E0F10"},
        {"vxWriteSNMAC negative", [] { return vxWriteSNMAC(kCount, 0, kCount, -5); }, 2, 11, "",
         "00000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000"},
        {"vxWriteDefDisplayStyle", [] { return vxWriteDefDisplayStyle(kCount); }, 2, 12,
         "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B2C2D2E2F3031323334",
         ""},
        {"vxWriteCRCForFile", [] { return vxWriteCRCForFile("ABC", 0x01020304, 0xBEEF); }, 2, 14,
         "41424300 00000000 00000000 00000000 00000000 00000000 00000000 00000000 04030201 EFBE0000", ""},
        {"vxWriteCRCForFile cut", [] { return vxWriteCRCForFile("0123456789ABCDEF0123456789ABCDEFxyz", 1, 2); }, 2, 14,
         "30313233343536373839414243444546 30313233343536373839414243444546 01000000 02000000", ""},
        {"vxLCSetUpdateStatus", [] { return vxLCSetUpdateStatus(0, 3, 1); }, 2, 48, "", "01000000"},
        {"vxReadCPUUpdateResult", [] { return vxReadCPUUpdateResult(); }, 1, 15, "", ""},
        {"vxReadDB",
         [] {
             char text[8];
             return vxReadDB(0x0102, "select", text, 8, text, 8);
         },
         1, 21, "02010100", "73656C656374"},
        {"vxReadStats",
         [] {
             std::uint8_t out[4];
             return vxReadStats(9, out, 4);
         },
         1, 26, "09000000", ""},
        {"vxReadPCBID",
         [] {
             std::uint32_t id;
             return vxReadPCBID(&id);
         },
         1, 27, "00000000", ""},
    });
}

TEST(FlatCommands, ArgumentsErrors)
{
    std::uint8_t bytes[16];
    char text[16];
    std::uint32_t number = 0;
    ExpectArgumentsError({
        {"vxWriteUrgentMsg", [] { return vxWriteUrgentMsg(1, 2, nullptr, 1); }},
        {"vxWriteUrgentMsg over the buffer", [] { return vxWriteUrgentMsg(1, 2, Bytes(3053).data(), 3053); }},
        {"vxWriteBrightCtrlBlock", [] { return vxWriteBrightCtrlBlock(nullptr); }},
        {"vxWriteSNMAC sn", [] { return vxWriteSNMAC(nullptr, 1, kCount, 1); }},
        {"vxWriteSNMAC mac", [] { return vxWriteSNMAC(kCount, 1, nullptr, 1); }},
        {"vxWriteDefDisplayStyle", [] { return vxWriteDefDisplayStyle(nullptr); }},
        {"vxWriteCRCForFile", [] { return vxWriteCRCForFile(nullptr, 1, 2); }},
        {"vxLCSetUpdateStatus 3", [] { return vxLCSetUpdateStatus(0, 0, 3); }},
        {"vxLCSetUpdateStatus 1 on 1", [] { return vxLCSetUpdateStatus(1, 0, 1); }},
        {"vxReadDB sql", [&] { return vxReadDB(1, nullptr, bytes, 8, text, 8); }},
        {"vxReadDB head", [&] { return vxReadDB(1, "x", nullptr, 8, text, 8); }},
        {"vxReadDB rows", [&] { return vxReadDB(1, "x", bytes, 8, nullptr, 8); }},
        {"vxReadBrightInfo b", [&] { return vxReadBrightInfo(bytes, nullptr, bytes); }},
        {"vxReadBrightInfo c", [&] { return vxReadBrightInfo(bytes, bytes, nullptr); }},
        {"vxReadStats of nothing", [&] { return vxReadStats(1, bytes, 0); }},
        {"vxReadSystemInfo", [&] { return vxReadSystemInfo(bytes, 8, nullptr); }},
        {"vxReadErrorLog", [&] { return vxReadErrorLog(nullptr, 8, &number); }},
        {"vxGetSNMAC sn of 11", [&] { return vxGetSNMAC(bytes, 11, bytes, 6); }},
        {"vxGetSNMAC mac of 5", [&] { return vxGetSNMAC(bytes, 12, bytes, 5); }},
        {"vxGetSNMAC without mac", [&] { return vxGetSNMAC(bytes, 12, nullptr, 6); }},
        {"vxReadSystemSet", [] { return vxReadSystemSet(nullptr); }},
        {"vxReadCurrentState", [&] { return vxReadCurrentState(nullptr, bytes, 8); }},
        {"vxLCReadUpdateStatus first of board 1", [&] { return vxLCReadUpdateStatus(1, 0, bytes, nullptr); }},
        {"vxCustomTest payload",
         [] { return vxCustomTest(1, 1, nullptr, 1, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr); }},
    });
}

TEST(FlatCommands, Replies)
{
    ScriptedSign sign;
    Bytes out(64, 0xEE);
    std::uint8_t a = 0xEE;
    std::uint8_t b = 0xEE;
    std::uint8_t c = 0xEE;
    std::uint32_t number = 0;
    std::uint64_t state = 0;

    sign.Then(Good(Hex("0102030405060708"), Hex("A1A2A3")));
    EXPECT_EQ(vxReadCurrentState(&state, out.data(), 2), 0u);
    EXPECT_EQ(state, 0x0807060504030201u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 3), Hex("A1A2EE"));

    sign.Then(Good(Hex("04 31323334 0000000000000000000000 AABBCCDDEEFF")));
    EXPECT_EQ(vxGetSNMAC(out.data(), 12, out.data() + 12, 8), 0u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 20), Hex("31323334 0000000000000000 AABBCCDDEEFF 0000"));
    sign.Then(Good(Hex("FF 31323334353637383930 41 42")));
    EXPECT_EQ(vxGetSNMAC(out.data(), 12, out.data() + 12, 6), 0u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 12), Hex("31323334353637383930 41 00")) << "a length beyond the field";

    sign.Then(Good(Bytes(52, 0x33)));
    EXPECT_EQ(vxReadDefDisplayStyle(out.data()), 0u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 53), Bytes(52, 0x33) + Hex("EE"));

    // The length is that of the extended part, the bytes are the payload's and what follows it.
    sign.Then(Good(Hex("01020304"), Hex("0506070809")));
    EXPECT_EQ(vxReadSystemInfo(out.data(), 64, &number), 0u);
    EXPECT_EQ(number, 5u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 6), Hex("0102030405 33"));

    char rows[8] = {};
    sign.Then(Good(Hex("0200000001020304"), FromText("<1><2>")));
    EXPECT_EQ(vxReadDB(1, "x", out.data(), 6, rows, 4), 0u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 7), Hex("020000000102 33"));
    EXPECT_STREQ(rows, "<1><");
    sign.Then(Good(Hex("02000000"), FromText("<1>")));
    EXPECT_EQ(vxReadDB(1, "x", out.data(), -1, rows, 8), 0u);

    sign.Then(Good(Hex("0A0B0C0D")));
    EXPECT_EQ(vxReadBrightInfo(nullptr, &b, &c), 0u);
    EXPECT_EQ(b, 0x0B);
    EXPECT_EQ(c, 0x0C);
    sign.Then(Good({}, Hex("010203040506070809")));
    EXPECT_EQ(vxReadBrightInfoExt(out.data()), 0u);
    EXPECT_EQ(Bytes(out.begin(), out.begin() + 9), Hex("0102030405060708 33"));

    sign.Then(Good(Hex("90900000 03000000"))).Then(Good(Hex("32580000 00000000"))).Then(Good(Hex("01000000 00")));
    EXPECT_EQ(vxReadPCBIDAndPort(&number, &a), 0u);
    EXPECT_EQ(a, 3);
    EXPECT_EQ(vxReadPCBIDAndPort(&number, &a), 0u);
    EXPECT_EQ(number, 22578u);
    EXPECT_EQ(a, 4);
    EXPECT_EQ(vxReadPCBIDAndPort(&number, &a), 0u);
    EXPECT_EQ(a, 0);
}

// A reply that is refused leaves every output alone.
TEST(FlatCommands, OutputsAreWrittenOnSuccessOnly)
{
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return Refusal(36869); };
    Bytes out(64, 0xEE);
    std::uint64_t state = 7;
    std::uint32_t number = 7;
    EXPECT_EQ(vxReadCurrentState(&state, out.data(), 64), 36869u);
    EXPECT_EQ(vxGetSNMAC(out.data(), 12, out.data() + 12, 6), 36869u);
    EXPECT_EQ(vxReadSystemInfo(out.data(), 64, &number), 36869u);
    EXPECT_EQ(vxReadPCBIDAndPort(&number, out.data()), 36869u);
    EXPECT_EQ(state, 7u);
    EXPECT_EQ(number, 7u);
    EXPECT_EQ(out, Bytes(64, 0xEE));
}

TEST(BoardCommands, AddressTheBoardForTheirRun)
{
    ScriptedSign sign;
    vxApiConfig& config = sign.Config();
    config.destinationAddress = 0x0707;
    sign.Then(Good()).Then(Refusal(1));
    EXPECT_EQ(vxLCSetUpdateStatus(1, 0x12, 2), 0u);
    EXPECT_EQ(sign.requests.back().Word(8), 0x1201);
    EXPECT_EQ(config.destinationAddress, 0x0707);
    EXPECT_EQ(vxLCSetUpdateStatus(0, 2, 0), 1u);
    EXPECT_EQ(config.destinationAddress, 0x0707) << "put back on every path";
}

TEST(BoardCommands, ReadUpdateStatus)
{
    ScriptedSign sign;
    vxApiConfig& config = sign.Config();
    config.destinationAddress = 0x0707;
    std::uint8_t first = 9;
    std::uint8_t second = 9;

    sign.Then(Good({0, 0, 0, 0})).Then(Good({1, 0, 0, 0}));
    EXPECT_EQ(vxLCReadUpdateStatus(0, 5, &first, &second), 0u);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("00000000"));
    EXPECT_EQ(sign.requests[1].Payload(), Hex("01000000"));
    EXPECT_EQ(sign.requests[1].Word(8), 0x0500);

    sign.Then(Good({7, 0, 0, 0})).Then(Refusal(4097));
    EXPECT_EQ(vxLCReadUpdateStatus(0, 5, &first, &second), 4097u);
    EXPECT_EQ(first, 255);
    EXPECT_EQ(second, 255);
    EXPECT_EQ(config.destinationAddress, 0x0707);

    EXPECT_EQ(vxLCReadUpdateStatus(1, 5, &first, nullptr), 2u);
    EXPECT_EQ(config.destinationAddress, 0x0707);
    EXPECT_EQ(vxLCReadUpdateStatus(1, 5, nullptr, nullptr), 0u);

    // A failed first exchange leaves the board's address.
    sign.Then(Refusal(4097));
    EXPECT_EQ(vxLCReadUpdateStatus(0, 5, &first, &second), 4097u);
    EXPECT_EQ(config.destinationAddress, 0x0500);
}

TEST(CustomTest, CopiesBothPacketsWhateverTheResult)
{
    ScriptedSign sign;
    Bytes request(600, 0xEE);
    Bytes reply(4608, 0xEE);
    std::uint8_t requestLength = 0;
    std::uint8_t replyLength = 0;
    const auto custom = [&](std::uint8_t crc) {
        return vxCustomTest(9, 8, "abc", 3, "wxyz", 4, crc, request.data(), &requestLength, reply.data(), &replyLength);
    };
    sign.Then(Refusal(36868));
    EXPECT_EQ(custom(0), 36868u);
    EXPECT_EQ(requestLength, 24);
    EXPECT_EQ(Bytes(request.begin() + 12, request.begin() + 25), Hex("09 08 01 00 61626300 7778797A EE"));
    EXPECT_EQ(replyLength, 20);
    EXPECT_EQ(Bytes(reply.begin() + 12, reply.begin() + 21), Hex("09 08 01 01 04900000 EE"));

    // Unanswered, the reply reads as zeros; with the CRC the sync differs.
    EXPECT_EQ(custom(1), 20736u);
    EXPECT_EQ(request[1], 0xA3);
    EXPECT_EQ(replyLength, 16);
    sign.Then(Good());
    EXPECT_EQ(vxCustomTest(9, 8, nullptr, 0, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr), 0u);
}

} // namespace
} // namespace vxsign::test
