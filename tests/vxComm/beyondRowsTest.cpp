// What flat commands do beyond their rows: names of any length, addresses, ids, waits, records of many bytes.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

using BeyondRows = ScriptedTest;

constexpr std::uint8_t kData[45] = {};

TEST_F(BeyondRows, ResetToDataFlashGivesUp)
{
    sign.Config().onProgress = nullptr;
    sign.Then(2, Good());
    EXPECT_EQ(vxResetSystemToDataFlash(), 0u);
    sign.Renew();
    sign.Then(Refusal(36881));
    EXPECT_EQ(vxResetSystemToDataFlash(), 36881u);
    EXPECT_EQ(FakeClock::SleptMs(), 300u + 30 + 300) << "the wait comes before the look at the result";
    EXPECT_EQ(sign.Config().progressTotal, 0);
    sign.Then(Good()).Then(99, Refusal(7938)).Then(Refusal(7937));
    EXPECT_EQ(vxResetSystemToDataFlash(), 7937u);
    EXPECT_EQ(sign.progress.size(), 100u);
    EXPECT_EQ(sign.progress.back(), 99u);
}

TEST_F(BeyondRows, TheIdsAreTheStabilityTestsAndTheBaudRateStays)
{
    sign.Then(3, Good());
    EXPECT_EQ(vxStabilityTest("", 0, 65535), 0u);
    EXPECT_EQ(vxStopTest(), 0u);
    EXPECT_EQ(vxStabilityTest("", 0, 0x1233), 0u);
    EXPECT_EQ(sign.requests[0].Id(), 0);
    EXPECT_EQ(sign.requests[1].Id(), 1);
    EXPECT_EQ(sign.requests[2].Id(), 0x1234);

    sign.Config().baudRate = 9600;
    sign.Then(Good());
    EXPECT_EQ(vxChangeBaudRate(5), 0u);
    EXPECT_EQ(sign.Config().baudRate, 9600u);
}

TEST_F(BeyondRows, SendTempHumiIsSentOnceWhateverComesBack)
{
    const std::pair<std::int8_t, const char*> rows[] = {{25, "07900100"},  {-1, "07F00F00"},   {0, "07000000"},
                                                        {127, "07F00700"}, {-128, "07000800"}, {-100, "07C00900"}};
    for (const auto& [value, payload] : rows) {
        sign.requests.clear();
        EXPECT_EQ(vxSendTempHumi(7, value), 0u) << "no answer";
        EXPECT_EQ(sign.Road(), "5.3");
        EXPECT_EQ(sign.requests.at(0).Payload(), Hex(payload));
        sign.Then(Refusal(36912));
        EXPECT_EQ(vxSendTempHumi(7, value), 0u);
        EXPECT_TRUE(sign.log.empty());
    }
}

// Packets to a board have its address; the thread's own is not touched, not even while the command runs.
TEST_F(BeyondRows, AddressesOfBoards)
{
    sign.Config().destinationAddress = 0x0707;
    Bytes out(70, 0xEE);
    std::vector<std::uint16_t> addresses;
    sign.otherwise = [&](const Packet& request) {
        EXPECT_EQ(sign.Config().destinationAddress, 0x0707);
        addresses.push_back(request.Word(8));
        return Good();
    };
    for (const std::uint32_t result : {vxExtraCollectRead(out.data(), 3), vxExtraCollectCtrl(kData, 255),
                                       vxExtraIORead(out.data(), 3), vxExtraIOCtrl(kData, 0), vxExtraWifiReset()})
        EXPECT_EQ(result, 0u);
    EXPECT_EQ(addresses, (std::vector<std::uint16_t>{0x0302, 0xFF02, 0x0304, 0x0004, 0x0707}));

    sign.Then(Good({}, Bytes(69, 0x11))).Then(Good({}, Bytes(45, 0x22)));
    EXPECT_EQ(vxExtraIORead(out.data(), 3), 0u);
    EXPECT_EQ(out, Bytes(68, 0x11) + Bytes(2, 0xEE));
    EXPECT_EQ(vxExtraWifiGetInfo(out.data()), 0u);
    EXPECT_EQ(out, Bytes(44, 0x22) + Bytes(24, 0x11) + Bytes(2, 0xEE));

    // Board commands address the board for their run.
    sign.otherwise = {};
    const std::uint16_t& address = sign.Config().destinationAddress;
    sign.Then(Good()).Then(Refusal(1));
    EXPECT_EQ(vxLCSetUpdateStatus(1, 0x12, 2), 0u);
    EXPECT_EQ(sign.requests.back().Word(8), 0x1201);
    EXPECT_EQ(address, 0x0707);
    EXPECT_EQ(vxLCSetUpdateStatus(0, 2, 0), 1u);
    EXPECT_EQ(address, 0x0707) << "put back on every path";

    Bytes both{9, 9};
    const auto read = [&](std::uint8_t kind) { return vxLCReadUpdateStatus(kind, 5, both.data(), &both[1]); };
    sign.requests.clear();
    sign.Then(Good({0, 0, 0, 0})).Then(Good({1, 0, 0, 0}));
    EXPECT_EQ(read(0), 0u);
    EXPECT_EQ(both, (Bytes{0, 1}));
    EXPECT_EQ(sign.Road(), "1.48 1.48");
    EXPECT_EQ(sign.requests[0].Payload() + sign.requests[1].Payload(), Hex("00000000 01000000"));
    EXPECT_EQ(sign.requests[1].Word(8), 0x0500);
    sign.Then(Good({7, 0, 0, 0})).Then(Refusal(4097));
    EXPECT_EQ(read(0), 4097u);
    EXPECT_EQ(both, (Bytes{255, 255}));
    EXPECT_EQ(address, 0x0707);
    EXPECT_EQ(vxLCReadUpdateStatus(1, 5, both.data(), nullptr), 2u);
    EXPECT_EQ(vxLCReadUpdateStatus(1, 5, nullptr, nullptr), 0u);
    EXPECT_EQ(address, 0x0707);
    // A failed first exchange leaves the board's address.
    sign.Then(Refusal(4097));
    EXPECT_EQ(read(0), 4097u);
    EXPECT_EQ(address, 0x0500);
}

TEST_F(BeyondRows, CustomTestCopiesBothPacketsWhateverTheResult)
{
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
    EXPECT_EQ(Part(request, 12, 13), Hex("09 08 01 00 61626300 7778797A EE"));
    EXPECT_EQ(replyLength, 20);
    EXPECT_EQ(Part(reply, 12, 9), Hex("09 08 01 01 04900000 EE"));

    // Unanswered, the reply reads as zeros; with the CRC the sync differs.
    EXPECT_EQ(custom(1), 20736u);
    EXPECT_EQ(request[1], 0xA3);
    EXPECT_EQ(replyLength, 16);
    sign.Then(Good());
    EXPECT_EQ(vxCustomTest(9, 8, nullptr, 0, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr), 0u);
}

TEST_F(BeyondRows, LoginServerTableInWholeRecords)
{
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

TEST_F(BeyondRows, LongNames)
{
    sign.otherwise = [](const Packet&) { return Good(); };
    std::uint32_t total;
    std::uint8_t entry[32];
    const std::string p300(300, 'p');
    const std::string a254(254, 'a');
    const auto payload = [&](std::uint32_t result) {
        EXPECT_EQ(result, 0u);
        return sign.requests.back().Payload();
    };
    const Bytes p256(256, 'p');
    EXPECT_EQ(payload(vxGetDirFile(p300.c_str(), &total, entry, 1)), p256) << "no terminator";
    EXPECT_EQ(payload(vxGetDirFileEx(p300.c_str(), 1, 2, &total, entry, 1)), Hex("02000100") + Bytes(252, 'p'));
    // Announced at full length, with zeros in place of what does not go out.
    EXPECT_EQ(payload(vxCreateDir(p300.c_str())), p256 + Bytes(48, 0));
    EXPECT_EQ(payload(vxIsFileExist(p300.c_str())), p256 + Bytes(48, 0));
    EXPECT_EQ(payload(vxCreateDir(std::string(1019, 'p').c_str())), p256 + Bytes(764, 0));
    EXPECT_EQ(payload(vxRename(a254.c_str(), "b")), Bytes(254, 'a') + Hex("20 00"));
    EXPECT_EQ(payload(vxMove(a254.c_str(), "b")), Bytes(254, 'a') + Hex("20 00"));
    EXPECT_EQ(payload(vxPlaySoundFile(1, p300.c_str())), Hex("0100000000000000") + Bytes(248, 'p') + Bytes(52, 0));
    EXPECT_EQ(payload(vxPlaySoundFile(1, std::string(1012, 'n').c_str())).size(), 1020u);

    // Texts are cut at 255 bytes, but the name of a program to stop by the low 8 bits of its length, and that of a file
    // not at all.
    sign.Renew();
    const Bytes name = Bytes(300, 'x') + Bytes{0};
    const Bytes a = {'A', 0};
    std::uint8_t out[4];
    sign.Then(4, Good());
    EXPECT_EQ(vxCoreProjectInfo(name.data(), 1, 2), 0u);
    EXPECT_EQ(vxCorePlayWindowProgram(name.data(), a.data(), name.data(), name.data()), 0u);
    EXPECT_EQ(vxCoreStopPlay(name.data()), 0u);
    EXPECT_EQ(vxCoreGetFileProperty(name.data(), out, 4), 0u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("FF00 0100 0200 0000"));
    EXPECT_EQ(sign.requests[0].Extended(), Bytes(255, 'x'));
    EXPECT_EQ(sign.requests[1].Payload(), Hex("FF00 0100 FF00 FF00"));
    EXPECT_EQ(sign.requests[1].Extended(), Bytes(255, 'x') + Bytes{'A'} + Bytes(510, 'x'));
    EXPECT_EQ(sign.requests[2].Payload(), Hex("2C000000 00000000"));
    EXPECT_EQ(sign.requests[2].Extended(), Bytes(44, 'x'));
    EXPECT_EQ(sign.requests[3].Extended(), Bytes(300, 'x'));
}

// The longest of each that goes out.
TEST_F(BeyondRows, ZonesLongestRequests)
{
    const Bytes data(3072, 0x77);
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
