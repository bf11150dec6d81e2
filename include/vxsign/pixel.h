/* The pixel check: the sign tests its pixels and signal lines, and tells which are bad.
 *
 * Rows go to a callback and are valid during the call only. What a callback returns is not looked at; it runs on the
 * calling thread and must not throw. A null pointer gives VX_ARGUMENTS, with nothing sent.
 */
#ifndef VXSIGN_PIXEL_H
#define VXSIGN_PIXEL_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_PIXEL_BAD = 2,  /* Kind of a vxPixelRow */
    VX_SIGNAL_BAD = 3, /* rows of the text file have 0 */

    /* Sources of vxReadPixelInfo; others up to 6 are the text file too, all further ones the CSV files. */
    VX_PIXELS_FROM_CSV = 0,
    VX_PIXELS_FROM_DATABASE = 1,
    VX_PIXELS_FROM_TEXT = 2,
    VX_PIXELS_FROM_TEXT_2 = 9
};

#pragma pack(push, 1)

/* A finding: 132 bytes. Texts are cut to their fields and have no terminator when they fill them. */
typedef struct vxPixelRow
{
    uint32_t Kind;
    uint32_t X; /* column on the face, or number of the port */
    uint16_t Y; /* row on the face */
    char Status[100];
    char Time[20];
    uint16_t Number; /* first field of a CSV line */
} vxPixelRow;

#pragma pack(pop)

typedef uint32_t (*vxOnPixelInfo)(uint32_t user, const vxPixelRow* row);
typedef uint32_t (*vxOnPixelError)(const vxPixelRow* row);

/* Starts the sign's check, and tells how far it is, in percent. */
VXSIGN_API uint32_t vxBeginPixCheck(void);
VXSIGN_API uint32_t vxPixProgress(VX_OUT uint8_t* percent);

/* Fetch the sign's results, "D:\PXL.CSV" and "D:\SIGNAL.CSV", into a local file. */
VXSIGN_API uint32_t vxReadPixResult(VX_PATH const char* local);
VXSIGN_API uint32_t vxReadSignalResult(VX_PATH const char* local);

/* A whole check: starts it, waits for its end with a poll each second (onProgress is called with each percentage below
 * 100), and fetches both results. progressTotal becomes 4, progressPos the step. It takes as long as the sign takes;
 * abortFlag ends it. Returns what starting or the last poll gives when it fails, else 0: a result that could not be
 * fetched shows in the local files. */
VXSIGN_API uint32_t vxPxlChk(VX_PATH const char* pxlLocal, VX_PATH const char* signalLocal);

/* The findings from one of the sign's sources, a row each. folder ends in a separator and gets the local files.
 *
 *   the CSV files   runs vxPxlChk into "PXL.CSV" and "SIGNAL.CSV"; a row for each line "number,x,y,...,"text","time""
 *                   of the first, then for each "number,x,y,"text","time"" of the second; both deleted on the sign
 *   the text file   "C:\PIXEL.SYS", deleted on the sign: a row for each line that tells of a port or a board, with the
 *                   local time of the PC; one that all is well, or that too much is bad, is the last
 *   the database    the table PixelStatus, which is then cleared; rows of more than 8 bytes do not arrive (see log.h)
 *
 * Returns 0 with no rows when the sign has no such file; what the check, the transfer or the query gives when it fails;
 * VX_OPEN_FILE when a local file cannot be opened. */
VXSIGN_API uint32_t vxReadPixelInfo(VX_PATH const char* folder, uint32_t user, uint32_t source, vxOnPixelInfo callback);

/* The tables PixelStatus and PixelSignalErr, which stay as they are; rows of more than 8 bytes do not arrive (see
 * log.h). Returns what the query for the number of rows gives when it fails; else the failure of a query for a page, if
 * any. */
VXSIGN_API uint32_t vxReadPixelErrorReport(vxOnPixelError callback);

/* Reads the file "F:\PL\SIGNAL.CSV" of the PC as vxReadPixelInfo would, and drops what it finds. Returns 0, also when
 * the file is missing. */
VXSIGN_API uint32_t vxTestPattern(void);

VXSIGN_END

#endif
