/* Tiles of the second family: they hang on numbered ports of the control board.
 *
 * port is the port, 255 for none; tile is the tile's address on it, 65535 for all tiles of the port. Files go by way of
 * the sign's disk, where a tile's are "C:\port<port>\<tile as four hexadecimal digits><extension>".
 *
 * The calls that start a task wait for its end, sleep in the calling thread and report the task's progress through
 * onProgress. They return 0 for success, VX_TASK_FAILED for any other end, VX_TIME_LIMIT when the limit has passed.
 * Those without a limit wait as long as the sign answers; abortFlag ends them.
 *
 * Where there is a detail, it gets the tile's value when the task has ended, with success or without; null leaves it
 * out.
 */
#ifndef VXSIGN_ONDRA_H
#define VXSIGN_ONDRA_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_NO_PORT = 255,
    VX_TILES_OF_PORT = 65535, /* as a tile */
    VX_CAL_PARAMS = 88,       /* bytes of calParams */

    /* fileType, as far as the library knows it */
    VX_TILE_CALIBRATION = 5,
    VX_TILE_STATUS = 7,
    VX_TILE_COEFFICIENTS = 13 /* of vxDirectTileReadFileEx */
};

#pragma pack(push, 1)

/* What vxOndraGetResult gives. */
typedef struct TileTaskState
{
    uint8_t progress;
    uint8_t state; /* 1 and 2: the task goes on; 4: success; anything else: failure */
    uint16_t detail;
} TileTaskState;

#pragma pack(pop)

/* Asks for a task once. buffer gets as much of the answer as bufferSize takes. */
VXSIGN_API uint32_t vxOndraGetResult(uint32_t taskId, VX_OUT VX_BYTES(bufferSize) uint8_t* buffer, uint32_t bufferSize);

/* Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The command
 * has 300000 ms, or timeoutMs. */
VXSIGN_API uint32_t vxOndraTileTest(uint8_t testCode, uint8_t port, uint16_t tile);
VXSIGN_API uint32_t vxOndraTileCMD(uint8_t command, uint8_t port, uint16_t tile,
                                   VX_BYTES(dataLength) const uint8_t* data, uint32_t dataLength);
VXSIGN_API uint32_t vxOndraTileCMDTimeout(uint8_t command, uint8_t port, uint16_t tile,
                                          VX_BYTES(dataLength) const uint8_t* data, uint32_t dataLength,
                                          uint32_t timeoutMs);

/* Commands without a task: one of the control board, and the mode in which brightness is synchronised. */
VXSIGN_API uint32_t vxOndraLDUCMD(uint8_t command, uint8_t value);
VXSIGN_API uint32_t vxOndraSyncBriMode(uint8_t mode);

/* Shows a calibration picture: four numbers of the tile's. */
VXSIGN_API uint32_t vxOndraPicCalShow(uint16_t a, uint16_t b, uint16_t c, uint16_t d);

/* Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that lies on the
 * sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and port 255, and for a
 * fileType above 10 but in the third form, whose table is longer; extra is the tile's. The first form has 300000 ms,
 * the second timeoutMs, the third no limit. */
VXSIGN_API uint32_t vxOndraReadTileFile(VX_PATH const char* localPath, uint8_t fileType, uint8_t port, uint16_t tile,
                                        int32_t skipFetch, VX_OUT VX_OPTIONAL uint32_t* detail);
VXSIGN_API uint32_t vxOndraReadTileFileTimeout(VX_PATH const char* localPath, uint8_t fileType, uint8_t port,
                                               uint16_t tile, int32_t skipFetch, VX_OUT VX_OPTIONAL uint32_t* detail,
                                               uint32_t timeoutMs);
VXSIGN_API uint32_t vxOndraReadTileFileExt(VX_PATH const char* localPath, uint8_t fileType, uint8_t port, uint16_t tile,
                                           uint8_t extra, uint32_t skipFetch, VX_OUT VX_OPTIONAL uint32_t* detail);

/* Write a local file to a tile, or to all of a port; results of vxWriteSpecFileEx for the way to the sign's disk.
 * VX_ARGUMENTS for port 255, and for a fileType above 10 but in the second form. */
VXSIGN_API uint32_t vxOndraWriteTileFile(VX_PATH const char* localPath, uint8_t fileType, uint8_t port, uint16_t tile,
                                         VX_OUT VX_OPTIONAL uint32_t* detail);
VXSIGN_API uint32_t vxOndraWriteTileFileExt(VX_PATH const char* localPath, uint8_t fileType, uint8_t port,
                                            uint16_t tile, uint8_t extra, VX_OUT VX_OPTIONAL uint32_t* detail);

/* Write a calibration file to a tile. calParams: VX_CAL_PARAMS bytes for the tile, or null. */
VXSIGN_API uint32_t vxOndraWritePxlCal(VX_PATH const char* localPath, uint8_t port, uint16_t tile, uint8_t mode,
                                       VX_OUT VX_OPTIONAL uint32_t* detail,
                                       VX_OPTIONAL VX_BYTES(VX_CAL_PARAMS) const uint8_t* calParams);

/* The same without waiting for the end: 0 as soon as the task's progress is 10 or more, after which vxOndraGetResult
 * follows it. taskId becomes 0 at once and the task when it has started and the answer names one, whatever the result;
 * null leaves it out. VX_COMMUNICATION when neither progress nor state changes for ten minutes. onProgress is not
 * called; reserved is not used. */
VXSIGN_API uint32_t vxOndraWritePxlCalBurn(VX_PATH const char* localPath, uint8_t port, uint16_t tile, uint8_t mode,
                                           uint64_t reserved,
                                           VX_OPTIONAL VX_BYTES(VX_CAL_PARAMS) const uint8_t* calParams,
                                           VX_OUT VX_OPTIONAL uint32_t* taskId);

VXSIGN_END

#endif
