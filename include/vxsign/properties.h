/* What kind of sign it is, read from its default display style and its "CONFIG.SYS" and kept for the thread. */
#ifndef VXSIGN_PROPERTIES_H
#define VXSIGN_PROPERTIES_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Arguments of vxGetProperty. */
enum vxPropertyKind
{
    VX_PROPERTY_HAS_DRIVE_F = 1,    /* uint32_t: 1 if the sign has a drive F, else 0 */
    VX_PROPERTY_CONTENT_SOURCE = 2, /* uint8_t: 'E' when the content plays from drive E, 'C' otherwise */
    VX_PROPERTY_DISPLAY_STYLE = 3,  /* outLength bytes of the display style (52) and what lies behind it */
    VX_PROPERTY_SEQUENCE_FORM = 4   /* uint8_t: 1 when bit 27 of the word at 152 of CONFIG.SYS is set, else 0 */
};

/* How the sign is reached: 84 bytes, a binary contract. */
typedef struct vxCommunicationSet
{
    char address[32];       /* the sign's IPv4 address, dotted text */
    uint16_t port;          /* its port */
    uint8_t firstSetting;   /* carried unread; their meaning is the sign's */
    uint8_t secondSetting;  /* see firstSetting */
    char secondAddress[32]; /* further IPv4 addresses, dotted text; their meaning is the sign's */
    char thirdAddress[16];
} vxCommunicationSet;

/* Reads the default display style and "CONFIG.SYS" of the sign into the thread's record, if they are not there yet,
 * and the style once more in any case. Returns 1 when the record cannot be made, VX_OPEN_FILE when the temporary file
 * cannot be read, else the result of the failed read or 0. */
VXSIGN_API uint32_t vxInitProperty(void);

/* Copies a property (vxPropertyKind) out of the thread's record. Returns 0, also for an unknown kind, which writes
 * nothing; VX_NOT_INITIALISED before a successful vxInitProperty, for a null out or an outLength of 0. A value that is
 * wider than outLength is cut. */
VXSIGN_API uint32_t vxGetProperty(VX_OUT VX_BYTES(outLength) uint8_t* out, uint32_t outLength, int propertyKind);

/* Reads the communication settings from the sign. The next vxInitProperty then reads the sign afresh. Returns what
 * vxInitProperty gives; a null out is left out. */
VXSIGN_API uint32_t vxReadCommunicationSet(VX_OUT VX_OPTIONAL vxCommunicationSet* out);

/* Writes the communication settings into the sign's "CONFIG.SYS". An address is four numbers of 0 to 255 with a dot
 * behind each of the first three; blanks ahead of a number and whatever stands behind the last one do not count. An
 * empty one leaves the sign's own. The thread's record keeps the new settings even when sending them fails.
 * Returns 0 with nothing written for a sign whose properties cannot be read; VX_ARGUMENTS, with nothing written, for an
 * address that is none; VX_OPEN_FILE when the temporary file cannot be made, VX_CALL when it cannot be written, else
 * the result of sending it. */
VXSIGN_API uint32_t vxWriteCommunicationSet(const vxCommunicationSet* in);

VXSIGN_END

#endif
