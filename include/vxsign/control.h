/* Plain control of the sign. */
#ifndef VXSIGN_CONTROL_H
#define VXSIGN_CONTROL_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Turns the face dark, and lets it show again what the sign plays. */
VXSIGN_API uint32_t vxBlackScreen(void);
VXSIGN_API uint32_t vxEndBlackScreen(void);

VXSIGN_END

#endif
