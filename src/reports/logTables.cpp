// The columns of each log table, and how it is cleared.
#include "reports/logTables.h"

#include <vxsign/filesystem.h>
#include <vxsign/log.h>

#include <cstddef>

static_assert(sizeof(PlayLogRecord) == 388 && offsetof(PlayLogRecord, FileName) == 12);
static_assert(offsetof(PlayLogRecord, Time) == 268 && offsetof(PlayLogRecord, GroupName) == 288);
static_assert(sizeof(SignLogRecord) == 376 && offsetof(SignLogRecord, Operate) == 4);
static_assert(offsetof(SignLogRecord, Author) == 104 && offsetof(SignLogRecord, Result) == 156);
static_assert(offsetof(SignLogRecord, DateTime) == 356);
static_assert(sizeof(TempLogRecord) == 76 && offsetof(TempLogRecord, OutHightTemp) == 40);
static_assert(offsetof(TempLogRecord, InHightTemp) == 52 && offsetof(TempLogRecord, BoxHightTemp) == 64);
static_assert(sizeof(TileInfoRecord) == 332 && offsetof(TileInfoRecord, Column8) == 28);
static_assert(offsetof(TileInfoRecord, Column10) == 60 && offsetof(TileInfoRecord, Column15) == 80);
static_assert(offsetof(TileInfoRecord, Column18) == 188 && offsetof(TileInfoRecord, ReadTime) == 312);
static_assert(sizeof(EventLogRecord) == 128 && offsetof(EventLogRecord, DateTime) == 8);
static_assert(offsetof(EventLogRecord, Note) == 28);

namespace vxsign {
namespace {

// The play log is cleared by deleting the files behind its table.
void DeletePlayLog(const Table&)
{
    vxDelete("C:\\LOGFILE.LOG");
    vxDelete("F:\\LOGFILE.LOG");
}

constexpr Column kPlayLogColumns[] = {
    NumberAt(offsetof(PlayLogRecord, WinID)),
    TextAt(offsetof(PlayLogRecord, GroupName), sizeof(PlayLogRecord::GroupName)),
    TextAt(offsetof(PlayLogRecord, FileName), sizeof(PlayLogRecord::FileName)),
    TextAt(offsetof(PlayLogRecord, Time), sizeof(PlayLogRecord::Time)),
    NumberAt(offsetof(PlayLogRecord, PlayTimes)),
    NumberAt(offsetof(PlayLogRecord, TotalSeconds)),
};

constexpr Column kSignLogColumns[] = {
    NumberAt(offsetof(SignLogRecord, Type)),
    TextAt(offsetof(SignLogRecord, DateTime), sizeof(SignLogRecord::DateTime)),
    TextAt(offsetof(SignLogRecord, Operate), sizeof(SignLogRecord::Operate)),
    TextAt(offsetof(SignLogRecord, Author), sizeof(SignLogRecord::Author)),
    TextAt(offsetof(SignLogRecord, Result), sizeof(SignLogRecord::Result)),
};

constexpr Column kTempLogColumns[] = {
    TextAt(offsetof(TempLogRecord, BeginTime), sizeof(TempLogRecord::BeginTime)),
    TextAt(offsetof(TempLogRecord, EndTime), sizeof(TempLogRecord::EndTime)),
    NumberAt(offsetof(TempLogRecord, OutHightTemp)),
    NumberAt(offsetof(TempLogRecord, OutLowTemp)),
    NumberAt(offsetof(TempLogRecord, OutAvgTemp)),
    NumberAt(offsetof(TempLogRecord, InHightTemp)),
    NumberAt(offsetof(TempLogRecord, InLowTemp)),
    NumberAt(offsetof(TempLogRecord, InAvgTemp)),
    NumberAt(offsetof(TempLogRecord, BoxHightTemp)),
    NumberAt(offsetof(TempLogRecord, BoxLowTemp)),
    NumberAt(offsetof(TempLogRecord, BoxAvgTemp)),
};

constexpr Column kTileInfoColumns[] = {
    NumberAt(offsetof(TileInfoRecord, Column1To7[0])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[1])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[2])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[3])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[4])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[5])),
    NumberAt(offsetof(TileInfoRecord, Column1To7[6])),
    TextAt(offsetof(TileInfoRecord, Column8), sizeof(TileInfoRecord::Column8)),
    TextAt(offsetof(TileInfoRecord, Column9), sizeof(TileInfoRecord::Column9)),
    NumberAt(offsetof(TileInfoRecord, Column10)),
    TextAt(offsetof(TileInfoRecord, Column11), sizeof(TileInfoRecord::Column11)),
    NumberAt(offsetof(TileInfoRecord, Column12To14[0])),
    NumberAt(offsetof(TileInfoRecord, Column12To14[1])),
    NumberAt(offsetof(TileInfoRecord, Column12To14[2])),
    TextAt(offsetof(TileInfoRecord, Column15), sizeof(TileInfoRecord::Column15)),
    NumberAt(offsetof(TileInfoRecord, Column16)),
    TextAt(offsetof(TileInfoRecord, Column17), sizeof(TileInfoRecord::Column17)),
    NumberAt(offsetof(TileInfoRecord, Column18)),
};

constexpr Column kEventLogColumns[] = {
    NumberAt(offsetof(EventLogRecord, EventType)),
    TextAt(offsetof(EventLogRecord, DateTime), sizeof(EventLogRecord::DateTime)),
    NumberAt(offsetof(EventLogRecord, Status)),
    TextAt(offsetof(EventLogRecord, Note), sizeof(EventLogRecord::Note)),
};

} // namespace

const Table kPlayLogTable = {
    "PlayLog", "WinID,GroupName,FileName,Time,PlayTimes,TotalSeconds", 10, "", kPlayLogColumns, DeletePlayLog};

const Table kSignLogTable = {"SysLog", "Type,DateTime,Operate,Author,Result", 5, "", kSignLogColumns, ClearTable};

const Table kTempLogTable = {"TempLog",
                             "BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp,"
                             "BoxHightTemp,BoxLowTemp,BoxAvgTemp",
                             10,
                             "",
                             kTempLogColumns,
                             ClearTable};

const Table kTileInfoTable = {"TileInfo", "*", 5, ";", kTileInfoColumns, ClearTable};

const Table kEventLogTable = {"EventLog", "EventType,DateTime,Status,Note", 5, "", kEventLogColumns, nullptr};

} // namespace vxsign
