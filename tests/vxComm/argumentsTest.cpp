// What no export takes: a row for each export with a pointer, which gives "Arguments Error" without it and sends
// nothing; then values that no request holds.
#include "support/flatRows.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
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
#define POINTERS(name, ...) Row(#name, name, {__VA_ARGS__})

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
    ExpectNullsRefused(2, {
                              POINTERS(vxBmp2Nmg),
                              POINTERS(vxShowBmpToNmg),
                              POINTERS(vxShowMsgToNmg),
                              POINTERS(vxInitAPI),
                              // Control.
                              POINTERS(vxGetPowerState),
                              POINTERS(vxReadEthCheck),
                              POINTERS(vxSetBeacon),
                              POINTERS(vxGetBeacon),
                              POINTERS(vxBrightAdjustSides),
                              POINTERS(vxSetSignBeacon),
                              POINTERS(vxGetSignBeacon),
                              POINTERS(vxGetLCS),
                              POINTERS(vxSetExternalEquipment),
                              POINTERS(vxGetExternalEquipment),
                              POINTERS(vxPlayVoice),
                              POINTERS(vxGetFH),
                              POINTERS(vxTubeSet),
                              POINTERS(vxGetBufferStatus),
                              POINTERS(vxUploadBuffer),
                              // Tests, clock.
                              POINTERS(vxConnectTest),
                              POINTERS(vxCrayTest),
                              POINTERS(vxAreaTest),
                              POINTERS(vxLocationTest),
                              POINTERS(vxStabilityTest),
                              POINTERS(vxReadLEDTime),
                              // Boards.
                              POINTERS(vxExtraCollectCtrl),
                              POINTERS(vxExtraCollectRead),
                              POINTERS(vxExtraIOCtrl),
                              POINTERS(vxExtraIORead),
                              POINTERS(vxExtraWifiUnlock),
                              POINTERS(vxExtraWifiSetInfo),
                              POINTERS(vxExtraWifiGetInfo),
                              POINTERS(vxMPUSetEDID),
                              POINTERS(vxMPUProgressByTaskID),
                              POINTERS(vxVPUGetSignalStatus),
                              POINTERS(vxVPUGetBright),
                              POINTERS(vxVPUGetInfo),
                              POINTERS(vxXModem_Upgrade),
                              // Records.
                              POINTERS(vxWriteUrgentMsg),
                              POINTERS(vxWriteBrightCtrlBlock),
                              POINTERS(vxWriteSNMAC),
                              POINTERS(vxWriteDefDisplayStyle),
                              POINTERS(vxWriteCRCForFile),
                              POINTERS(vxReadSystemSet),
                              POINTERS(vxReadCurrentState, 2),
                              POINTERS(vxReadDefDisplayStyle),
                              POINTERS(vxReadSystemInfo),
                              POINTERS(vxReadErrorLog),
                              POINTERS(vxReadDB),
                              POINTERS(vxReadBrightInfo, 1),
                              POINTERS(vxReadBrightInfoExt),
                              POINTERS(vxReadStats),
                              POINTERS(vxReadPCBID),
                              POINTERS(vxReadPCBIDAndPort),
                              POINTERS(vxReadDataFlashInfo),
                              POINTERS(vxWriteCommunicationSet),
                              POINTERS(vxReadDefaultScreenSet),
                              POINTERS(vxWriteDefaultScreenSet),
                              POINTERS(vxWriteCmdBuf),
                              // Files.
                              POINTERS(vxCreateDir),
                              POINTERS(vxRename),
                              POINTERS(vxMove),
                              POINTERS(vxDelete),
                              POINTERS(vxGetDirFile),
                              POINTERS(vxGetDirFileEx),
                              POINTERS(vxIsFileExist),
                              POINTERS(vxClearAllPlayFiles),
                              POINTERS(vxLstFolder),
                              POINTERS(vxGetDirLongFileEx),
                              POINTERS(vxLstLongFolderCB, 3),
                              POINTERS(vxReadSysFile),
                              POINTERS(vxReadFontFile),
                              POINTERS(vxReadTextFile),
                              POINTERS(vxReadStringFile),
                              POINTERS(vxReadPictureFile),
                              POINTERS(vxReadArrPicFile),
                              POINTERS(vxReadSpecPathFile),
                              POINTERS(vxReadSpecPathFileEx),
                              POINTERS(vxReadVirtualFile),
                              POINTERS(vxReadPlayLog),
                              POINTERS(vxReadWarning),
                              POINTERS(vxReadDataFlashFile),
                              POINTERS(vxWriteSystemFile),
                              POINTERS(vxWriteFontFile),
                              POINTERS(vxWriteTextFile),
                              POINTERS(vxWriteStringFile),
                              POINTERS(vxWritePictureFile),
                              POINTERS(vxWriteArrPicFile),
                              POINTERS(vxWriteSpecFile),
                              POINTERS(vxWriteSpecFileEx),
                              POINTERS(vxWriteFileOptimize),
                              POINTERS(vxWriteDataFlashFile),
                              POINTERS(vxWriteAbsoluteAddress),
                              POINTERS(vxExecFileCMD),
                              POINTERS(vxEasyReadFile),
                              POINTERS(vxEasyWriteFile),
                              POINTERS(vxEasyReadFileEx, 6),
                              POINTERS(vxEasyWriteFileEx, 6),
                              POINTERS(vxCurrentMsg2Gif),
                              // Logins, play, content.
                              POINTERS(vxLogin),
                              POINTERS(vxChangePSW),
                              POINTERS(vxGetAPIServerTable),
                              POINTERS(vxPlayPriority),
                              POINTERS(vxGetPlayingFileName),
                              POINTERS(vxGetNextPlayFileName),
                              POINTERS(vxPlaySoundFile),
                              POINTERS(vxPlaySoundFile4j),
                              POINTERS(vxReadCurVolume),
                              POINTERS(vxReadSpePlayListIndex),
                              POINTERS(vxReadCurScreenshot),
                              POINTERS(vxReadCurScreentshot),
                              POINTERS(vxReadTJRadarLog2File),
                              POINTERS(vxShowMsg),
                              POINTERS(vxShowMsgEx, 12),
                              POINTERS(vxShowMsgTimeout, 14),
                              POINTERS(vxShowPic),
                              POINTERS(vxShowPicEx, 9),
                              POINTERS(vxShowFiles),
                              POINTERS(vxShowFilesEx, 9),
                              POINTERS(vxShowFilesSpe, 9),
                              POINTERS(vxShowFilesII, 9),
                              POINTERS(vxTubeCtrl),
                              POINTERS(vxTubeCtrlEx, 7),
                              // Programs and zones.
                              POINTERS(vxCoreGetFileProperty, 1),
                              POINTERS(vxCorePlayProgram, 3),
                              POINTERS(vxCorePlayWindowProgram, 3, 4),
                              POINTERS(vxCorePlayEmergencyProgram, 3),
                              POINTERS(vxCorePrjSyncProgress),
                              POINTERS(vxCoreGetPlayInfo),
                              POINTERS(vxCoreSwitchProgram),
                              POINTERS(vxCoreProjectInfoEx, 1),
                              POINTERS(vxDivideZoneBase),
                              POINTERS(vxDivideZone),
                              POINTERS(vxDivideZone4j),
                              POINTERS(vxGetZoneBase),
                              POINTERS(vxGetZone),
                              POINTERS(vxGetZone4j),
                              POINTERS(vxSetDisplayBase),
                              POINTERS(vxSetDisplay),
                              POINTERS(vxSetDisplay4j),
                              POINTERS(vxSetContentDisplayBase),
                              POINTERS(vxSetContentDisplay),
                              POINTERS(vxSetContentDisplay4j),
                              POINTERS(vxDivideSpeZone),
                              POINTERS(vxGetMulitZoneSetting),
                              // Tiles, pixels, traffic.
                              POINTERS(vxTarsisGetTileStat),
                              POINTERS(vxTarsisTileTest),
                              POINTERS(vxTarsisGetResult),
                              POINTERS(vxTarsisReadTileFile),
                              POINTERS(vxTarsisWriteTileFile),
                              POINTERS(vxTarsisTilePxlLoad),
                              POINTERS(vxTarsisTilePxlSave),
                              POINTERS(vxOndraGetResult),
                              POINTERS(vxOndraTileCMD),
                              POINTERS(vxOndraTileCMDTimeout),
                              POINTERS(vxOndraReadTileFile, 6),
                              POINTERS(vxOndraReadTileFileTimeout, 6),
                              POINTERS(vxOndraReadTileFileExt, 7),
                              POINTERS(vxOndraWriteTileFile, 5),
                              POINTERS(vxOndraWriteTileFileExt, 6),
                              POINTERS(vxOndraWritePxlCal, 5, 6),
                              POINTERS(vxOndraWritePxlCalBurn, 6, 7),
                              POINTERS(vxDirectTileCMD),
                              POINTERS(vxDirectTileReadFileEx),
                              POINTERS(vxDirectTileWriteFileEx),
                              POINTERS(vxDirectTilePHYWriteCoefficent2),
                              POINTERS(vxPixProgress),
                              POINTERS(vxReadPixResult),
                              POINTERS(vxReadSignalResult),
                              POINTERS(vxPxlChk),
                              POINTERS(vxReadPixelInfo),
                              POINTERS(vxReadPixelErrorReport),
                              POINTERS(vxReadTCStatus),
                              POINTERS(vxReadTCMonitor),
                              POINTERS(vxTCJKBLightTest),
                              POINTERS(vxTCJKCLightTest),
                              POINTERS(vxTrafficTempPhaseRun),
                              POINTERS(vxReadTrafficTime),
                              POINTERS(vxReadTrafficErrLog),
                              POINTERS(vxReadTrafficTempLog),
                              // Reports.
                              POINTERS(vxReadRadarLog),
                              POINTERS(vxReadNewRadarLog),
                              POINTERS(vxReadTJRadarLog),
                              POINTERS(vxReadBatInfoLog),
                              POINTERS(vxReadBatInfoLogII),
                              POINTERS(vxReadPlayLogExt),
                              POINTERS(vxReadSignLog),
                              POINTERS(vxReadTempLog),
                              POINTERS(vxReadEventLog),
                              POINTERS(vxReadTileInfo),
                              POINTERS(vxReadStatusInfo),
                              POINTERS(vxUpdate3Info),
                              POINTERS(vxReadSignWaringLog),
                              POINTERS(vxReadWaringReport),
                              POINTERS(vxReadWarningLog),
                          });
    ExpectNullsRefused(3, {POINTERS(vxTrafficRFlow), POINTERS(vxReadTrafficStatus), POINTERS(vxReadTrafficMonitor),
                           POINTERS(vxReadTrafficRealStatus), POINTERS(vxGetProperty)});
}

struct RefusedCall
{
    const char* name;
    std::function<std::uint32_t(std::uint8_t* out)> call;
};

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
    const RefusedCall calls[] = {
        {CALL(vxUploadBuffer(much.data(), 0))},
        {CALL(vxPatternTest(1))},
        {CALL(vxPatternTest(16))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 1521, 5))},
        {CALL(vxLocationTest(1, 2, 3, 4, much.data(), 0x80000001, 5))}, // a length that wraps
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
        {CALL(vxOndraReadTileFile(local.c_str(), 0, 1, 65535, 1, nullptr))}, // all tiles
        {CALL(vxOndraReadTileFileTimeout(local.c_str(), 11, 1, 1, 1, nullptr, 1))},
        {CALL(vxOndraReadTileFileExt(local.c_str(), 0, 255, 1, 0, 1, nullptr))}, // no port
        {CALL(vxOndraWriteTileFile(local.c_str(), 11, 1, 1, nullptr))},
        {CALL(vxOndraWriteTileFileExt(local.c_str(), 0, 255, 1, 0, nullptr))},
        {CALL(vxOndraWritePxlCal(local.c_str(), 255, 1, 0, nullptr, nullptr))},
        {CALL(vxOndraWritePxlCalBurn(local.c_str(), 255, 1, 0, 0, nullptr, nullptr))},
        {CALL(vxDirectTileCMD(1, 1, 1, much.data(), 3053))}, // one byte more than a request holds
        {CALL(vxShowFiles(Sample<const char**>(), 0, '1', 1, "127.0.0.1", 1, 0))},
        {CALL(vxTubeSet(1, much.data(), 1021))},
        {CALL(vxShowMsgToNmg(much.data(), 0, local.c_str(), 0, 0, 0, 0))},
    };
    for (const RefusedCall& refused : calls) {
        SCOPED_TRACE(refused.name);
        ScriptedSign sign;
        std::array<std::uint8_t, 256> out;
        EXPECT_EQ(refused.call(out.data()), 2u);
        EXPECT_TRUE(sign.requests.empty());
        EXPECT_EQ(sign.opened, sign.closed);
    }
}

} // namespace
} // namespace vxsign::test
