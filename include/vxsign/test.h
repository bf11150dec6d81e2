/* Test patterns, the sign's clock, and direct access to the protocol. */
#ifndef VXSIGN_TEST_H
#define VXSIGN_TEST_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Sends length bytes of data to the tube display under the given minor command. */
VXSIGN_API uint32_t vxTubeSet(uint8_t minor, const uint8_t* data, uint32_t length);

VXSIGN_END

#endif
