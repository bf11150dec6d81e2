/* Work on the PC that needs no sign: names, paths, time, serial ports, INI files, file shortcuts.
 *
 * A null output is left out. A null input gives VX_ARGUMENTS where the result is a result word, and what a failure
 * gives elsewhere. Memory that runs out gives VX_CALL, or again what a failure gives elsewhere. */
#ifndef VXSIGN_LOCAL_H
#define VXSIGN_LOCAL_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* A name for a temporary file: folder, process id, a time stamp that does not repeat in this process, '.' and the
 * extension. The folder is that of onTempPath if set, else the system's. Cut to outLength, always terminated. Returns
 * 0. */
VXSIGN_API uint32_t vxGetPCTempFilename(VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(outLength) char* out, uint32_t outLength,
                                        VX_PATH const char* extension);

/* The short (8.3) name of an existing file, without its folder. out, if not null, gets at most outLength bytes of it,
 * without terminator. Returns the length of the short name, 0 for a file that is not there. */
VXSIGN_API uint32_t vxGetShortFileName(VX_PATH const char* path,
                                       VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(outLength) char* out, uint32_t outLength);

/* Waits ms milliseconds. */
VXSIGN_API void vxSleep(uint32_t ms);

/* The local time as DOS date (year - 1980 in bits 9-15, month 5-8, day 0-4) and DOS time (hour 11-15, minute 5-10,
 * seconds / 2 in 0-4). Nothing when either is null, or for a year that has no place in it. */
VXSIGN_API void vxGetDOSTime(VX_OUT uint16_t* date, VX_OUT uint16_t* time);

/* The local time as 8 bytes: year (little-endian 16 bits), month, day, hour, minute, second, day of week (0 Sunday). */
VXSIGN_API void vxGetDateTime(VX_OUT VX_OPTIONAL VX_BYTES(8) uint8_t* out);

/* A DOS date (low 16 bits) and time (high 16 bits) as text "2020-05-13 10:20:30". Returns 0. */
VXSIGN_API uint32_t vxTM_DecodeDosTime(uint32_t dosDateTime, VX_OUT VX_OPTIONAL VX_BYTES(outLength) char* out,
                                       uint8_t outLength);

/* The names of the serial ports of this PC with '|' between them. out is cleared first; a list that fills it has no
 * terminator. Returns 0, VX_ARGUMENTS for a null out. */
VXSIGN_API uint32_t vxEnumSerial(VX_OUT VX_BYTES(outLength) char* out, uint32_t outLength);

/* printf into out, cut to outLength, always terminated. Returns 0. */
VXSIGN_API uint32_t vxPrintBuf(VX_OUT VX_BYTES(outLength) char* out, uint32_t outLength, const char* format, ...)
    VXSIGN_PRINTF(3, 4);

/* fopen, for this process alone; null when it fails, and for a folder. Close the stream with fclose. */
VXSIGN_API FILE* vxFOpen(VX_PATH const char* path, const char* mode);

/* Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the file
 * copied. failIfExists not 0 leaves an existing target alone. */
VXSIGN_API uint32_t vxFSDelete(VX_PATH const char* path);
VXSIGN_API uint32_t vxOSCreateDir(VX_PATH const char* path);
VXSIGN_API uint32_t vxOSCopyFile(VX_PATH const char* from, VX_PATH const char* to, uint8_t failIfExists);

/* The size of a file in bytes, 0 for one that is not there, cannot be read or has 4 GB and more. */
VXSIGN_API uint32_t vxOSGetFileSize(VX_PATH const char* path);

/* Takes a path apart: drive ("C:"), folder with its last separator, name, extension with its dot. '/' and '\' both
 * separate. A null buffer with size 0 leaves its part out. Returns 0, 22 for a null path or a buffer and size that do
 * not go together, 34 when a part does not fit; on failure all buffers are empty texts. */
VXSIGN_API int vxStr_splitpath(VX_PATH const char* path, VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(driveSize) char* drive,
                               uint8_t driveSize, VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(folderSize) char* folder,
                               uint8_t folderSize, VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(nameSize) char* name,
                               uint8_t nameSize, VX_OUT VX_OPTIONAL VX_PATH VX_BYTES(extensionSize) char* extension,
                               uint8_t extensionSize);

/* Milliseconds since the system started, modulo 2^32; seconds since this function was first called. */
VXSIGN_API uint32_t vxSysUpTimeMS(void);
VXSIGN_API uint32_t vxSystemUpTimeSec(void);

/* A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it, is 63
 * characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the value is none.
 * A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing, the file included, and
 * leaves the rest of the file as it was. The new file is written beside the old one and takes its place when it is
 * whole, so that a full disk or a power cut leaves the old one. All return 0, also when the file could not be
 * written. */
VXSIGN_API uint32_t vxGetINIWithString(const char* section, const char* key, const char* defaultValue,
                                       VX_PATH const char* iniPath, VX_OUT VX_OPTIONAL VX_BYTES(63) char* out);
VXSIGN_API uint32_t vxGetINIWithInt(const char* section, const char* key, uint32_t defaultValue,
                                    VX_PATH const char* iniPath, VX_OUT VX_OPTIONAL uint32_t* out);
VXSIGN_API uint32_t vxSetINIWithString(const char* section, const char* key, const char* value,
                                       VX_PATH const char* iniPath);

/* Reads up to size bytes and cuts them behind the first line feed; the rest of buffer is cleared, and the stream goes
 * on one byte behind the line feed's successor, whatever that byte was. Without a line feed the stream goes on behind
 * what was read. Returns the bytes of the line, 0 at the end or for a null or zero argument. */
VXSIGN_API uint32_t vxReadFileLine(VX_INOUT FILE* stream, VX_OUT VX_BYTES(size) uint8_t* buffer, uint32_t size);

/* The path that a local file gets on the sign: "<drive>:\<type letter>\<short name>". The type letter follows from the
 * file's first bytes (P picture, T text, A animation, Q, F other). shortName gets 12 bytes, without terminator
 * when full. Returns 0, VX_ARGUMENTS unless localPath and out are set and outLength is 20 at least, VX_OPEN_FILE when
 * the file cannot be opened. */
VXSIGN_API uint32_t vxMakeSignPath(VX_PATH const char* localPath, VX_OUT VX_SIGN_TEXT VX_BYTES(outLength) char* out,
                                   uint32_t outLength, uint8_t drive, VX_OUT VX_OPTIONAL uint8_t* typeLetter,
                                   VX_OUT VX_OPTIONAL VX_SIGN_TEXT VX_BYTES(12) char* shortName);

VXSIGN_END

#endif
