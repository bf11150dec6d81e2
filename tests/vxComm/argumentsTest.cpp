// What no export takes: a row for each export with a pointer, which gives "Arguments Error" without it and sends
// nothing; then values that no request holds.
#include "support/flatRows.h"

#include <algorithm>
#include <set>
#include <type_traits>

namespace vxsign::test {
namespace {

/// Something to point at, or a small number. As a text it is "x", as a record it counts what follows.
template <class T>
T Sample()
{
    alignas(16) static std::array<std::uint8_t, 8192> something;
    something.fill(1);
    something[0] = 'x';
    something[1] = 0;
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(something.data());
    else if constexpr (std::is_class_v<T>)
        return *Sample<T*>();
    else
        return T{1};
}

struct PointerRow
{
    const char* name;
    std::vector<bool> pointers; // of the parameters
    std::function<std::uint32_t(std::size_t missing)> call;
    std::set<std::size_t> optional; // parameters, from 1 on
};

template <class... P>
PointerRow Row(const char* name, std::uint32_t (*call)(P...), std::set<std::size_t> optional)
{
    const auto callWithout = [call](std::size_t missing) {
        std::size_t place = 0;
        const auto pick = [&]<class T>(T value) -> T {
            if constexpr (std::is_pointer_v<T>)
                return ++place == missing ? nullptr : value;
            return ++place, value;
        };
        const std::tuple<P...> arguments{pick(Sample<P>())...}; // in their order, between braces
        return std::apply(call, arguments);
    };
    return {name, {std::is_pointer_v<P>...}, callWithout, std::move(optional)};
}

// The numbers are those of parameters that may be null.
#define ROW(name, ...) Row(#name, name, {__VA_ARGS__})

void ExpectNullsRefused(std::uint32_t result, const std::vector<PointerRow>& rows)
{
    for (const PointerRow& row : rows)
        for (std::size_t i = 1; i <= row.pointers.size(); ++i) {
            if (!row.pointers[i - 1] || row.optional.contains(i))
                continue;
            SCOPED_TRACE(row.name + std::string(", argument ") + std::to_string(i));
            ScriptedSign sign;
            EXPECT_EQ(row.call(i), result);
            EXPECT_TRUE(sign.requests.empty());
            EXPECT_EQ(sign.opened, sign.closed);
        }
}

TEST(Arguments, EachPointerThatIsNeeded)
{
    ExpectNullsRefused(2, {ROW(vxBmp2Nmg), ROW(vxShowBmpToNmg), ROW(vxShowMsgToNmg), ROW(vxInitAPI)});
    // Control.
    ExpectNullsRefused(2, {ROW(vxGetPowerState), ROW(vxReadEthCheck), ROW(vxSetBeacon), ROW(vxGetBeacon),
                           ROW(vxBrightAdjustSides), ROW(vxSetSignBeacon), ROW(vxGetSignBeacon), ROW(vxGetLCS),
                           ROW(vxSetExternalEquipment), ROW(vxGetExternalEquipment), ROW(vxPlayVoice), ROW(vxGetFH),
                           ROW(vxTubeSet), ROW(vxGetBufferStatus), ROW(vxUploadBuffer)});
    // Tests, clock.
    ExpectNullsRefused(2, {ROW(vxConnectTest), ROW(vxCrayTest), ROW(vxAreaTest), ROW(vxLocationTest),
                           ROW(vxStabilityTest), ROW(vxReadLEDTime)});
    // Boards.
    ExpectNullsRefused(2, {ROW(vxExtraCollectCtrl), ROW(vxExtraCollectRead), ROW(vxExtraIOCtrl), ROW(vxExtraIORead),
                           ROW(vxExtraWifiUnlock), ROW(vxExtraWifiSetInfo), ROW(vxExtraWifiGetInfo), ROW(vxMPUSetEDID),
                           ROW(vxMPUProgressByTaskID), ROW(vxVPUGetSignalStatus), ROW(vxVPUGetBright),
                           ROW(vxVPUGetInfo), ROW(vxXModem_Upgrade)});
    // Records.
    ExpectNullsRefused(2, {ROW(vxWriteUrgentMsg), ROW(vxWriteBrightCtrlBlock), ROW(vxWriteSNMAC),
                           ROW(vxWriteDefDisplayStyle), ROW(vxWriteCRCForFile), ROW(vxReadSystemSet),
                           ROW(vxReadDefDisplayStyle), ROW(vxReadSystemInfo), ROW(vxReadErrorLog), ROW(vxReadDB),
                           ROW(vxReadBrightInfoExt), ROW(vxReadStats), ROW(vxReadPCBID), ROW(vxReadPCBIDAndPort),
                           ROW(vxReadDataFlashInfo), ROW(vxWriteCommunicationSet)});
    ExpectNullsRefused(2, {ROW(vxReadDefaultScreenSet), ROW(vxWriteDefaultScreenSet), ROW(vxWriteCmdBuf),
                           ROW(vxReadCurrentState, 2), ROW(vxReadBrightInfo, 1)});
    // Files.
    ExpectNullsRefused(2, {ROW(vxCreateDir), ROW(vxRename), ROW(vxMove), ROW(vxDelete), ROW(vxGetDirFile),
                           ROW(vxGetDirFileEx), ROW(vxIsFileExist), ROW(vxClearAllPlayFiles), ROW(vxLstFolder),
                           ROW(vxGetDirLongFileEx), ROW(vxReadSysFile), ROW(vxReadFontFile), ROW(vxReadTextFile),
                           ROW(vxReadStringFile), ROW(vxReadPictureFile), ROW(vxReadArrPicFile)});
    ExpectNullsRefused(2, {ROW(vxReadSpecPathFile), ROW(vxReadSpecPathFileEx), ROW(vxReadVirtualFile),
                           ROW(vxReadPlayLog), ROW(vxReadWarning), ROW(vxReadDataFlashFile), ROW(vxWriteSystemFile),
                           ROW(vxWriteFontFile), ROW(vxWriteTextFile), ROW(vxWriteStringFile), ROW(vxWritePictureFile),
                           ROW(vxWriteArrPicFile), ROW(vxWriteSpecFile), ROW(vxWriteSpecFileEx),
                           ROW(vxWriteFileOptimize), ROW(vxWriteDataFlashFile)});
    ExpectNullsRefused(2, {ROW(vxWriteAbsoluteAddress), ROW(vxExecFileCMD), ROW(vxEasyReadFile), ROW(vxEasyWriteFile),
                           ROW(vxCurrentMsg2Gif), ROW(vxLstLongFolderCB, 3), ROW(vxEasyReadFileEx, 6),
                           ROW(vxEasyWriteFileEx, 6)});
    // Logins, play, content.
    ExpectNullsRefused(2, {ROW(vxLogin), ROW(vxChangePSW), ROW(vxGetAPIServerTable), ROW(vxPlayPriority),
                           ROW(vxGetPlayingFileName), ROW(vxGetNextPlayFileName), ROW(vxPlaySoundFile),
                           ROW(vxPlaySoundFile4j), ROW(vxReadCurVolume), ROW(vxReadSpePlayListIndex),
                           ROW(vxReadCurScreenshot), ROW(vxReadCurScreentshot), ROW(vxReadTJRadarLog2File),
                           ROW(vxShowMsg), ROW(vxShowPic), ROW(vxShowFiles)});
    ExpectNullsRefused(2, {ROW(vxTubeCtrl), ROW(vxShowMsgEx, 12), ROW(vxShowMsgTimeout, 14), ROW(vxShowPicEx, 9),
                           ROW(vxShowFilesEx, 9), ROW(vxShowFilesSpe, 9), ROW(vxShowFilesII, 9), ROW(vxTubeCtrlEx, 7)});
    // Programs and zones.
    ExpectNullsRefused(2, {ROW(vxCorePrjSyncProgress), ROW(vxCoreGetPlayInfo), ROW(vxCoreSwitchProgram),
                           ROW(vxDivideZoneBase), ROW(vxDivideZone), ROW(vxDivideZone4j), ROW(vxGetZoneBase),
                           ROW(vxGetZone), ROW(vxGetZone4j), ROW(vxSetDisplayBase), ROW(vxSetDisplay),
                           ROW(vxSetDisplay4j), ROW(vxSetContentDisplayBase), ROW(vxSetContentDisplay),
                           ROW(vxSetContentDisplay4j), ROW(vxDivideSpeZone)});
    ExpectNullsRefused(2, {ROW(vxGetMulitZoneSetting), ROW(vxCoreGetFileProperty, 1), ROW(vxCorePlayProgram, 3),
                           ROW(vxCorePlayWindowProgram, 3, 4), ROW(vxCorePlayEmergencyProgram, 3),
                           ROW(vxCoreProjectInfoEx, 1)});
    // Tiles, pixels, traffic.
    ExpectNullsRefused(2, {ROW(vxTarsisGetTileStat), ROW(vxTarsisTileTest), ROW(vxTarsisGetResult),
                           ROW(vxTarsisReadTileFile), ROW(vxTarsisWriteTileFile), ROW(vxTarsisTilePxlLoad),
                           ROW(vxTarsisTilePxlSave), ROW(vxOndraGetResult), ROW(vxOndraTileCMD),
                           ROW(vxOndraTileCMDTimeout), ROW(vxDirectTileCMD), ROW(vxDirectTileReadFileEx),
                           ROW(vxDirectTileWriteFileEx), ROW(vxDirectTilePHYWriteCoefficent2), ROW(vxPixProgress),
                           ROW(vxReadPixResult)});
    ExpectNullsRefused(2, {ROW(vxReadSignalResult), ROW(vxPxlChk), ROW(vxReadPixelInfo), ROW(vxReadPixelErrorReport),
                           ROW(vxReadTCStatus), ROW(vxReadTCMonitor), ROW(vxTCJKBLightTest), ROW(vxTCJKCLightTest),
                           ROW(vxTrafficTempPhaseRun), ROW(vxReadTrafficTime), ROW(vxReadTrafficErrLog),
                           ROW(vxReadTrafficTempLog), ROW(vxOndraReadTileFile, 6), ROW(vxOndraReadTileFileTimeout, 6),
                           ROW(vxOndraReadTileFileExt, 7), ROW(vxOndraWriteTileFile, 5)});
    ExpectNullsRefused(
        2, {ROW(vxOndraWriteTileFileExt, 6), ROW(vxOndraWritePxlCal, 5, 6), ROW(vxOndraWritePxlCalBurn, 6, 7)});
    // Reports.
    ExpectNullsRefused(2, {ROW(vxReadRadarLog), ROW(vxReadNewRadarLog), ROW(vxReadTJRadarLog), ROW(vxReadBatInfoLog),
                           ROW(vxReadBatInfoLogII), ROW(vxReadPlayLogExt), ROW(vxReadSignLog), ROW(vxReadTempLog),
                           ROW(vxReadEventLog), ROW(vxReadTileInfo), ROW(vxReadStatusInfo), ROW(vxUpdate3Info),
                           ROW(vxReadSignWaringLog), ROW(vxReadWaringReport), ROW(vxReadWarningLog)});
    // These have a word of their own for it.
    ExpectNullsRefused(3, {ROW(vxTrafficRFlow), ROW(vxReadTrafficStatus), ROW(vxReadTrafficMonitor),
                           ROW(vxReadTrafficRealStatus), ROW(vxGetProperty)});
}

TEST(Arguments, ValuesThatNoRequestHolds)
{
    const Bytes much(5000);
    const std::string p1020(1020, 'p');
    const std::string local = "x";
    void* none = nullptr;
    std::uint8_t* noEntries = nullptr;
    constexpr ZoneHead kTwoZones{{}, 2, {}};
    const auto zones = [&](std::uint8_t count) { return vxDivideZone(1, 2, {{}, count, {}}, much.data()); };
    const auto display = [&](std::uint16_t size) { return vxSetDisplay(1, 2, 3, {{}, size, {}}, much.data()); };
    const auto content = [&](std::uint16_t size) { return vxSetContentDisplay(1, 2, {{}, size}, much.data()); };
    const auto special = [&](std::uint16_t count) { return vxDivideSpeZone(1, {{}, count, {}}, much.data()); };
    const auto property = [&](std::uint8_t* out) { return vxCoreGetFileProperty(Bytes(4000, 'x').data(), out, 4); };
    const std::pair<const char*, std::function<std::uint32_t(std::uint8_t * out)>> calls[] = {
        {CALL(vxUploadBuffer(much.data(), 0))},
        {CALL(vxPatternTest(1))},
        {CALL(vxPatternTest(16))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 1521, 5))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 0x80000001, 5))},
        {CALL(vxWriteUrgentMsg(1, 2, much.data(), 3053))},
        {CALL(vxLCSetUpdateStatus(0, 0, 3))},
        {CALL(vxLCSetUpdateStatus(1, 0, 1))},
        {CALL(vxLCReadUpdateStatus(1, 0, out, nullptr))},
        {CALL(vxReadStats(1, out, 0))},
        {CALL(vxGetSNMAC(out, 11, out, 6))},
        {CALL(vxGetSNMAC(out, 12, out, 5))},
        {CALL(vxGetSNMAC(out, 12, nullptr, 6))},
        {CALL(vxCustomTest(1, 1, nullptr, 1, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr))},
        {CALL(vxCreateDir(p1020.c_str()))},
        {CALL(vxIsFileExist(std::string(1 << 20, 'p').c_str()))},
        {CALL(vxPlaySoundFile(1, p1020.substr(7).c_str()))},
        {CALL(vxCoreGetFileProperty(much.data(), out, 0))},
        {CALL(property(out))},
        {CALL(vxCoreWinMode(1, much.data(), 4000))},
        {CALL(vxCoreGetPlayInfo(out, 0))},
        {CALL(vxCoreSwitchProgram(much.data(), 3))},
        {CALL(vxCoreSwitchMode(3))},
        {CALL(zones(128))},
        {CALL(display(3021))},
        {CALL(content(65535))},
        {CALL(special(761))},
        {CALL(vxGetZoneBase(out, 0))},
        {CALL(vxDivideZone4j(1, 2, &kTwoZones, &none))},
        {CALL(vxGetZone4j(reinterpret_cast<ZoneHead*>(out), &noEntries, 1, 1))},
        {CALL(vxTarsisGetTileStat(495, Long(out)))},
        {CALL(vxTarsisTileTest(495, 1, Long(out)))},
        {CALL(vxTarsisTileTest(65534, 1, Long(out)))},
        {CALL(vxTarsisSetTileCmd(65534, 1))},
        {CALL(vxOndraTileCMD(1, 2, 3, much.data(), 3049))},
        {CALL(vxOndraReadTileFile(local.c_str(), 0, 1, 65535, 1, nullptr))},
        {CALL(vxOndraReadTileFileTimeout(local.c_str(), 11, 1, 1, 1, nullptr, 1))},
        {CALL(vxOndraReadTileFileExt(local.c_str(), 0, 255, 1, 0, 1, nullptr))},
        {CALL(vxOndraWriteTileFile(local.c_str(), 11, 1, 1, nullptr))},
        {CALL(vxOndraWriteTileFileExt(local.c_str(), 0, 255, 1, 0, nullptr))},
        {CALL(vxOndraWritePxlCal(local.c_str(), 255, 1, 0, nullptr, nullptr))},
        {CALL(vxOndraWritePxlCalBurn(local.c_str(), 255, 1, 0, 0, nullptr, nullptr))},
        {CALL(vxDirectTileCMD(1, 1, 1, much.data(), 3053))},
        {CALL(vxShowFiles(Sample<const char**>(), 0, '1', 1, "127.0.0.1", 1, 0))},
        {CALL(vxTubeSet(1, much.data(), 1021))},
        {CALL(vxShowMsgToNmg(much.data(), 0, local.c_str(), 0, 0, 0, 0))}};
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        ScriptedSign sign;
        std::array<std::uint8_t, 256> out;
        EXPECT_EQ(call(out.data()), 2u);
        EXPECT_TRUE(sign.requests.empty());
        EXPECT_EQ(sign.opened, sign.closed);
    }
}

} // namespace
} // namespace vxsign::test
