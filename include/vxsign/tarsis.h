/* Tiles of the first family: the boards that a sign's face is built from, reached through tasks of the control board.
 *
 * A tile has a number: 1 to 254 on the first bus, 255 to 494 on the second. Each call that names a tile leaves the
 * number of its bus in sourceAddress of the thread's configuration.
 *
 * A task is started by one call, which gives its id; vxTarsisGetResult waits for its end. The calls that move files or
 * send a command wait by themselves; they sleep in the calling thread and report through onProgress. How a task ended
 * is one of the words VX_TASK_...
 */
#ifndef VXSIGN_TARSIS_H
#define VXSIGN_TARSIS_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_LAST_TILE = 494,
    VX_ALL_TILES = 65535 /* for vxTarsisTileTest */
};

#pragma pack(push, 1)

/* How the result of a status task begins. */
typedef struct TileStatRecord
{
    uint8_t width; /* pixels */
    uint8_t height;
    uint8_t reserved;
    uint16_t firmware;
    uint8_t tileModel; /* its high four bits choose the order of a pixel file */
} TileStatRecord;

/* The calibration of one pixel: a matrix of 3 by 3, row after row. */
typedef struct TilePixelRecord
{
    uint16_t coefficients[9];
} TilePixelRecord;

/* The same in a file of tileModel 0: the diagonal in eight bits, the others in four. From bit 15 down each word has
 * the coefficients 0, 1, 2; 4, 3, 5; 8, 6, 7. */
typedef struct CompactPixelRecord
{
    uint16_t words[3];
} CompactPixelRecord;

/* How a tile pixel file begins. */
typedef struct TilePixelFileHeader
{
    uint16_t magic;        /* 0x55AA */
    uint16_t headerLength; /* 32 */
    uint16_t version[2];   /* 2 and 10 */
    uint16_t sum;          /* of all bytes of the body */
    uint16_t year;         /* 0x2000 and the low byte of the year in BCD, whose tens have run over: 2020 is 0x2068 */
    uint8_t month;         /* BCD, as all that follow */
    uint8_t day;
    uint8_t hour;
    uint8_t minute;
    uint8_t second;
    uint8_t dayOfWeek; /* 0 is Sunday */
    uint32_t bodyLength;
    uint8_t reserved[10];
} TilePixelFileHeader;

/* What stands ahead of each module's records where a file has modules. */
typedef struct TilePixelBlockHeader
{
    uint16_t magic;      /* 0x55AA */
    uint16_t crc;        /* of the module's records, as vxChkSum mode 1 gives it */
    uint32_t bodyLength; /* bytes of the module's records */
    uint16_t date;       /* MS-DOS format */
    uint16_t time;
    uint8_t reserved[52];
} TilePixelBlockHeader;

#pragma pack(pop)

/* Start the task that gives a tile's status (its result begins with a TileStatRecord) and the one that tests a tile;
 * testCode is the tile's. taskId gets the task; an answer that names none leaves it as it was. VX_ARGUMENTS for a tile
 * above 494; the test also takes 65535, all tiles. */
VXSIGN_API uint32_t vxTarsisGetTileStat(uint16_t tile, VX_OUT uint32_t* taskId);
VXSIGN_API uint32_t vxTarsisTileTest(uint16_t tile, uint8_t testCode, VX_OUT uint32_t* taskId);

/* Waits for the end of a task, asking 3000 times at most, with 100 ms in between: five minutes, and the time that the
 * sign takes for its answers. status is written in any case:
 * VX_TASK_SUCCESS when buffer has got the result, as much of it as bufferSize takes; VX_TASK_WAITING or
 * VX_TASK_PROCESSING when the task has not ended; otherwise how it ended. Returns the result of the last question. */
VXSIGN_API uint32_t vxTarsisGetResult(uint32_t taskId, VX_OUT VX_BYTES(bufferSize) uint8_t* buffer, uint32_t bufferSize,
                                      VX_OUT uint16_t* status);

/* Sends a tile a command and waits. Returns how the task ended, 0 for success. VX_ARGUMENTS for 495 to 65534; 65535
 * goes out as address 1 of the second bus. A task that has not ended after five minutes or so gives its state: 3 while
 * it is worked on, but 0 while it still waits for its turn. */
VXSIGN_API uint32_t vxTarsisSetTileCmd(uint16_t tile, uint8_t command);

/* Installs a local file in a tile, by way of the sign's drive C. fileType: 0 to 4, VX_ARGUMENTS for any other. Returns
 * how the command at the end of the installation ended, as vxTarsisSetTileCmd does; what goes wrong on the way to it
 * is not told. */
VXSIGN_API uint32_t vxTarsisWriteTileFile(VX_PATH const char* localPath, uint16_t tile, uint8_t fileType);

/* Reads the calibration of a tile into a local file; fileType is 4, VX_ARGUMENTS for any other. VX_OPEN_FILE when the
 * local file cannot be made, VX_CALL when it cannot be written; otherwise how the task that failed ended. */
VXSIGN_API uint32_t vxTarsisReadTileFile(VX_PATH const char* localPath, uint16_t tile, uint8_t fileType);

/* Two commands of the control board; what option means is the sign's. */
VXSIGN_API uint32_t vxTarsisFMCalOpt(uint8_t option);
VXSIGN_API uint32_t vxFlashPGMConnectCMD(void);

/* Read and write a tile pixel file, without a sign. pixels holds a TilePixelRecord for each pixel, row after row:
 * pixelBytes must be width * height * 18. tileKind, tileModel and the sizes, all in pixels, choose the order of the
 * file. A file with fewer records than that order wants repeats the last one.
 *
 * VX_ARGUMENTS for a null pointer, another pixelBytes, a module of no size or one that is larger than the tile;
 * VX_OPEN_FILE for a local file that cannot be opened, and on loading for one that is no pixel file or has less than 6
 * bytes a pixel; VX_CALL for one that cannot be written. */
VXSIGN_API uint32_t vxTarsisTilePxlLoad(VX_OUT VX_BYTES(pixelBytes) uint16_t* pixels, uint32_t pixelBytes,
                                        VX_PATH const char* path, uint32_t tileKind, uint32_t tileModel, uint32_t width,
                                        uint32_t height, uint32_t moduleWidth, uint32_t moduleHeight);
VXSIGN_API uint32_t vxTarsisTilePxlSave(VX_BYTES(pixelBytes) const uint16_t* pixels, uint32_t pixelBytes,
                                        VX_PATH const char* path, uint32_t tileKind, uint32_t tileModel, uint32_t width,
                                        uint32_t height, uint32_t moduleWidth, uint32_t moduleHeight);

VXSIGN_END

#endif
