// Golden bytes of the flat commands about what the sign holds and plays: records, files, logins, zones, programs.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint64_t kValue = 0x0807060504030201;
constexpr std::uint8_t kData[] = {0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6, 0xA7, 0xA8, 0xA9, 0xAA, 0xAB, 0xAC, 0xAD};
constexpr char kFiftyTwo[] =
    "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B2C2D2E2F3031323334";

TEST(FlatCommands, WrittenRecords)
{
    ExpectFlat({
        {CALL(vxWriteUrgentMsg(7, 8, kCount, 3)), 2, 9, "07000800", "010203"},
        {CALL(vxWriteUrgentMsg(7, 8, nullptr, 0)), 2, 9, "07000800"},
        {CALL(vxWriteBrightCtrlBlock(kCount)), 2, 10, "01020304 05060708 090A0B0C"},
        {CALL(vxWriteSNMAC(kCount, 20, kCount + 40, 6)), 2, 11, "",
         "0B 01020304 05060708 090A0B 00000000 292A2B2C 2D2E 00000000 00000000 0000"},
        {CALL(vxWriteSNMAC(kCount, 2, kCount, 52)), 2, 11, "",
         "02 0102 0000 00000000 00000000 000000 01020304 05060708 090A0B0C 0D0E0F10"},
        {CALL(vxWriteSNMAC(kCount, 0, kCount, -5)), 2, 11, "",
         "00000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000"},
        {CALL(vxWriteDefDisplayStyle(kCount)), 2, 12, kFiftyTwo},
        {CALL(vxWriteCRCForFile("ABC", 0x01020304, 0xBEEF)), 2, 14,
         "41424300 00000000 00000000 00000000 00000000 00000000 00000000 00000000 04030201 EFBE0000"},
        {CALL(vxWriteCRCForFile("0123456789ABCDEF0123456789ABCDEFxyz", 1, 2)), 2, 14,
         "30313233343536373839414243444546 30313233343536373839414243444546 01000000 02000000"},
        {CALL(vxLCSetUpdateStatus(0, 3, 1)), 2, 48, "", "01000000"},
    });
}

TEST(FlatCommands, ReadRecords)
{
    const std::string sixteen = "0102030405060708 090A0B0C0D0E0F10";
    constexpr char kSerial[] = "04 31323334 0000000000000000000000 AABBCCDDEEFF";
    constexpr char kLongSerial[] = "FF 31323334353637383930 41 42";
    const auto state = [](std::uint8_t* out, std::uint32_t size) {
        return vxReadCurrentState(reinterpret_cast<std::uint64_t*>(out), out + 8, size);
    };
    ExpectFlat({
        {CALL(vxReadSystemSet(out)), 1, 10, "", "", (sixteen + "1112").c_str(), "A1", sixteen.c_str()},
        {CALL(state(out, 2)), 1, 11, "", "", "0102030405060708", "A1A2A3", "0102030405060708 A1A2"},
        {CALL(vxGetSNMAC(out, 12, out + 12, 8)), 1, 12, "", "", kSerial, "",
         "31323334 0000000000000000 AABBCCDDEEFF 0000"},
        {CALL(vxGetSNMAC(out, 12, out + 12, 6)), 1, 12, "", "", kLongSerial, "",
         "31323334353637383930 41 00 000000000000"}, // a length beyond the field
        {CALL(vxReadCPUUpdateResult()), 1, 15},
        {CALL(vxReadDefDisplayStyle(out)), 1, 16, "", "", (kFiftyTwo + std::string("35")).c_str(), "", kFiftyTwo},
        // The length is that of the extended part, the bytes are the payload's and what follows it.
        {CALL(vxReadSystemInfo(out + 4, 64, Long(out))), 1, 18, "", "", "01020304", "0506070809",
         "05000000 0102030405"},
        {CALL(vxReadErrorLog(out + 4, 3, Long(out))), 1, 19, "", "", "01020304", "05060708", "04000000 010203"},
        {CALL(vxReadDB(0x0102, "select", out + 8, 6, Chars(out), 4)), 1, 21, "02010100", "73656C656374",
         "0200000001020304", "3C313E3C323E", "3C313E3C EEEEEEEE 020000000102"},
        {CALL(vxReadDB(1, "x", out, -1, Chars(out), 8)), 1, 21, "01000100", "78", "02000000", "3C313E", "3C313E"},
        {CALL(vxReadBrightInfo(nullptr, out, out + 1)), 1, 22, "", "", "0A0B0C0D", "", "0B0C"},
        {CALL(vxReadBrightInfo(out, out + 1, out + 2)), 1, 22, "", "", "0A0B0C0D", "", "0A0B0C"},
        {CALL(vxReadBrightInfoExt(out)), 1, 22, "", "", "", "010203040506070809", "0102030405060708"},
        {CALL(vxReadStats(9, out, 4)), 1, 26, "09000000", "", "01020304", "A1A2A3A4A5", "A1A2A3A4"},
        {CALL(vxReadPCBID(Long(out))), 1, 27, "00000000", "", "A1A2A3A4A5", "", "A1A2A3A4"},
        {CALL(vxReadPCBIDAndPort(Long(out), out + 4)), 1, 27, "00000000", "", "90900000 03000000", "", "90900000 03"},
        {CALL(vxReadPCBIDAndPort(Long(out), out + 4)), 1, 27, "00000000", "", "32580000 00000000", "", "32580000 04"},
        {CALL(vxReadPCBIDAndPort(Long(out), out + 4)), 1, 27, "00000000", "", "01000000 00", "", "01000000 00"},
        {CALL(vxReadDataFlashInfo(out)), 1, 28, "", "", "01020304", "0102030405060708090A0B0C0D",
         "0102030405060708090A0B0C"},
        {CALL(vxReadDataFlashInfo(out)), 1, 28, "", "", "01020304", "A1A2", "A1A2"},
    });
}

TEST(FlatCommands, Files)
{
    const std::string five(320, '5');
    const std::string two(128, '5');
    const std::string cut = two + "66666666";
    const std::string firstTwo = "09000000" + two;
    const std::string nextTwo = "FFFF0000" + two;
    ExpectFlat({
        {CALL(vxFormatDrive('C')), 7, 2, "43535953"},
        {CALL(vxFormatDrive('c')), 7, 2, "63000000"},
        {CALL(vxFormatDrive('D')), 7, 2, "44000000"},
        {CALL(vxCreateDir("D:\\ABCDE")), 7, 3, "443A5C41 42434445 00000000"},
        {CALL(vxRename("D:\\A", "B")), 7, 4, "443A5C41 20420000"},
        {CALL(vxMove("A", "D:\\B")), 7, 5, "4120443A 5C420000"},
        {CALL(vxDelete("D:\\T\\A.B")), 7, 6, "443A5C54 5C412E42 00000000"},
        {CALL(vxPLDeleteByIndex(255)), 7, 6, "633A5C706C61796C6973745C73657175656E743235352E7379730000"},
        {CALL(vxDelTextFiles(1)), 7, 7, "01000000"},
        {CALL(vxDelStringFiles(2)), 7, 8, "02000000"},
        {CALL(vxDelPictureFiles(3)), 7, 9, "03000000"},
        {CALL(vxDelArrpicFiles(4)), 7, 10, "04000000"},
        {CALL(vxGetDirFile("D:\\A", Long(out), out + 4, 2)), 7, 11, "443A5C41 00000000", "", "0900FFFF", five.c_str(),
         firstTwo.c_str()},
        {CALL(vxGetDirFileEx("D:\\", 0x0102, 0x0304, Long(out), out + 4, 9)), 7, 12, "0403 0201 443A5C00", "",
         "FFFF0000", cut.c_str(), nextTwo.c_str()},
        {CALL(vxGetDriveInfo('E', Long(out), Long(out + 4), out + 8)), 7, 13, "453A0000", "",
         "010203040506070811121314151617181920212223", "", "0102030405060708111213141516171819202122"},
        {CALL(vxGetDriveInfo('D', nullptr, nullptr, out)), 7, 13, "443A0000", "", "010203040506070811121314", "",
         "111213140000000000000000"},
        {CALL(vxIsFileExist("D:\\A")), 7, 14, "443A5C41 00000000"},
        {CALL(vxClearAllPlayFiles(1, Word(out))), 7, 15, "01000000", "", "01020304", "", "0102"},
        {CALL(vxClearAllPlayFiles(0, Word(out))), 7, 15, "00000000", "", "01020304"},
        {CALL(vxClearAllPlayFiles(2, nullptr)), 7, 15, "02000000"},
    });
}

TEST(FlatCommands, LoginsCutTheirTexts)
{
    std::uint8_t entries[68];
    ExpectFlat({
        {CALL(vxLogin("admin", "1234")), 10, 1, "61646D696E 000000000000000000 31323334 0000"},
        {CALL(vxLogin("ABCDEFGHIJKLMNOPQRST", "1234567")), 10, 1, "4142434445464748494A4B4C4D 00 313233343536"},
        {CALL(vxLogout()), 10, 2},
        {CALL(vxChangePSW("me", "1", "22")), 10, 3, "6D65 000000000000000000000000 310000000000 3232000000000000"},
        {CALL(vxChangePSW("ABCDEFGHIJKLMN", "123456", "7890123")), 10, 3,
         "4142434445464748494A4B4C4D 00 313233343536 3738393031320000"},
        {CALL(vxGetAPIServerTable(Long(out), entries, 1)), 10, 48, "00000000", "", "07000909", "", "07000000"},
    });
}

TEST(FlatCommands, Play)
{
    constexpr char kSixteen[] = "4142434445464748 494A4B4C4D4E4F50";
    ExpectFlat({
        {CALL(vxReplayList()), 6, 1},
        {CALL(vxReplayCurrFile()), 6, 2},
        {CALL(vxPlayPause()), 6, 3},
        {CALL(vxPlayContinue()), 6, 4},
        {CALL(vxPlayNext()), 6, 5},
        {CALL(vxPlayPriority(1, 2, "ABCDEFG.NMG")), 6, 6, "0102 414243444546472E4E4D47 000000"},
        {CALL(vxPlayPriority(1, 2, "ABCDEFGHI.NMG")), 6, 6, "0102 4142434445464748492E4E4D 0000"},
        {CALL(vxGetPlayingFileName(Chars(out), 8)), 6, 7, "01000000", "", kSixteen, "", "4142434445464748"},
        {CALL(vxGetPlayingFileName(Chars(out), 10)), 6, 7, "01000000", "", "41424300", "99999999",
         "41424300 000000000000"},
        {CALL(vxGetNextPlayFileName(Chars(out), 4)), 6, 8, "01000000", "", "", "", "00000000"},
        {CALL(vxGetNextPlayFileName(Chars(out), 0)), 6, 8, "01000000", "", kSixteen},
        {CALL(vxPlayPrevious()), 6, 9},
        {CALL(vxPlayForword()), 6, 10},
        {CALL(vxPlayBack()), 6, 11},
        {CALL(vxPlayNextFrame()), 6, 12},
        {CALL(vxSoundCtrl(1, 2, 3)), 6, 15, "01020300 00000000"},
        {CALL(vxBeginTiming(1, 2, 3, 4)), 6, 17, "01020304"},
        {CALL(vxStopTiming()), 6, 18},
        {CALL(vxPauseTiming()), 6, 19},
        {CALL(vxContinueTiming()), 6, 20},
        {CALL(vxClearTJRadarLog()), 6, 22},
        {CALL(vxPlaySpePlaylist(9)), 6, 24, "09000000"},
        {CALL(vxPlaySoundFile(kValue, "A.WAV")), 6, 26, "01020304 05060708 412E574156 000000"},
        {CALL(vxPlaySoundFile4j(&kValue, "WAVE")), 6, 26, "01020304 05060708 57415645"},
        {CALL(vxAdjustVolume(11)), 6, 27, "0B000000"},
        {CALL(vxReadCurVolume(out)), 6, 28, "", "", "A1A2A3A4", "", "A1"},
        {CALL(vxReadSpePlayListIndex(out)), 6, 29, "", "", "A1A2A3A4", "", "A1"},
    });
}

constexpr ZoneHead kTwoZones{{1, 2, 3}, 2, {4, 5, 6, 7}};
constexpr DisplayHead kDisplay{{0x11, 0x12}, 3, {0x13, 0x14}};
constexpr ContentHead kContent{{1, 2, 3, 4, 5, 6}, 2};
constexpr SpeZoneHead kSpecial{{1, 2, 3, 4, 5, 6}, 3, {7, 8, 9, 10}};

TEST(FlatCommands, Zones)
{
    Bytes entries = Bytes(12, 0xB1) + Bytes(12, 0xB2);
    void* at = entries.data();
    constexpr char kDivision[] = "01020302 04050607 B1B1B1B1B1B1B1B1B1B1B1B1 B2B2B2B2B2B2B2B2B2B2B2B2";
    constexpr char kDisplayBytes[] = "1112000000000000 0000000000000000 0000000000000000 00000000 0300 1314 A1A2A3";
    constexpr char kTwo[] = "0000000200000000 C1C1C1C1C1C1C1C1C1C1C1C1 C2C2C2C2C2C2C2C2C2C2C2C2";
    constexpr char kOne[] = "0000000200000000 C1C1C1C1C1C1C1C1C1C1C1C1";
    DisplayHead bare = kDisplay;
    bare.dataLength = 0;
    const auto getZone = [](std::uint8_t* out, std::uint8_t most) {
        return vxGetZone(reinterpret_cast<ZoneHead*>(out), out + 8, most, 9);
    };
    const auto getZone4j = [](std::uint8_t* out) {
        std::uint8_t* list = out + 8;
        return vxGetZone4j(reinterpret_cast<ZoneHead*>(out), &list, 1, 9);
    };
    ExpectFlat({
        {CALL(vxDivideZone(1, 2, kTwoZones, at)), 54, 1, "01020000", kDivision},
        {CALL(vxDivideZone4j(1, 2, &kTwoZones, &at)), 54, 1, "01020000", kDivision},
        {CALL(vxGetZoneBase(out, 9)), 54, 2, "", "", "01020304", "A1A2A3", "A1A2A3"},
        {CALL(vxGetZoneBase(out, 2)), 54, 2, "", "", "", "A1A2A3", "A1A2"},
        {CALL(getZone(out, 9)), 54, 2, "09000000", "", "01020304", kTwo, kTwo},
        {CALL(getZone(out, 1)), 54, 2, "09000000", "", "01020304", kTwo, kOne},
        {CALL(getZone(out, 0)), 54, 2, "09000000", "", "01020304", kTwo, "0000000200000000"},
        {CALL(getZone(out, 1)), 54, 2, "09000000", "", "01020304 00000002 00000000", kTwo + 16, kOne},
        {CALL(getZone(out, 2)), 54, 2, "09000000", "", "01020304", "000000FF00000000 C1",
         "000000FF00000000 C10000000000000000000000 000000000000000000000000"},
        {CALL(getZone4j(out)), 54, 2, "09000000", "", "01020304", kTwo, kOne},
        {CALL(vxSetDisplay(1, 2, 3, kDisplay, kData)), 54, 3, "01020300", kDisplayBytes},
        {CALL(vxSetDisplay4j(1, 2, 3, &kDisplay, kData)), 54, 3, "01020300", kDisplayBytes},
        {CALL(vxSetDisplay(1, 2, 3, bare, nullptr)), 54, 3, "01020300",
         "1112000000000000 0000000000000000 0000000000000000 00000000 0000 1314"},
        {CALL(vxSetContentDisplay(1, 2, kContent, kData)), 54, 4, "01020000", "0102030405060200 A1A2"},
        {CALL(vxSetContentDisplay4j(1, 2, &kContent, kData)), 54, 4, "01020000", "0102030405060200 A1A2"},
        {CALL(vxSetEnableMulitZone(1)), 54, 5, "01000000"},
        {CALL(vxSetPageCount(21)), 54, 6, "15000000"},
        {CALL(vxDivideSpeZone(9, kSpecial, kData)), 54, 7, "09000000",
         "010203040506 0300 0708090A A1A2A3A4A5A6A7A8A9AAABAC"},
        {CALL(vxGetMulitZoneSetting(out + 1, out)), 54, 8, "", "", "A1A2A3A4", "", "A2A1"},
    });
    ExpectFlat(
        {
            {CALL(vxDivideZoneBase(1, 2, kData, 5)), 54, 1, "01020000", "A1A2A3A4A5"},
            {CALL(vxDivideZoneBase(1, 2, nullptr, 0)), 54, 1, "01020000"},
            {CALL(vxSetDisplayBase(1, 2, 3, kData, 1)), 54, 3, "01020300", "A1"},
            {CALL(vxSetContentDisplayBase(1, 2, kData, 2)), 54, 4, "01020000", "A1A2"},
        },
        false);
}

const std::uint8_t* Text(const char* text)
{
    return reinterpret_cast<const std::uint8_t*>(text);
}

const std::uint8_t* const kA = Text("A");
const std::uint8_t* const kBc = Text("BC");
const std::uint8_t* const kDef = Text("DEF");
constexpr ProjectExtra kExtra{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}};

TEST(FlatCommands, Programs)
{
    ExpectFlat({
        // As many bytes as the extended part has, but from the payload on.
        {CALL(vxCoreGetFileProperty(kBc, out, 9)), 122, 1, "00000000", "4243", "01020304", "A1A2A3A4A5", "01020304A1"},
        {CALL(vxCoreGetFileProperty(kA, out, 3)), 122, 1, "00000000", "41", "", "A1A2A3A4A5", "A1A2A3"},
        {CALL(vxCoreGetFileProperty(nullptr, out, 4)), 122, 1, "00000000", "", "01020304"},
        // One minor, two payloads: a flag without a text, or the length of a fourth text.
        {CALL(vxCorePlayProgram(kA, kBc, kDef, 3)), 122, 2, "0100 0200 0300 03 00", "41 4243 444546"},
        {CALL(vxCorePlayWindowProgram(kA, kBc, kDef, kDef)), 122, 2, "0100 0200 0300 0300", "41 4243 444546 444546"},
        {CALL(vxCorePlayProgram(kA, kBc, nullptr, 255)), 122, 2, "0100 0200 0000 FF 00", "41 4243"},
        {CALL(vxCorePlayWindowProgram(kA, kBc, nullptr, nullptr)), 122, 2, "0100 0200 0000 0000", "41 4243"},
        {CALL(vxCoreStopPlay(kDef)), 122, 5, "03000000 00000000", "444546"},
        {CALL(vxCoreStopPlay(nullptr)), 122, 5, "00000000 00000000"},
        {CALL(vxCoreWinMode(1, kDef, 2)), 122, 6, "01000000 00000000", "4445"},
        {CALL(vxCoreWinMode(1, nullptr, 50)), 122, 6, "01000000 00000000"},
        {CALL(vxCoreProjectInfo(kBc, 0x0102, 0x0304)), 122, 7, "0200 0201 0403 0000", "4243"},
        {CALL(vxCoreProjectInfo(nullptr, 1, 2)), 122, 7, "0000 0100 0200 0000"},
        {CALL(vxCorePrjSyncProgress(out + 1, out)), 122, 8, "00000000", "", "A1A2A3A4", "", "A2A1"},
        {CALL(vxCoreGetPlayInfo(out, 9)), 122, 9, "00000000", "", "01020304", "A1A2", "01020304A1A2"},
        {CALL(vxCoreGetPlayInfo(out, 2)), 122, 9, "00000000", "", "01020304", "", "0102"},
        {CALL(vxCoreSwitchProgram(kBc, 2)), 122, 10, "02 0200 00 00000000", "4243"},
        {CALL(vxCoreSwitchMode(2)), 122, 11, "02000000"},
        {CALL(vxCorePlayEmergencyProgram(kA, kBc, kDef)), 122, 12, "0100 0200 0300 0000", "41 4243 444546"},
        {CALL(vxCoreStopEmergencyProgram()), 122, 13},
        {CALL(vxCoreProjectInfoEx(kBc, 0x0102, 0x0304, &kExtra)), 122, 16,
         "0200 0201 0403 0000 01020304 05060708 090A0B0C 0D0E0F10 11121314", "4243"},
    });
}

} // namespace
} // namespace vxsign::test
