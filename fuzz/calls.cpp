// Exports that read what a sign answers.
#include "fuzz/calls.h"

#include "fuzz/support.h"

#include <vxsign/vxsign.h>

#include <memory>
#include <type_traits>

namespace vxsign::fuzz {
namespace {

std::vector<std::unique_ptr<std::uint8_t[]>> rooms; // of the call that runs

// An output of a call: ends where its type ends, or behind so many bytes, for the sanitizer to see.
class Out
{
public:
    explicit Out(std::size_t size = 0) : bytes(size) {}

    template <class Item>
    operator Item*() const // NOLINT(*-explicit-*): an argument of any type
    {
        std::size_t size = bytes;
        if constexpr (!std::is_void_v<Item>)
            size = std::max(size, sizeof(Item));
        rooms.push_back(std::make_unique<std::uint8_t[]>(size));
        return reinterpret_cast<Item*>(rooms.back().get());
    }

private:
    std::size_t bytes;
};

constexpr char kSignFile[] = "D:\\T\\A.NMG";
constexpr char kLocal[] = "local"; // is there
constexpr char kGot[] = "got";
constexpr std::uint8_t kParams[VX_CAL_PARAMS] = {};
std::uint8_t name[] = "SHOP";

// A number that a call takes and changes, and what a task has given for the next question.
std::uint32_t size;
std::uint32_t task;
std::uint32_t* Of(std::uint32_t& number, std::uint32_t value)
{
    number = value;
    return &number;
}

template <class Record>
std::uint32_t Take(const Record* /*record*/)
{
    return 0;
}
template <class Record>
std::uint32_t TakeOf(std::uint32_t /*user*/, const Record* /*record*/)
{
    return 0;
}
std::uint32_t TakeEntry(std::uint8_t* entry, void* /*user*/)
{
    return entry[275]; // the last byte
}
std::uint32_t TakeStatus(std::uint32_t, const vxStatusRecord*, const std::uint8_t* beacon, const char* message)
{
    return beacon[7] + static_cast<std::uint32_t>(std::string_view(message).size());
}

void ThroughPlayList()
{
    char folder[] = "list";
    char file[] = "play.xml";
    vxOSCreateDir(folder);
    vxPLInit(folder, file);
    vxPLReadFromLED(1);
    vxPLSave();
    vxPLSendToLED(1);
}

void ThroughCommunication()
{
    vxCommunicationSet set{};
    vxReadCommunicationSet(&set);
    vxWriteCommunicationSet(&set);
}

void ThroughBatch()
{
    Bytes batch(116 + 512);
    batch[0] = 'M';
    batch[1] = 'C';
    std::copy_n(kLocal, sizeof kLocal, batch.begin() + 116);
    std::copy_n(kSignFile, sizeof kSignFile, batch.begin() + 116 + 256);
    WriteFile("batch", batch);
    vxExecFileCMD("batch");
}

const Call kCalls[] = {
    // records
    {"power", [] { vxGetPowerState(Out(), Out()); }},
    {"connect", [] { vxConnectTest(Out(), Out(), Out()); }},
    {"data flash", [] { vxReadDataFlashInfo(Out(12)); }},
    {"state", [] { vxReadCurrentState(Out(), Out(50), 50); }},
    {"number", [] { vxGetSNMAC(Out(12), 12, Out(6), 6); }},
    {"style", [] { vxReadDefDisplayStyle(Out(52)); }},
    {"system info", [] { vxReadSystemInfo(Out(200), 200, Out()); }},
    {"error log", [] { vxReadErrorLog(Out(2000), 2000, Out()); }},
    {"database", [] { vxReadDB(1, "select * from SysLog", Out(8), 8, Out(900), 900); }},
    {"bright", [] { vxReadBrightInfo(Out(), Out(), Out()); }},
    {"bright record", [] { vxReadBrightInfoExt(Out(8)); }},
    {"statistics", [] { vxReadStats(9, Out(40), 40); }},
    {"board", [] { vxReadPCBIDAndPort(Out(), Out()); }},
    {"update", [] { vxLCReadUpdateStatus(0, 3, Out(), Out()); }},
    {"drive", [] { vxGetDriveInfo('D', Out(), Out(), Out(12)); }},
    {"playing", [] { vxGetPlayingFileName(Out(40), 40); }},
    {"zone", [] { vxGetZone(Out(), Out(60), 5, 1); }},
    {"zones", [] { vxGetZoneBase(Out(200), 200); }},
    {"program", [] { vxCoreGetFileProperty(name, Out(200), 200); }},
    {"programs", [] { vxCoreGetPlayInfo(Out(2000), 2000); }},
    {"clock", [] { vxReadLEDTime(Out(), Out(), Out(), Out(), Out(), Out(), Out(), Out()); }},
    {"any command", [] { vxCustomTest(4, 5, name, 4, name, 4, 1, Out(527), Out(), Out(4608), Out()); }},
    {"cleared", [] { vxClearAllPlayFiles(1, Out()); }},
    {"collected", [] { vxExtraCollectRead(Out(38), 1); }},
    {"inputs", [] { vxExtraIORead(Out(68), 1); }},
    {"wifi", [] { vxExtraWifiGetInfo(Out(44)); }},
    {"communication", ThroughCommunication},
    {"properties", [] { vxInitProperty(); }},
    {"status", [] { vxReadStatusInfo("", 1, 0, TakeStatus, 0x44FFF000, 0x44FFF001, 1); }},
    {"login", [] { vxLogin("admin", "secret"); }},
    {"screen", [] { vxReadDefaultScreenSet(Out(4)); }},
    // lists
    {"folder", [] { vxGetDirFile("D:\\T", Out(), Out(640), 20); }},
    {"folder page", [] { vxGetDirFileEx("D:\\T", 0, 20, Out(), Out(320), 10); }},
    {"folder file", [] { vxLstFolder(kGot, "D:\\T"); }},
    {"long folder", [] { vxLstLongFolderCB("D:\\T", TakeEntry, nullptr); }},
    {"servers", [] { vxGetAPIServerTable(Out(), Out(272), 4); }},
    {"events", [] { vxReadEventLog(0, 1, VX_LOG_READ, TakeOf); }},
    {"plays", [] { vxReadPlayLogExt(0, 1, VX_LOG_READ, TakeOf); }},
    {"lanes", [] { vxReadTJRadarLog("", 1, 0, TakeOf); }},
    {"temperatures", [] { vxReadTrafficTempLog(kGot, "SIGN", Take); }},
    {"play list", ThroughPlayList},
    // files
    {"read", [] { vxReadSpecPathFile(kSignFile, kGot); }},
    {"read wide", [] { vxReadSpecPathFileEx(kSignFile, kGot); }},
    {"read virtual", [] { vxReadVirtualFile("D:\\T", kGot); }},
    {"read system", [] { vxReadSysFile("CONFIG.SYS", kGot); }},
    {"read content", [] { vxReadTextFile('D', "A.NMG", kGot); }},
    {"read flash", [] { vxReadDataFlashFile(kGot, 0); }},
    {"screenshot", [] { vxReadCurScreenshot(kGot); }},
    {"write", [] { vxWriteSpecFile(kSignFile, kLocal); }},
    {"write wide", [] { vxWriteSpecFileEx(kSignFile, kLocal); }},
    {"write system", [] { vxWriteSystemFile("A.SYS", kLocal); }},
    {"write window", [] { vxWriteFileOptimize(kSignFile, kLocal); }},
    {"write flash", [] { vxWriteDataFlashFile(kLocal, 0); }},
    {"write memory", [] { vxWriteAbsoluteAddress(0, 2, kLocal); }},
    {"batch", ThroughBatch},
    {"beacon file", [] { vxRWFile("TRAFFICLIGHT.SYS", "", VX_MOVE_READ); }},
    {"monitor file", [] { vxRWFile("MONITOR.GIF", "", VX_MOVE_READ); }},
    // tiles
    {"bus tile", [] { vxTarsisGetTileStat(7, &task); }},
    {"bus task", [] { vxTarsisGetResult(task, Out(6), 6, Out()); }},
    {"bus command", [] { vxTarsisSetTileCmd(7, 1); }},
    {"bus read", [] { vxTarsisReadTileFile(kGot, 7, 4); }},
    {"bus write", [] { vxTarsisWriteTileFile(kLocal, 7, 4); }},
    {"port test", [] { vxOndraTileTest(1, 1, 1); }},
    {"port read", [] { vxOndraReadTileFileExt(kGot, 5, 1, 1, 0, 0, Out()); }},
    {"port write", [] { vxOndraWriteTileFile(kLocal, 5, 1, 1, Out()); }},
    {"port burn", [] { vxOndraWritePxlCalBurn(kLocal, 1, 1, 0, 0, kParams, Out()); }},
    {"direct read", [] { vxDirectTileReadFileEx(kGot, 7, 1, 1, 0); }},
    {"direct write", [] { vxDirectTileWriteFileEx(kLocal, 1, 1, 1, 0); }},
    // traffic signal controller, other devices
    {"traffic", [] { vxReadTCStatus(Out(60), Of(size, 60)); }},
    {"traffic monitor", [] { vxReadTCMonitor(VX_TRAFFIC_MONITOR, Out(60), Of(size, 60)); }},
    {"traffic part", [] { vxTCGetRealStatus(Out(40), 40, 0); }},
    {"traffic file", [] { vxReadTrafficRealStatus(kGot); }},
    {"traffic flow", [] { vxTrafficRFlow(kParams, kGot); }},
    {"traffic clock", [] { vxReadTrafficTime(Out(), Out(), Out(), Out(), Out(), Out(), Out(), Out()); }},
    {"modbus read", [] { vxMB_VMSGet(7, 1, 3, Out()); }},
    {"modbus write", [] { vxMB_VMSSet(7, 1, 3, 9); }},
    {"xmodem", [] { vxXModem_Upgrade(kLocal); }},
};

} // namespace

std::span<const Call> AllCalls()
{
    return kCalls;
}

void Run(const Call& call)
{
    WriteFile(kLocal, Bytes(2000, 'x'));
    rooms.clear();
    call.run();
}

} // namespace vxsign::fuzz
