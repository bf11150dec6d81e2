/* The sign's drives, folders and files. Paths on the sign look like "D:\T\NAME.NMG". They go out with their terminator,
 * 256 bytes at most: keep them shorter. */
#ifndef VXSIGN_FILESYSTEM_H
#define VXSIGN_FILESYSTEM_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Formats a drive, by its letter. */
VXSIGN_API uint32_t vxFormatDrive(char drive);

/* What a drive holds: two numbers and 12 bytes that only the sign interprets. A null output is left out. */
VXSIGN_API uint32_t vxGetDriveInfo(uint8_t drive, VX_OUT VX_OPTIONAL uint32_t* first,
                                   VX_OUT VX_OPTIONAL uint32_t* second, VX_OUT VX_OPTIONAL VX_BYTES(12) void* extra);

/* Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most. */
VXSIGN_API uint32_t vxCreateDir(VX_SIGN_TEXT const char* path);
VXSIGN_API uint32_t vxRename(VX_SIGN_TEXT const char* from, VX_SIGN_TEXT const char* to);
VXSIGN_API uint32_t vxMove(VX_SIGN_TEXT const char* from, VX_SIGN_TEXT const char* to);

/* Deletes a file on the sign. */
VXSIGN_API uint32_t vxDelete(VX_SIGN_TEXT const char* path);

/* Deletes the play list "c:\playlist\sequent<index>.sys". */
VXSIGN_API uint32_t vxPLDeleteByIndex(uint8_t index);

/* Delete the content files of one kind; which of them is the sign's selector. */
VXSIGN_API uint32_t vxDelTextFiles(uint8_t selector);
VXSIGN_API uint32_t vxDelStringFiles(uint8_t selector);
VXSIGN_API uint32_t vxDelPictureFiles(uint8_t selector);
VXSIGN_API uint32_t vxDelArrpicFiles(uint8_t selector);

/* Deletes all that the sign plays. With mode 1 out is required and gets a number; with any other it is not used. */
VXSIGN_API uint32_t vxClearAllPlayFiles(uint8_t mode, VX_OUT VX_OPTIONAL uint16_t* out);

/* 0 when the file is there. */
VXSIGN_API uint32_t vxIsFileExist(VX_SIGN_TEXT const char* path);

/* The entries of a folder: total gets their number, entries up to maxEntries records of 32 bytes as the sign made them.
 * The second form asks for count entries from start on; of its path 252 bytes go out. */
VXSIGN_API uint32_t vxGetDirFile(VX_SIGN_TEXT const char* path, VX_OUT uint32_t* total,
                                 VX_OUT VX_BYTES(maxEntries * 32) uint8_t* entries, uint32_t maxEntries);
VXSIGN_API uint32_t vxGetDirFileEx(VX_SIGN_TEXT const char* path, uint16_t start, uint16_t count,
                                   VX_OUT uint32_t* total, VX_OUT VX_BYTES(maxEntries * 32) uint8_t* entries,
                                   uint32_t maxEntries);

/* Writes the entries of a folder into a local file: "FL", their number (16 bits), the file's size and 0 (32 bits each),
 * then the entries. A folder of more than 20 entries lists the first 20 twice, and its last entries are missing. The
 * header is written in any case. Returns VX_OPEN_FILE when the local file cannot be made, VX_CALL when it cannot be
 * written. */
VXSIGN_API uint32_t vxLstFolder(VX_PATH const char* localFile, VX_SIGN_TEXT const char* signPath);

/* Reads the listing of a folder with long names, as the sign makes it, into a local file; results of
 * vxReadSpecPathFile. It is a second connection to the sign, beside the first. */
VXSIGN_API uint32_t vxGetDirLongFileEx(VX_SIGN_TEXT const char* path, VX_PATH const char* localFile);

/* Takes one entry of a long listing, 276 bytes as the sign made them. Must not throw. */
typedef uint32_t (*vxOnFolderEntry)(VX_BYTES(276) uint8_t* entry, VX_OPTIONAL void* user);

/* Calls callback for each entry of a long listing. Returns what the last call gave, whatever came before it; the result
 * of vxGetDirLongFileEx when that fails, VX_OPEN_FILE when the temporary file cannot be read, VX_FILE_FORMAT when it
 * is no listing. */
VXSIGN_API uint32_t vxLstLongFolderCB(VX_SIGN_TEXT const char* signPath, vxOnFolderEntry callback,
                                      VX_OPTIONAL void* user);

VXSIGN_END

#endif
