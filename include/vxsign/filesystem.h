/* The sign's drives, folders and files. Paths on the sign look like "D:\T\NAME.NMG". */
#ifndef VXSIGN_FILESYSTEM_H
#define VXSIGN_FILESYSTEM_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Deletes a file on the sign. path goes out with its terminator, 256 bytes at most. */
VXSIGN_API uint32_t vxDelete(const char* path);

VXSIGN_END

#endif
