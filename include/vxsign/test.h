/* Test patterns, the sign's clock, and direct access to the protocol. */
#ifndef VXSIGN_TEST_H
#define VXSIGN_TEST_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Sends length bytes of data to the tube display under the given minor command. */
VXSIGN_API uint32_t vxTubeSet(uint8_t minor, const uint8_t* data, uint32_t length);

/* Any command: sends the given payload and extended part under major and minor, with the CRC in place of the sum when
 * crc is not 0. Whatever the result, requestOut (527 bytes at most) gets the request, replyOut (4608 bytes at most)
 * what was read back, each whole, and the two lengths their total lengths cut to 8 bits (a packet's own header has the
 * true one: 16 + 4 * byte 14 + byte 4 + 256 * byte 5). A reply that never came reads as zeros, of length 16. Null
 * outputs are left out. */
VXSIGN_API uint32_t vxCustomTest(uint8_t major, uint8_t minor, const void* payload, uint8_t payloadLength,
                                 const void* extended, uint8_t extendedLength, uint8_t crc, void* requestOut,
                                 uint8_t* requestLength, void* replyOut, uint8_t* replyLength);

VXSIGN_END

#endif
