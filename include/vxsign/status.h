/* The state of the sign and what it warns of, as records and rows.
 *
 * Rows go to a callback, are valid during the call only, and are zero where the sign says nothing. Callbacks run on the
 * calling thread and must not throw. A null pointer gives VX_ARGUMENTS, with nothing sent. The state word and the raw
 * status record are vxReadCurrentState's, the report file as it is vxReadWarning's (read.h).
 */
#ifndef VXSIGN_STATUS_H
#define VXSIGN_STATUS_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_MODE_BY_STATISTICS = 241, /* Mode of a vxStatusRecord */

    VX_LEVEL_PIXEL_OR_TILE = 2, /* Level of a vxWaringLogRow */
    VX_LEVEL_TEMPERATURE = 3,

    VX_WARING_MAINBOARD = 0, /* Kind of a vxWaringReportRow */
    VX_WARING_TILE = 1,
    VX_WARING_PIXELS = 2,
    VX_WARING_SIGNALS = 3,

    VX_WARING_NO_POSITION = 255 /* X and Y of a tile whose place the sign does not tell */
};

#pragma pack(push, 1)

/* The sign's status: 96 bytes. What has no meaning given is the sign's, as replied by vxReadCurrentState. Value0 to
 * Value3 are taken from the state word (its bytes 1, 2, 4 and 6) where the record has a 0. */
typedef struct vxStatusRecord
{
    uint8_t Value0;
    uint8_t Value1;
    uint8_t Value2;
    uint8_t Value3; /* modulo 101: 0 to 100 */
    uint8_t reserved4[60];
    /* The position, from Longitude to LatitudeSeconds, when the caller gave one; else as replied. */
    char Longitude; /* 'E' or 'W' */
    char Latitude;  /* 'N' or 'S' */
    uint8_t reserved66[2];
    uint16_t LongitudeDegrees;
    uint16_t LongitudeMinutes;
    uint16_t LongitudeSeconds; /* the whole fraction of the degree, in tens of seconds */
    uint16_t LatitudeDegrees;
    uint16_t LatitudeMinutes;
    uint16_t LatitudeSeconds; /* as above */
    uint8_t reserved80[4];
    uint8_t Mode; /* byte 0 of the state word, or VX_MODE_BY_STATISTICS when statistics record 9 is not 0 */
    uint8_t reserved85[11];
} vxStatusRecord;

/* A warning out of the sign's ring: 380 bytes. */
typedef struct vxWaringLogRow
{
    uint32_t Level;
    char Time[20];      /* "2020-05-13 10:20:30" */
    char SignName[100]; /* the caller's, without terminator when full */
    char Text[256];
} vxWaringLogRow;

/* A warning out of the sign's report: 392 bytes. Texts are cut to their fields, with a terminator. */
typedef struct vxWaringReportRow
{
    uint32_t Kind;
    uint8_t X; /* the tile's place, its low 8 bits */
    uint8_t Y;
    char Name[64];
    char Value[256];
    char Time[66];
} vxWaringReportRow;

#pragma pack(pop)

/* Takes the status, the 8 bytes of the beacon, and the path of the message that the sign shows. */
typedef uint32_t (*vxOnStatusInfo)(uint32_t user, const vxStatusRecord* status, VX_BYTES(8) const uint8_t* beacon,
                                   VX_PATH const char* messagePath);
typedef uint32_t (*vxOnWaringLog)(const vxWaringLogRow* row);
typedef uint32_t (*vxOnWaringReport)(const vxWaringReportRow* row);

/* Gathers the sign's status, its beacon and what it shows, and calls callback once. What that returns is not looked at.
 *
 * longitudeBits and latitudeBits are the bits of two 32-bit floats: degrees with 2000 added, east and north positive. A
 * value of 1000 or less in either means that there is no position.
 *
 * With useSignBeacon not 0 the beacon is made of vxGetSignBeacon (bytes 1, 0, 2 and 3 of it become 0, 4, 5 and 6; 255
 * in byte 0 becomes 0), of bytes 1 and 2 of vxGetExternalEquipment, and in byte 3 of 1 for a first power byte of 0; a
 * sign that does not know the former gives its vxGetBeacon, as with useSignBeacon 0.
 *
 * messagePath is tempFolder (which ends in a separator) and the name that the sign tells, less any folder. With
 * onMessageToGif set (vxApiConfig) that message is turned into "monitor.gif" in tempFolder; when nothing plays, the
 * message is "\__BLANK.VXB" behind tempFolder.
 *
 * Returns the failure of vxReadCurrentState, without a call of callback; else what the last reading of beacon or power
 * gave. Other readings that fail leave zeros: a sign that falls silent behind its state holds the call for the time of
 * six more exchanges. */
VXSIGN_API uint32_t vxReadStatusInfo(VX_PATH const char* tempFolder, uint32_t user, uint64_t reserved,
                                     vxOnStatusInfo callback, uint32_t longitudeBits, uint32_t latitudeBits,
                                     char useSignBeacon);

/* Puts four bytes of the status into a record of the caller's, which has 569 bytes at least: Value0, Value1 and Value3
 * of vxStatusRecord at 565 to 567, and byte 3 of vxGetBeacon (0 when that fails) at 568. Returns what
 * vxReadCurrentState gives. */
VXSIGN_API uint32_t vxUpdate3Info(VX_INOUT VX_BYTES(569) uint8_t* record);

/* Fetches the sign's ring of warnings, "E:\STATUS.SYS", into the file localPath, where it stays; the sign's is deleted.
 * The rows come from the first time stamp behind the oldest record on; a ring whose oldest record is a time stamp gives
 * none. Returns what the last callback gave, 0 without rows and for a sign that has no ring; what the transfer gives
 * when it fails; VX_OPEN_FILE when the local file cannot be opened, VX_FILE_FORMAT when it is no ring. */
VXSIGN_API uint32_t vxReadSignWaringLog(VX_PATH const char* localPath, VX_SIGN_TEXT const uint8_t* signName,
                                        vxOnWaringLog callback);

/* Reads the sign's report, "E:\errors.xml": a row for each warning of the main board and of each tile, and one each for
 * a number of bad pixels and of bad signals that is not 0 (Name "PixelError" or "SignalError", Value "Num=12"). What
 * the callback returns is not looked at. Returns what the transfer gives when it fails, 3 when the temporary file
 * cannot be opened, the error number of the XML parser for a file that is not well formed. */
VXSIGN_API uint32_t vxReadWaringReport(vxOnWaringReport callback);

/* Reads the log of the sign's own program, "D:\log\vxspeapp.log": its first 16 bytes into head and, if these begin with
 * "GL", the next count records of 32 bytes into rows. What the file lacks is zero. The records are the sign's. Returns
 * what the transfer gives, or VX_OPEN_FILE when the temporary file cannot be opened. */
VXSIGN_API uint32_t vxReadWarningLog(VX_OUT VX_COUNT(8) uint16_t* head, VX_OUT VX_BYTES(count * 32) uint8_t* rows,
                                     uint8_t count);

VXSIGN_END

#endif
