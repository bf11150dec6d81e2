/* Reading files and small records from the sign, and the easy functions.
 *
 * A file arrives in numbered packets of dataSize bytes (vxApiConfig). onProgress is called for each packet but the
 * first. The local file is made before the first request: a read that fails leaves it, with what arrived so far.
 * Nothing compares its length with the size that the sign announced.
 *
 * Arguments are those of write.h. Beyond the results that all commands share, a file transfer returns VX_OPEN_FILE when
 * the local file cannot be made, VX_CALL when it cannot be written, VX_FILE_NOT_EXISTS when the sign announces a size
 * of 0, which leaves the file empty, and VX_READ_TOO_LONG, which signs answer too, for a file of more than
 * 65535 packets, unless the function has packet numbers of 32 bits.
 */
#ifndef VXSIGN_READ_H
#define VXSIGN_READ_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* System files and fonts by name, content files by drive and name, as the functions of write.h put them. */
VXSIGN_API uint32_t vxReadSysFile(VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadFontFile(VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadTextFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadStringFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadPictureFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadArrPicFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);

/* Any path; packet numbers of 16 bits. */
VXSIGN_API uint32_t vxReadSpecPathFile(VX_SIGN_TEXT const char* path, VX_PATH const char* local);

/* Any path; packet numbers of 32 bits. The second reads what the sign makes up on request. */
VXSIGN_API uint32_t vxReadSpecPathFileEx(VX_SIGN_TEXT const char* path, VX_PATH const char* local);
VXSIGN_API uint32_t vxReadVirtualFile(VX_SIGN_TEXT const char* path, VX_PATH const char* local);

/* The sign's play log. */
VXSIGN_API uint32_t vxReadPlayLog(VX_PATH const char* local);

/* The sign's warning report, "E:\errors.xml", as it is. */
VXSIGN_API uint32_t vxReadWarning(VX_PATH const char* local);

/* Size of the data flash: 12 bytes at most; the product of the first two little-endian 16-bit numbers is the size in
 * bytes. */
VXSIGN_API uint32_t vxReadDataFlashInfo(VX_OUT VX_BYTES(12) void* out);

/* The data flash, size bytes of it, all if 0; packet numbers of 32 bits. The sign is given 3 seconds to get ready.
 * onProgress is called for the first packet too. */
VXSIGN_API uint32_t vxReadDataFlashFile(VX_PATH const char* local, uint32_t size);

/* The system settings: 16 bytes that only the sign interprets. */
VXSIGN_API uint32_t vxReadSystemSet(VX_OUT VX_BYTES(16) void* out);

/* The sign's state word (8 bytes) and, if buf is not null, up to size bytes of its status record. */
VXSIGN_API uint32_t vxReadCurrentState(VX_OUT uint64_t* state, VX_OUT VX_OPTIONAL VX_BYTES(size) uint8_t* buf,
                                       uint32_t size);

/* Serial number (11 bytes at most) and hardware address (6 bytes). snSize is 12 at least, macSize 6 at least; what the
 * two leave of their buffers is cleared. */
VXSIGN_API uint32_t vxGetSNMAC(VX_OUT VX_BYTES(snSize) uint8_t* sn, uint32_t snSize,
                               VX_OUT VX_BYTES(macSize) uint8_t* mac, uint32_t macSize);

/* 0 when the last update of the processor went well. */
VXSIGN_API uint32_t vxReadCPUUpdateResult(void);

/* The default display style: 52 bytes, see vxWriteDefDisplayStyle. */
VXSIGN_API uint32_t vxReadDefDisplayStyle(VX_OUT VX_BYTES(52) void* style);

/* A record of the sign's own making: *len is its announced length, buf gets the first size bytes of it at most. */
VXSIGN_API uint32_t vxReadSystemInfo(VX_OUT VX_BYTES(size) uint8_t* buf, uint32_t size, VX_OUT uint32_t* len);
VXSIGN_API uint32_t vxReadErrorLog(VX_OUT VX_BYTES(size) uint8_t* buf, uint32_t size, VX_OUT uint32_t* len);

/* Runs sql in the sign's database id. outA gets the head of the answer (its first 16 bits are the number of rows),
 * outB the rows as text, each column in angle brackets, without terminator. */
VXSIGN_API uint32_t vxReadDB(uint16_t id, VX_SIGN_TEXT const char* sql, VX_OUT VX_BYTES(sizeA) void* outA, int sizeA,
                             VX_OUT VX_SIGN_TEXT VX_BYTES(sizeB) char* outB, uint32_t sizeB);

/* Brightness: three bytes (a may be null), and the extended record, up to 8 bytes. */
VXSIGN_API uint32_t vxReadBrightInfo(VX_OUT VX_OPTIONAL uint8_t* a, VX_OUT uint8_t* b, VX_OUT uint8_t* c);
VXSIGN_API uint32_t vxReadBrightInfoExt(VX_OUT VX_BYTES(8) uint8_t* out);

/* A statistics record of the sign, size bytes of it at most; VX_ARGUMENTS for a size of 0. */
VXSIGN_API uint32_t vxReadStats(uint8_t which, VX_OUT VX_BYTES(size) uint8_t* buf, uint32_t size);

/* The number of the sign's board, and how many ports it has: as the sign says or, where it says 0, as is known of that
 * board. */
VXSIGN_API uint32_t vxReadPCBID(VX_OUT uint32_t* id);
VXSIGN_API uint32_t vxReadPCBIDAndPort(VX_OUT uint32_t* id, VX_OUT uint8_t* ports);

/* Update status of the board (addrHigh << 8) | addrLow. first (only where addrLow is 0) becomes 0 or 255, second 1 or
 * 255; either may be null to leave it out. Each is set to 255 before its own request, also when that then fails. When
 * the request for first fails, the thread's destinationAddress stays changed. */
VXSIGN_API uint32_t vxLCReadUpdateStatus(uint8_t addrLow, uint8_t addrHigh, VX_OUT VX_OPTIONAL uint8_t* first,
                                         VX_OUT VX_OPTIONAL uint8_t* second);

/* One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the arguments
 * (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are taken. kind,
 * serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind is serial. Any failure
 * that has no code of its own gives VX_CALL. */
VXSIGN_API uint32_t vxEasyReadFile(VX_PATH const char* local, VX_SIGN_TEXT const char* path, const char* host,
                                   uint32_t port);
VXSIGN_API uint32_t vxEasyWriteFile(VX_PATH const char* local, VX_SIGN_TEXT const char* path, const char* host,
                                    uint32_t port);
VXSIGN_API uint32_t vxEasyReadFileEx(VX_PATH const char* local, VX_SIGN_TEXT const char* path, const char* host,
                                     uint32_t port, uint32_t kind, VX_OPTIONAL VX_PATH const char* serialName,
                                     uint32_t baud, uint16_t destination);
VXSIGN_API uint32_t vxEasyWriteFileEx(VX_PATH const char* local, VX_SIGN_TEXT const char* path, const char* host,
                                      uint32_t port, uint32_t kind, VX_OPTIONAL VX_PATH const char* serialName,
                                      uint32_t baud, uint16_t destination);

VXSIGN_END

#endif
