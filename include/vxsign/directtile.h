/* Tiles of the second family (ondra.h) without tasks: each packet goes through the control board to the tile itself.
 *
 * port, tile and fileType are those of ondra.h. A file of fileType 5, the calibration, has two forms: the PC's, pixel
 * rows across the whole tile, and the tile's, one module after the other. Reading and writing convert it; the tile's
 * form stays beside the PC's file, under its name with "t" behind it. For that the tile's status is read into the local
 * file "c:/port<port>/<tile as four hexadecimal digits>.sta", whose folder must be there.
 *
 * Files travel in pieces of 264 bytes. Reading and writing print a line for each piece on standard output and report
 * through onProgress.
 */
#ifndef VXSIGN_DIRECTTILE_H
#define VXSIGN_DIRECTTILE_H

#include <vxsign/export.h>

VXSIGN_BEGIN

enum
{
    VX_TILE_LOCKED = 0x10 /* of TileStaRecord's flags: the calibration may not be written */
};

#pragma pack(push, 1)

/* How the files of a tile begin. */
typedef struct TileFileHeader
{
    uint16_t magic;        /* 0x55AA */
    uint16_t headerLength; /* 32 */
    uint16_t reserved;
    uint16_t fileType;
    uint16_t reserved2;
    uint16_t stamps[2]; /* date and time of the TilePixelBlockHeaders */
    uint16_t reserved3;
    uint32_t bodyLength;
    uint8_t reserved4[12];
} TileFileHeader;

/* What follows in a status file. */
typedef struct TileStaRecord
{
    uint8_t reserved[16];
    uint8_t flags;
    uint8_t reserved2[35];
    uint16_t width; /* pixels */
    uint16_t height;
    uint16_t moduleWidth;
    uint16_t moduleHeight;
    uint8_t modulesAcross;
    uint8_t modulesDown;
    uint8_t reserved3[34];
} TileStaRecord;

#pragma pack(pop)

/* Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. */
VXSIGN_API uint32_t vxDirectTileTest(uint8_t testCode, uint8_t port, uint16_t tile);
VXSIGN_API uint32_t vxDirectTileCMD(uint8_t command, uint8_t port, uint16_t tile,
                                    VX_BYTES(dataLength) const uint8_t* data, uint32_t dataLength);

/* Reads a file of a tile. VX_NO_RECORD when a local file cannot be made or written, VX_NO_MAGIC when what comes does
 * not begin like a file or would have 4 GB and more. A tile that sends less than it announced leaves a shorter file. A
 * calibration that cannot be converted is no failure; then only the tile's form is there. extra is the tile's. A tile
 * is asked for as many pieces of 264 bytes as it announces, with onProgress behind each: millions, if it says so. */
VXSIGN_API uint32_t vxDirectTileReadFileEx(VX_PATH const char* path, uint8_t fileType, uint8_t port, uint16_t tile,
                                           uint8_t extra);

/* Writes a file to a tile. VX_NO_RECORD when the local file cannot be read, for a calibration also when it cannot be
 * converted, when the tile's status cannot be read or when the tile is locked; nothing has been sent then. What an
 * earlier call converted stays when there is nothing to take its place. An empty file gives 0. */
VXSIGN_API uint32_t vxDirectTileWriteFileEx(VX_PATH const char* path, uint8_t fileType, uint8_t port, uint16_t tile,
                                            uint8_t extra);

/* Two steps by which a tile takes over coefficients. The first is command 15. The second converts the calibration at
 * path, sends the commands 16 and 17 with params, and reads the tile's coefficients into the local file
 * "c:/port<port>/<tile as four hexadecimal digits>.mcc" in 21 tries at most; params[64] other than 0 ends it after
 * command 16. It gives 0 whatever comes of that, but 1 when only the last try succeeds. reserved is not used. */
VXSIGN_API uint32_t vxDirectTilePHYWriteCoefficent1(uint8_t port, uint16_t tile);
VXSIGN_API uint32_t vxDirectTilePHYWriteCoefficent2(VX_PATH const char* path, uint8_t port, uint16_t tile,
                                                    uint64_t reserved, VX_BYTES(paramsLength) const uint8_t* params,
                                                    uint32_t paramsLength);

/* Sends bytes as they are and waits timeoutMs of the configuration for whatever comes back, which is dropped: 0 for any
 * byte, VX_NO_ANSWER for none, VX_ABORTED when abortFlag ended the wait. */
VXSIGN_API uint32_t vxWriteCmdBuf(VX_BYTES(length) const uint8_t* buffer, uint32_t length);

VXSIGN_END

#endif
