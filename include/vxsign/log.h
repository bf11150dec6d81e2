/* The logs of the sign: tables of its database and binary log files, turned into records.
 *
 * Each record goes to a callback, with the number user that the caller gave. It is valid during the call only.
 * Callbacks run on the calling thread and must not throw. Integers are those of the sign; texts are cut to their fields
 * and have no terminator when they fill them. What a record of the sign lacks is zero.
 *
 * A null callback or folder gives VX_ARGUMENTS, with nothing sent.
 */
#ifndef VXSIGN_LOG_H
#define VXSIGN_LOG_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_LOG_READ = 1,           /* mode of the database readers; with any other they do nothing and return 0 */
    VX_BATTERY_SECOND_LOG = 1, /* kind of the battery readers: "D:\dbatinfo.log"; any other: "D:\batinfo.log" */

    VX_SIGN_TIME_SIZE = 20 /* of "2020-05-13 10:20:30" and its terminator */
};

#pragma pack(push, 1)

/* What the sign has played, and how often. */
typedef struct PlayLogRecord
{
    int32_t PlayTimes;
    int32_t TotalSeconds;
    int32_t WinID;
    char FileName[256];
    char Time[VX_SIGN_TIME_SIZE];
    char GroupName[100];
} PlayLogRecord;

/* What was done with the sign, and by whom. */
typedef struct SignLogRecord
{
    int32_t Type;
    char Operate[100];
    char Author[52];
    char Result[200];
    char DateTime[VX_SIGN_TIME_SIZE];
} SignLogRecord;

/* Temperatures over a span of time: highest, lowest, average; outside, inside, in the box. */
typedef struct TempLogRecord
{
    char BeginTime[VX_SIGN_TIME_SIZE];
    char EndTime[VX_SIGN_TIME_SIZE];
    int32_t OutHightTemp;
    int32_t OutLowTemp;
    int32_t OutAvgTemp;
    int32_t InHightTemp;
    int32_t InLowTemp;
    int32_t InAvgTemp;
    int32_t BoxHightTemp;
    int32_t BoxLowTemp;
    int32_t BoxAvgTemp;
} TempLogRecord;

/* One tile. The 18 columns of the sign's table, which only the sign names, and when they were read. */
typedef struct TileInfoRecord
{
    int32_t Column1To7[7];
    char Column8[16];
    char Column9[16];
    int32_t Column10;
    char Column11[4];
    int32_t Column12To14[3];
    char Column15[52];
    int32_t Column16;
    char Column17[52];
    int32_t Column18;
    uint8_t reserved[120];            /* zero */
    char ReadTime[VX_SIGN_TIME_SIZE]; /* local time of the PC when the reading began, one for all tiles */
} TileInfoRecord;

typedef struct EventLogRecord
{
    int32_t EventType;
    int32_t Status;
    char DateTime[VX_SIGN_TIME_SIZE];
    char Note[100];
} EventLogRecord;

/* One measurement of the radar, as the sign means it. */
typedef struct RadarLogRecord
{
    uint32_t First;
    uint32_t Second;
    char Time[VX_SIGN_TIME_SIZE];
} RadarLogRecord;

/* The same of the radar that counts by lanes. Byte0 to Byte7 are those of the sign's record. */
typedef struct TJRadarLogRecord
{
    int32_t Lane; /* 1 to 10 */
    int32_t Byte0;
    int32_t Byte1;
    int32_t Byte2;
    int32_t Byte5;
    int32_t Byte3;
    int32_t Byte6;
    int32_t Byte4;
    int32_t Byte7;
    char Time[VX_SIGN_TIME_SIZE];
} TJRadarLogRecord;

/* The battery at one time, as the sign means it. */
typedef struct BatInfoLogRecord
{
    uint32_t Value1;
    uint32_t Value2;
    uint16_t Value3;
    uint16_t Value4;
    uint8_t reserved[2]; /* zero */
    uint8_t Value5;
    uint8_t Value6;
    uint16_t Value7To12[6];
    char Time[VX_SIGN_TIME_SIZE];
} BatInfoLogRecord;

#pragma pack(pop)

typedef uint32_t (*vxOnPlayLog)(uint32_t user, const PlayLogRecord* record);
typedef uint32_t (*vxOnSignLog)(uint32_t user, const SignLogRecord* record);
typedef uint32_t (*vxOnTempLog)(uint32_t user, const TempLogRecord* record);
typedef uint32_t (*vxOnTileInfo)(uint32_t user, const TileInfoRecord* record);
typedef uint32_t (*vxOnEventLog)(uint32_t user, const EventLogRecord* record);
typedef uint32_t (*vxOnRadarLog)(uint32_t user, const RadarLogRecord* record);
typedef uint32_t (*vxOnTJRadarLog)(uint32_t user, const TJRadarLogRecord* record);
typedef uint32_t (*vxOnBatInfoLog)(uint32_t user, const BatInfoLogRecord* record);

/* The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared on
 * the sign, EventLog excepted.
 *
 * These readers take the first 8 bytes of a page, and so does every application that relies on them: a row whose text
 * is longer does not reach the callback, and the table is cleared all the same. An application that wants the rows asks
 * vxReadDB itself, with room for them ("select ... limit 10 offset 0"), and clears the table when it is done.
 *
 * What the callback returns is not looked at. Results: that of the query for the number of rows when it fails, with
 * nothing read and nothing cleared; else that of the last query for a page. */
VXSIGN_API uint32_t vxReadPlayLogExt(uint64_t reserved, uint32_t user, int mode, vxOnPlayLog callback);
VXSIGN_API uint32_t vxReadSignLog(uint64_t reserved, uint32_t user, int mode, vxOnSignLog callback);
VXSIGN_API uint32_t vxReadTempLog(uint64_t reserved, uint32_t user, int mode, vxOnTempLog callback);
VXSIGN_API uint32_t vxReadTileInfo(uint64_t reserved, uint32_t user, int mode, vxOnTileInfo callback);
VXSIGN_API uint32_t vxReadEventLog(uint64_t reserved, uint32_t user, int mode, vxOnEventLog callback);

/* The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns other
 * than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails; VX_OPEN_FILE when
 * the local file cannot be opened; 0, also for a file without the marks of a log.
 *
 *   vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign
 *   vxReadNewRadarLog     "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign
 *   vxReadTJRadarLog      vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1
 *                         are both 0 are passed over
 *   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays on the sign
 *   vxReadBatInfoLogII    the same; deleted on the sign */
VXSIGN_API uint32_t vxReadRadarLog(VX_PATH const char* localFolder, uint32_t user, uint64_t reserved,
                                   vxOnRadarLog callback);
VXSIGN_API uint32_t vxReadNewRadarLog(VX_PATH const char* localFolder, uint32_t user, uint64_t reserved,
                                      vxOnRadarLog callback);
VXSIGN_API uint32_t vxReadTJRadarLog(VX_PATH const char* localFolder, uint32_t user, uint64_t reserved,
                                     vxOnTJRadarLog callback);
VXSIGN_API uint32_t vxReadBatInfoLog(VX_PATH const char* localFolder, uint32_t user, uint64_t reserved, int8_t kind,
                                     vxOnBatInfoLog callback);
VXSIGN_API uint32_t vxReadBatInfoLogII(VX_PATH const char* localFolder, uint32_t user, uint64_t reserved, int8_t kind,
                                       vxOnBatInfoLog callback);

/* Sends the files that a local batch file names, one after the other, with vxWriteSpecFile. The batch begins with 116
 * bytes ("MC", 2 bytes, then twice 1 in 32 bits); each 512 bytes behind them are a local path and a path on the sign,
 * of 256 bytes each. Returns the first failure; VX_OPEN_FILE when the batch cannot be opened, VX_FILE_FORMAT when it
 * does not begin like one. */
VXSIGN_API uint32_t vxExecFileCMD(VX_PATH const char* localFile);

VXSIGN_END

#endif
