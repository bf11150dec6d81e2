// The logs that the sign keeps as binary files.
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "util/timeText.h"

#include <vxsign/filesystem.h>
#include <vxsign/log.h>
#include <vxsign/play.h>
#include <vxsign/read.h>
#include <vxsign/result.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>

using namespace vxsign;

static_assert(sizeof(RadarLogRecord) == 28 && offsetof(RadarLogRecord, Time) == 8);
static_assert(sizeof(TJRadarLogRecord) == 56 && offsetof(TJRadarLogRecord, Byte5) == 16);
static_assert(offsetof(TJRadarLogRecord, Byte7) == 32 && offsetof(TJRadarLogRecord, Time) == 36);
static_assert(sizeof(BatInfoLogRecord) == 48 && offsetof(BatInfoLogRecord, Value3) == 8);
static_assert(offsetof(BatInfoLogRecord, Value5) == 14 && offsetof(BatInfoLogRecord, Value7To12) == 16);
static_assert(offsetof(BatInfoLogRecord, Time) == 28);

namespace {

constexpr std::size_t kLongestHeader = 16;
constexpr std::size_t kLongestRecord = 44;

// A log file and how to get it.
struct LogFile
{
    const char* localName;
    const char* signPath; // null: fetched and cleared with commands of its own
    bool deletes;         // on the sign, as soon as it is fetched
    std::size_t headerSize;
    bool (*isLog)(const std::uint8_t* header); // null: without header
    std::size_t recordSize;
    bool takesCut; // whether a last record that is cut short counts; what it lacks is zero
};

constexpr LogFile kOldRadar = {
    .localName = "RADAR.LOG",
    .signPath = "D:\\RADARLog.log",
    .deletes = false,
    .headerSize = 12,
    .isLog = [](const std::uint8_t* header) { return Load32(header) != 0; },
    .recordSize = 44,
    .takesCut = true,
};

constexpr LogFile kNewRadar = {
    .localName = "RADAR.LOG",
    .signPath = "E:\\RADAR.log",
    .deletes = true,
    .headerSize = 16,
    .isLog = [](const std::uint8_t* header) { return std::memcmp(header, "RLOG", 4) == 0 && Load32(header + 4) != 0; },
    .recordSize = 8,
    .takesCut = true,
};

constexpr LogFile kLaneRadar = {
    .localName = "TJRADAR.LOG",
    .signPath = nullptr,
    .deletes = true,
    .headerSize = 0,
    .isLog = nullptr,
    .recordSize = 16,
    .takesCut = false,
};

constexpr LogFile Battery(std::int8_t kind, bool deletes)
{
    const bool second = kind == VX_BATTERY_SECOND_LOG;
    return {
        .localName = second ? "DBATINFO.LOG" : "BATINFO.LOG",
        .signPath = second ? "D:\\dbatinfo.log" : "D:\\batinfo.log",
        .deletes = deletes,
        .headerSize = 16,
        .isLog = [](const std::uint8_t* header) { return Load32(header + 4) != 0; },
        .recordSize = 32,
        .takesCut = true,
    };
}

std::uint32_t Fetch(const LogFile& log, const char* local)
{
    const bool plain = log.signPath != nullptr;
    const std::uint32_t result = plain ? vxReadSpecPathFile(log.signPath, local) : vxReadTJRadarLog2File(local);
    if (result != VX_OK || !log.deletes)
        return result;
    // Whether the log could be cleared does not count.
    if (plain)
        vxDelete(log.signPath);
    else
        vxClearTJRadarLog();
    return VX_OK;
}

// Hands each record of the local file to take, until that gives other than 0.
std::uint32_t TakeRecords(const LogFile& log, const char* local,
                          const std::function<std::uint32_t(const std::uint8_t*)>& take)
{
    const File file = OpenFile(local, "rb");
    if (!file)
        return VX_OPEN_FILE;
    std::array<std::uint8_t, kLongestHeader> header{};
    ReadSome(file, header.data(), log.headerSize);
    if (log.isLog != nullptr && !log.isLog(header.data()))
        return VX_OK;
    std::uint32_t result = VX_OK;
    while (result == VX_OK) {
        std::array<std::uint8_t, kLongestRecord> record{};
        const std::size_t got = ReadSome(file, record.data(), log.recordSize);
        if (got == 0 || (got < log.recordSize && !log.takesCut))
            break;
        result = take(record.data());
    }
    return result;
}

// Months and days that no calendar has are taken for the first.
void PutCorrectedTime(char (&field)[kTimeTextSize], std::uint16_t date, std::uint16_t time)
{
    platform::LocalTime parts = DosTime(date, time);
    if (parts.month == 0 || parts.month > 12)
        parts.month = 1;
    if (parts.day == 0)
        parts.day = 1;
    PutTime(field, parts);
}

// The radar logs have their two values in front and their time at the end.
void Build(RadarLogRecord& record, const std::uint8_t* bytes, std::size_t size)
{
    record.First = Load16(bytes);
    record.Second = Load16(bytes + 2);
    PutCorrectedTime(record.Time, Load16(bytes + size - 4), Load16(bytes + size - 2));
}

void Build(TJRadarLogRecord& record, const std::uint8_t* bytes, std::size_t)
{
    record.Lane = bytes[12] % 160 % 10 + 1;
    record.Byte0 = bytes[0];
    record.Byte1 = bytes[1];
    record.Byte2 = bytes[2];
    record.Byte5 = bytes[5];
    record.Byte3 = bytes[3];
    record.Byte6 = bytes[6];
    record.Byte4 = bytes[4];
    record.Byte7 = bytes[7];
    PutTime(record.Time, DosTime(Load16(bytes + 8), Load16(bytes + 10)));
}

void Build(BatInfoLogRecord& record, const std::uint8_t* bytes, std::size_t)
{
    record.Value1 = Load32(bytes + 4);
    record.Value2 = Load32(bytes + 8);
    record.Value3 = Load16(bytes + 12);
    record.Value4 = Load16(bytes + 14);
    record.Value5 = bytes[18];
    record.Value6 = bytes[19];
    for (std::size_t i = 0; i < std::size(record.Value7To12); ++i)
        record.Value7To12[i] = Load16(bytes + 20 + 2 * i);
    PutCorrectedTime(record.Time, Load16(bytes), Load16(bytes + 2));
}

template <class Record>
bool Counts(const Record&)
{
    return true;
}

// A row of the radar without its first two values is empty.
bool Counts(const TJRadarLogRecord& record)
{
    return record.Byte0 + record.Byte1 != 0;
}

template <class Record>
std::uint32_t ReadLog(const LogFile& log, const char* localFolder, std::uint32_t user,
                      std::uint32_t (*callback)(std::uint32_t, const Record*))
{
    if (localFolder == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        const std::string local = std::string(localFolder) + log.localName;
        const std::uint32_t result = Fetch(log, local.c_str());
        if (result != VX_OK)
            return result;
        return TakeRecords(log, local.c_str(), [&](const std::uint8_t* bytes) -> std::uint32_t {
            Record record{};
            Build(record, bytes, log.recordSize);
            return Counts(record) ? callback(user, &record) : static_cast<std::uint32_t>(VX_OK);
        });
    });
}

} // namespace

std::uint32_t vxReadRadarLog(const char* localFolder, std::uint32_t user, std::uint64_t, vxOnRadarLog callback)
{
    return ReadLog(kOldRadar, localFolder, user, callback);
}

std::uint32_t vxReadNewRadarLog(const char* localFolder, std::uint32_t user, std::uint64_t, vxOnRadarLog callback)
{
    return ReadLog(kNewRadar, localFolder, user, callback);
}

std::uint32_t vxReadTJRadarLog(const char* localFolder, std::uint32_t user, std::uint64_t, vxOnTJRadarLog callback)
{
    return ReadLog(kLaneRadar, localFolder, user, callback);
}

std::uint32_t vxReadBatInfoLog(const char* localFolder, std::uint32_t user, std::uint64_t, std::int8_t kind,
                               vxOnBatInfoLog callback)
{
    return ReadLog(Battery(kind, false), localFolder, user, callback);
}

std::uint32_t vxReadBatInfoLogII(const char* localFolder, std::uint32_t user, std::uint64_t, std::int8_t kind,
                                 vxOnBatInfoLog callback)
{
    return ReadLog(Battery(kind, true), localFolder, user, callback);
}
