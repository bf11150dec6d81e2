/* A named file in either direction, without knowing what the file is, and the picture of what the sign shows. */
#ifndef VXSIGN_MOVER_H
#define VXSIGN_MOVER_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Values of vxRWFile's mode. */
enum vxMoveMode
{
    VX_MOVE_READ = 1, /* from the sign to the PC */
    VX_MOVE_WRITE = 2 /* from the PC to the sign */
};

/* Moves a file. The local file's name, in upper or lower case, decides how:
 *   MONITOR.GIF       vxCurrentMsg2Gif(path, local), in both modes
 *   PLAYFILE.PLS,     a package of a play list and its files: reading does nothing and returns 0, writing unpacks it
 *   PLAYFILE.PLM      beside itself, sends the files to drive D and the list made of them, which plays at once. The
 *                     first failure ends it. progressTotal is the number of all uploads, progressPos of those done.
 *                     What is no package sends a SEQUENT.SYS that lies beside it.
 *   TRAFFICLIGHT.SYS  the sign's beacon as a file: "LT", number of records (16 bits: 1, or 0 when the beacon could not
 *                     be read), the file's size and 0 (32 bits each), then the 8 bytes of vxGetBeacon. Reading calls
 *                     onProgress once, with 90 percent. A file without "LT" gives VX_FILE_FORMAT.
 *   CONFIG.SYS        the sign's system file of that name
 *   any other         vxReadSpecPathFile(path, local) or vxWriteSpecFile(path, local)
 * path counts for the first and the last of these alone. Returns VX_NOT_INITIALISED for a null local or another mode,
 * VX_OPEN_FILE when the local file cannot be opened or made, else what the commands used give. */
VXSIGN_API uint32_t vxRWFile(VX_PATH const char* local, VX_SIGN_TEXT const char* path, uint32_t mode);

/* Has onMessageToGif (vxApiConfig), with the settings 20 and 1000, turn the message that the sign shows now into the
 * file gifPath. The message file is looked for in tempFolder, under the name that the sign tells, less any folder; it
 * is "__BLANK.VXB" when nothing plays, and the result is then VX_NOTHING_PLAYS. The folder and the name are joined
 * with a backslash. Returns what vxGetPlayingFileName gives, whatever the converter does. */
VXSIGN_API uint32_t vxCurrentMsg2Gif(VX_PATH const char* tempFolder, VX_PATH const char* gifPath);

VXSIGN_END

#endif
