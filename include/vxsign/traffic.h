/* Traffic signal controllers: roadside controllers that speak the protocol of the signs.
 *
 * A controller runs its phases and periods by itself. The library watches it and gives it single orders; blocks of
 * status, monitor and flow, modes, and the bytes of a phase or a query mean something to the controller alone and pass
 * through as they are.
 */
#ifndef VXSIGN_TRAFFIC_H
#define VXSIGN_TRAFFIC_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_TRAFFIC_MONITOR = 4, /* the kind of monitor block that vxReadTrafficMonitor asks for */
    VX_TRAFFIC_FLOW_QUERY = 8,
    VX_TRAFFIC_PHASE = 31, /* bytes of a temporary phase */

    VX_TRAFFIC_STATUS_FILE = 0x0001544D, /* magic of a dump */
    VX_TRAFFIC_MONITOR_FILE = 0x00015443,
    VX_TRAFFIC_REAL_FILE = 0x00015254
};

#pragma pack(push, 1)

/* What a dump file begins with: 12 bytes; the block of the controller follows. */
typedef struct TrafficDumpHeader
{
    uint32_t magic;
    uint32_t length;   /* of the block */
    uint16_t reserved; /* zero */
    uint16_t time;     /* minute times 256 plus second, local time of the PC */
} TrafficDumpHeader;

/* A record of the error log: 380 bytes. */
typedef struct TrafficLogEntry
{
    uint32_t level;     /* 2, 3 or 4; 0 for a code without text */
    char time[20];      /* "2020-05-13 10:20:30" */
    char signName[100]; /* the caller's, without terminator when full */
    char text[256];     /* text of the error and " ErrCNT=" with its count */
} TrafficLogEntry;

/* A record of the temperature log: 128 bytes. */
typedef struct TrafficTempEntry
{
    char time[20];      /* "2020-05-13 10:00:00" */
    char signName[100]; /* the caller's, without terminator when full */
    uint32_t sample;    /* 0 to 255; one value for all hours of a day */
    uint32_t sourceId;  /* from the name of the file: 100, or 200, 300, 400 or 500 and its number */
} TrafficTempEntry;

#pragma pack(pop)

/* Take a record, which is valid during the call only, on the calling thread; must not throw. 0 goes on. */
typedef uint32_t (*vxOnTrafficError)(const TrafficLogEntry* entry);
typedef uint32_t (*vxOnTrafficTemp)(const TrafficTempEntry* entry);

/* The status and monitor blocks. size is the capacity of buffer and becomes the bytes copied; of monitorKind the low 8
 * bits go out. */
VXSIGN_API uint32_t vxReadTCStatus(VX_OUT VX_BYTES(*size) uint8_t* buffer, VX_INOUT uint32_t* size);
VXSIGN_API uint32_t vxReadTCMonitor(uint32_t monitorKind, VX_OUT VX_BYTES(*size) uint8_t* buffer,
                                    VX_INOUT uint32_t* size);

/* A part of the real-time status: capacity bytes at most, the rest of buffer stays as it was. A null buffer takes
 * nothing. */
VXSIGN_API uint32_t vxTCGetRealStatus(VX_OUT VX_OPTIONAL VX_BYTES(capacity) uint8_t* buffer, uint32_t capacity,
                                      uint8_t part);

/* Switches to manual, or to what else mode means to the controller. */
VXSIGN_API uint32_t vxTCManual(uint8_t mode);

/* The two lamp tests: lampCount bytes of lamps, firstCount + secondCount in the second one. */
VXSIGN_API uint32_t vxTCJKBLightTest(VX_BYTES(lampCount) const uint8_t* lamps, uint8_t lampCount);
VXSIGN_API uint32_t vxTCJKCLightTest(VX_BYTES(firstCount + secondCount) const uint8_t* lamps, uint8_t firstCount,
                                     uint8_t secondCount);

/* Runs a phase of VX_TRAFFIC_PHASE bytes once; of flag the low 8 bits go out. */
VXSIGN_API uint32_t vxTrafficTempPhaseRun(VX_BYTES(VX_TRAFFIC_PHASE) const uint8_t* phase, uint32_t flag);

/* The flow counters that the VX_TRAFFIC_FLOW_QUERY bytes of query ask for: the reply's payload and what follows it,
 * 1536 bytes at most, become the file path. VX_NOT_INITIALISED for a null, for a thread without configuration and for a
 * channel that cannot be opened; VX_OPEN_FILE. */
VXSIGN_API uint32_t vxTrafficRFlow(VX_BYTES(VX_TRAFFIC_FLOW_QUERY) const uint8_t* query, VX_PATH const char* path);

/* The controller's clock. The last two are the controller's: timeField7 travels in BCD, timeField8 as it is. */
VXSIGN_API uint32_t vxReadTrafficTime(VX_OUT uint16_t* year, VX_OUT uint8_t* month, VX_OUT uint8_t* day,
                                      VX_OUT uint8_t* hour, VX_OUT uint8_t* minute, VX_OUT uint8_t* second,
                                      VX_OUT uint8_t* timeField7, VX_OUT uint8_t* timeField8);
VXSIGN_API uint32_t vxAjustTrafficTime(uint16_t year, uint8_t month, uint8_t day, uint8_t hour, uint8_t minute,
                                       uint8_t second, uint8_t timeField7, uint8_t timeField8);

/* A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time status
 * (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path, VX_OPEN_FILE.
 * No file is made when the reading fails. */
VXSIGN_API uint32_t vxReadTrafficStatus(VX_PATH const char* path);
VXSIGN_API uint32_t vxReadTrafficMonitor(VX_PATH const char* path);
VXSIGN_API uint32_t vxReadTrafficRealStatus(VX_PATH const char* path);

/* The error log "E:\ERR_REC\ERRMSG.ERR", which is fetched to localPath and stays there. A callback that returns other
 * than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails, VX_OPEN_FILE, or
 * 0. Codes that the library does not know come with level 0 and an empty text before " ErrCNT=". Some texts end in an
 * address of one byte, which is a control character and not a digit. */
VXSIGN_API uint32_t vxReadTrafficErrLog(VX_PATH char* localPath, VX_SIGN_TEXT const char* signName,
                                        vxOnTrafficError callback);

/* The temperature log: each file of "E:\TEP_REC\" holds a month of one source; the month is the latest one that has
 * begun. The files are fetched to localPath one after the other; the last one stays there. Files whose names tell no
 * source and month are passed over.
 *
 * Each day of a file gives 24 records, for the hours 0 to 23, all with the same sample: by rule it is the byte of the
 * day's row at the place that the file has in its page of 20 entries of the directory. A callback that returns other
 * than 0 for the hour 23 ends its file. Returns what the callback returned last, or what the transfer of the last file
 * gave; a failure of the last file of a page ends the reading. */
VXSIGN_API uint32_t vxReadTrafficTempLog(VX_PATH const char* localPath, VX_SIGN_TEXT const char* signName,
                                         vxOnTrafficTemp callback);

VXSIGN_END

#endif
