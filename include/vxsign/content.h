/* NMG message files: text or a picture with its display attributes, as the sign plays them.
 *
 * Attributes, the same for all builders:
 *   font     48 ('0') to 169 pass through as one byte, any other value becomes '1'
 *   colour   low byte 47 ('/'): all four bytes are written, '/' and the three colour bytes above it;
 *            otherwise a value from 48 on gives its low byte, anything lower '1'
 *   mode     entry and exit mode in one; below 47 becomes '0', otherwise the low byte
 *   staySec  seconds to stay, written modulo 10000
 *
 * None of these functions talks to a sign. They return 0; VX_ARGUMENTS; VX_OPEN_FILE when a file cannot be opened or
 * made (a target written in part stays); VX_CALL on any other failure.
 */
#ifndef VXSIGN_CONTENT_H
#define VXSIGN_CONTENT_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Writes a text message of size bytes to the file path, in the file form ("QZ00SAX"). The text goes in as it stands,
 * control bytes included. A size of 0 gives VX_ARGUMENTS. */
VXSIGN_API uint32_t vxShowMsgToNmg(VX_SIGN_TEXT VX_BYTES(size) const uint8_t* text, uint32_t size,
                                   VX_PATH const char* path, int font, uint32_t colour, uint32_t mode,
                                   uint32_t staySec);

/* Wraps a picture file of any type, unchanged, into an NMG file in the transmission form. */
VXSIGN_API uint32_t vxShowBmpToNmg(VX_PATH const char* bmpPath, VX_PATH const char* nmgPath, uint32_t mode,
                                   uint32_t staySec);

/* The same in the file form. Note the order of staySec and mode. */
VXSIGN_API uint32_t vxBmp2Nmg(VX_PATH const char* bmpPath, VX_PATH const char* nmgPath, uint16_t staySec, uint8_t mode);

VXSIGN_END

#endif
