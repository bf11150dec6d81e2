// Golden bytes of the flat commands that act on the sign itself: light, tests, clock, boards, tiles, traffic.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint64_t kValue = 0x0807060504030201;
constexpr std::uint8_t kBytes[] = {0xA1, 0xA2, 0xA3, 0xA4};
constexpr char kWifi[] = "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B2C";
constexpr char kEight[] = "01020304 05060708";
constexpr char kMore[] = "010203040506070809101112";
constexpr char kForty[] = "A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1 B1B2";
constexpr char kThirtyEight[] = "A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1A1A1 A1A1A1A1A1A1A1A1";

TEST(FlatCommands, Control)
{
    ExpectFlat({
        {CALL(vxResetSystem()), 4, 0},
        {CALL(vxBlackScreen()), 4, 1},
        {CALL(vxEndBlackScreen()), 4, 2},
        {CALL(vxPowerOnOff(0)), 4, 3, "01000000"},
        {CALL(vxPowerOnOff(1)), 4, 4},
        {CALL(vxPowerOnOff(-1)), 4, 4},
        {CALL(vxGetPowerState(out + 1, out)), 4, 5, "", "", "A1A2A3A4", "", "A2A1"},
        {CALL(vxGetPowerState(out, out + 1)), 4, 5, "", "", "", "", "0000"},
        {CALL(vxChangeBaudRate(5)), 4, 6, "05000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000"},
        {CALL(vxBrightAdjust(200)), 4, 7, "C8000000"},
        {CALL(vxBrightAdjustEx(1, 2)), 4, 7, "01020000"},
        {CALL(vxSetEthCheck(5)), 4, 8, "05050000"},
        {CALL(vxReadEthCheck(out + 1, out)), 4, 9, "", "", "A1A2A3A4", "", "A2A1"},
        {CALL(vxSetBeacon(&kValue)), 4, 10, kEight},
        {CALL(vxGetBeacon(out)), 4, 11, "", "", kMore, "", kEight},
        {CALL(vxGetBeacon(out)), 4, 11, "", "", "01020304", "AABBCCDD", "01020304"},
        {CALL(vxGetBeacon(out)), 4, 11, "", "", "", "AABBCCDD", ""},
        {CALL(vxCommitStatusRW(1, 2, out)), 4, 13, "02010000 00000000", "", "A1A2A3A4", "", "A1"},
        {CALL(vxCommitStatusRW(1, 2, nullptr)), 4, 13, "02010000 00000000"},
        {CALL(vxSwitchOnlineOffline(3)), 4, 19, "03000000"},
        {CALL(vxResetSystemCool()), 4, 20},
        {CALL(vxBrightAdjustSides(&kValue)), 4, 21, kEight},
        {CALL(vxSetSignBeacon(&kValue)), 4, 26, kEight, "64"},
        {CALL(vxGetSignBeacon(out)), 4, 27, "", "", kMore, "", kEight},
        {CALL(vxSetExternalEquipment(&kValue)), 4, 28, kEight},
        {CALL(vxGetExternalEquipment(out)), 4, 29, "", "", "01020304", "", "01020304"},
        {CALL(vxGeneratorSet(1, 2, out)), 4, 32, "01020000", "", kMore, "", kEight},
        {CALL(vxGeneratorSet(1, 2, nullptr)), 4, 32, "01020000"},
        {CALL(vxSetLCS(7)), 4, 36, "07000000"},
        {CALL(vxGetLCS(out)), 4, 37, "", "", "A1A2A3A4", "", "A1"},
        {CALL(vxPlayVoice(1, 2, kBytes, 3)), 4, 38, "01020000", "A1A2A3"},
        {CALL(vxPlayVoice(1, 2, nullptr, 0)), 4, 38, "01020000"},
        {CALL(vxSetFH(1, 2)), 17, 1, "01020000"},
        {CALL(vxGetFH(out + 1, out)), 17, 2, "", "", "A1A2A3A4", "", "A2A1"},
        {CALL(vxTubeSet(9, kCount, 5)), 14, 9, "01020304 05000000"},
        {CALL(vxTubeSet(9, nullptr, 0)), 14, 9},
        {CALL(vxBeginPixCheck()), 16, 1},
        {CALL(vxPixProgress(out)), 16, 3, "00000000", "", "05060708", "", "05"},
        {CALL(vxTickerStart(1, 2, 3)), 8, 1, "01020300"},
        {CALL(vxTickerStop()), 8, 2},
        {CALL(vxOffLineTickerStart(1, 2, 3, 4)), 9, 1, "01020304"},
        {CALL(vxOffLineTickerStop()), 9, 2},
    });
}

constexpr std::uint64_t kArea[] = {0x0807060504030201, 0x11, 0x22};
constexpr vxCrayState kCray{0x04030201, 0x0605};
constexpr std::uint16_t kPlaces[] = {0x0201, 0x0403, 0x0605};

std::uint32_t ReadTime(std::uint8_t* out)
{
    return vxReadLEDTime(Word(out), out + 2, out + 3, out + 4, out + 5, out + 6, out + 7, out + 8);
}

TEST(FlatCommands, TestsAndClock)
{
    ExpectFlat({
        {CALL(vxConnectTest(Word(out), Word(out + 2), Long(out + 4))), 3, 1, "", "", kMore, "", kEight},
        {CALL(vxPatternTest(2)), 3, 2},
        {CALL(vxPatternTest(11)), 3, 11},
        {CALL(vxPatternTest(15)), 3, 15},
        {CALL(vxStopTest()), 3, 9},
        {CALL(vxCrayTest(&kCray)), 3, 10, "01020304 05060000"},
        {CALL(vxColorTest(1, 2, 3)), 3, 11, "01020300 00000000 00000000 00000000"},
        {CALL(vxAreaTest(kArea)), 3, 13, "01020304 05060708 11000000 00000000 22000000 00000000"},
        {CALL(vxLocationTest(1, 2, 3, 4, kPlaces, 3, 0x0506)), 3, 16, "0100 0200 0300 0400 0605 0000 00000000",
         "010203040506"},
        {CALL(vxLocationTest(1, 2, 3, 4, nullptr, 0, 5)), 3, 16, "0100 0200 0300 0400 0500 0000 00000000"},
        {CALL(vxDebugInfoSetting(0x01020304)), 3, 48, "04030201"},
        {CALL(vxStabilityTest("abc", 3, 9)), 3, 49, "", "616263"},
        {CALL(vxStabilityTest(nullptr, 0, 9)), 3, 49},
        {CALL(ReadTime(out)), 5, 1, "", "", "2020 12 31 23 59 45 9A", "", "E407 0C 1F 17 3B 00 2D 9A"},
        {CALL(ReadTime(out)), 5, 1, "", "", "FFFF FF FF FF FF FF FF", "", "1941 A5 A5 A5 A5 00 A5 FF"},
        {CALL(ReadTime(out)), 5, 1, "", "", "", "", "0000 00 00 00 00 00 00 00"},
        {CALL(vxAjustLEDTimeEx(2020, 12, 31, 23, 59, 45, 6, 0xFE)), 5, 4, "2020 12 31 23 59 45 06 FE 000000"},
        {CALL(vxAjustLEDTimeEx(1999, 1, 2, 3, 4, 5, 6, 7)), 5, 4, "9919 01 02 03 04 05 06 07 000000"},
        {CALL(vxWriteSpeedLimit(0x0102, 0x0304)), 5, 5, "02010403 00000000"},
    });
}

TEST(FlatCommands, Boards)
{
    std::uint8_t wifi[44];
    std::copy_n(kCount, sizeof wifi, wifi);
    const auto getWifi = [&](std::uint8_t* out) {
        std::copy_n(kCount, sizeof wifi, wifi);
        const std::uint32_t result = vxExtraWifiGetInfo(wifi);
        if (result == 0)
            std::copy_n(wifi, 4, out);
        return result;
    };
    ExpectFlat({
        {CALL(vxExtraCollectCtrl(kCount, 3)), 96, 48, "", "0102030405060708"},
        {CALL(vxExtraCollectRead(out, 3)), 96, 49, "", "", "01020304", kForty, kThirtyEight},
        {CALL(vxExtraCollectRead(out, 3)), 96, 49, "", "", "", "A1A2", "A1A2"},
        {CALL(vxExtraIOCtrl(kCount, 3)), 96, 64, "", "0102030405060708090A0B0C0D0E0F10"},
        {CALL(vxExtraIORead(out, 3)), 96, 65, "", "", "", kForty, kForty},
        {CALL(vxExtraWifiUnlock(kCount, 3, Long(out))), 96, 96, "", "010203", "A1A2A3A4", "B1", "A1A2A3A4"},
        {CALL(vxExtraWifiUnlock(nullptr, 0, Long(out))), 96, 96, "", "", "", "", "00000000"},
        {CALL(vxExtraWifiSetInfo(kCount)), 96, 97, "", kWifi},
        {CALL(getWifi(out)), 96, 98, "", kWifi, "01020304", "A1A2A3", "A1A2A304"},
        {CALL(vxExtraWifiReset()), 96, 99},
        {CALL(vxMPUSelChannel(1, 2)), 53, 1, "01020000"},
        {CALL(vxMPUSetVideoArg(1, 2)), 53, 6, "01020000"},
        {CALL(vxMPUSetHDMI_DP_Out(1, 2)), 53, 23, "01020000"},
        {CALL(vxMPUSetEDID(0xAA, kCount)), 53, 27, "AA010203 04050607 08090A0B 0C0D0E0F"},
        {CALL(vxMPUSetINBPhase(1, 2)), 53, 28, "01020000"},
        {CALL(vxMPUSelChannelEx(1, 2)), 53, 30, "01020000"},
        {CALL(vxMPUSetWin(0x1234, 0x0102, 0x0304, 0x0506, 0x0708, 9, Long(out))), 53, 31,
         "34 0201 0403 0605 0807 09 0000", "", "A1A2A3A4A5", "", "A1A2A3A4"},
        {CALL(vxMPUSetWin(1, 2, 3, 4, 5, 6, nullptr)), 53, 31, "01 0200 0300 0400 0500 06 0000"},
        {CALL(vxMPUProgressByTaskID(0x01020304, out)), 53, 0xFE, "04030201", "", "A1A2A3A4", "", "A1"},
        {CALL(vxVPUSelChannel(1)), 52, 1, "01000000"},
        {CALL(vxVPUSetMode(1, 2)), 52, 2, "01020000"},
        {CALL(vxVPUSetVideoRatio(1)), 52, 3, "01000000"},
        {CALL(vxVPUSetDVIWin(0x0102, 0x0304)), 52, 4, "02010403"},
        {CALL(vxVPUSetVideoWin(0x0102, 0x0304)), 52, 5, "02010403"},
        {CALL(vxVPUSetVideoArg(0x0102, 0x0304)), 52, 6, "02010403"},
        {CALL(vxVPUGetSignalStatus(Word(out + 6), Word(out + 4), Word(out + 2), Word(out))), 52, 8, "00000000", "",
         "A1A2A3A4A5A6A7A8", "", "A7A8A5A6A3A4A1A2"},
        {CALL(vxVPUType(1)), 52, 9, "01000000"},
        {CALL(vxVPUSlaverStartLine(0x0102)), 52, 10, "02010000"},
        {CALL(vxVPUSetColorTemp(1, 2, 3, 4)), 52, 11, "01020304"},
        {CALL(vxVPUSetBright(1, 2, 3, 4)), 52, 12, "01020304"},
        {CALL(vxVPUGetBright(out + 3, out + 2, out + 1, out)), 52, 13, "00000000", "", "A1A2A3A4", "", "A4A3A2A1"},
        {CALL(vxVPUSetGamma(1)), 52, 14, "01000000"},
        {CALL(vxVPUSetLDUNums(1)), 52, 15, "01000000"},
        {CALL(vxVPUSetLDUPos(0x0102, 0x0304, 0x0506)), 52, 16, "02000400 06000000"},
        // One minor: the argument tells the question from the setting.
        {CALL(vxVPUGetInfo(out)), 52, 17, "00000000", "", "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C",
         "", "0102030405060708090A0B0C0D0E0F101112131415161718"},
        {CALL(vxVPUGetInfo(out)), 52, 17, "00000000", "", "01020304", "",
         "010203040000000000000000000000000000000000000000"},
        {CALL(vxVPUSetPixcelMode(1)), 52, 17, "01000000"},
    });
}

TEST(FlatCommands, Tiles)
{
    ExpectFlat({
        {CALL(vxTarsisGetTileStat(494, Long(out))), 12, 7, "F0000000", "", "01020304 05", "", "01020304"},
        {CALL(vxTarsisGetTileStat(494, Long(out))), 12, 7, "F0000000", "", "", "01020304", ""},
        {CALL(vxTarsisTileTest(494, 0xAB, Long(out))), 12, 9, "F0AB0000", "", "01020304 05", "", "01020304"},
        {CALL(vxTarsisTileTest(494, 0xAB, Long(out))), 12, 9, "F0AB0000", "", "", "01020304", ""},
        {CALL(vxTarsisFMCalOpt(9)), 50, 9, "00000000"},
        {CALL(vxFlashPGMConnectCMD()), 12, 13},
        {CALL(vxOndraGetResult(0x04030201, out, 4)), 28, 3, "01020304 00000000", "", "", "01020304 05", "01020304"},
        {CALL(vxOndraGetResult(1, out, 200)), 28, 3, "01000000 00000000", "", "", "0102", "0102"},
        {CALL(vxOndraGetResult(1, out, 9)), 28, 3, "01000000 00000000", "", "01020304", "0506", "0102"},
        {CALL(vxOndraLDUCMD(1, 2)), 28, 7, "0201000000000000"},
        {CALL(vxOndraSyncBriMode(3)), 28, 9, "0300000000000000"},
    });
}

TEST(FlatCommands, Traffic)
{
    const auto read = [](std::uint8_t* out, std::uint32_t capacity, bool isMonitor) {
        std::uint32_t size = capacity;
        const std::uint32_t result =
            isMonitor ? vxReadTCMonitor(0x104, out + 4, &size) : vxReadTCStatus(out + 4, &size);
        if (result == 0)
            *Long(out) = size;
        else
            EXPECT_EQ(size, capacity);
        return result;
    };
    const auto readTime = [](std::uint8_t* out) {
        return vxReadTrafficTime(Word(out), out + 2, out + 3, out + 4, out + 5, out + 6, out + 7, out + 8);
    };
    ExpectFlat({
        {CALL(read(out, 9, false)), 10, 6, "", "", kEight, "A1A2A3", "03000000 A1A2A3"},
        {CALL(read(out, 2, false)), 10, 6, "", "", "", "A1A2A3", "02000000 A1A2"},
        {CALL(read(out, 9, false)), 10, 6, "", "", "01020304", "", "00000000"},
        {CALL(read(out, 2, true)), 10, 5, "04000000", "", "01020304", "A1A2A3", "02000000 A1A2"},
        {CALL(vxTCManual(7)), 10, 2, "07000000"},
        {CALL(vxTCJKBLightTest(kBytes, 3)), 10, 8, "03000000", "A1A2A3"},
        {CALL(vxTCJKBLightTest(nullptr, 0)), 10, 8, "00000000"},
        {CALL(vxTCJKCLightTest(kBytes, 1, 3)), 10, 9, "01030000", "A1A2A3A4"},
        {CALL(vxTCGetRealStatus(out, 9, 2)), 10, 17, "02000000", "", "01020304", "A1A2A3", "A1A2A3"},
        {CALL(vxTCGetRealStatus(nullptr, 9, 0)), 10, 17, "00000000", "", "", "A1A2A3"},
        {CALL(vxTrafficTempPhaseRun(kCount, 0x1FF)), 10, 16,
         "01020304 05060708 090A0B0C 0D0E0F10 11121314 15161718 191A1B1C 1D1E1FFF"},
        {CALL(readTime(out)), 5, 1, "", "", "26201231 23595847 AB", "", "EA07 0C 1F 17 3B 3A 2F AB"},
        {CALL(readTime(out)), 5, 1, "", "", "FFFFFFFF FFFFFFFF FF", "", "1941 A5 A5 A5 A5 A5 A5 FF"},
        {CALL(readTime(out)), 5, 1, "", "", "26201231", "", "EA07 0C 1F 00 00 00 00 00"},
        {CALL(vxAjustTrafficTime(2026, 12, 31, 23, 59, 58, 47, 0xAB)), 5, 2, "26201231 23595847 AB000000"},
        {CALL(vxTrafficRFlow(kCount, "/dev/null")), 10, 13, "0102030405060708"},
    });
}

} // namespace
} // namespace vxsign::test
