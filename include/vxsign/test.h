/* Test patterns, the sign's clock, and direct access to the protocol. */
#ifndef VXSIGN_TEST_H
#define VXSIGN_TEST_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Asks for a sign of life: three numbers of the sign's. */
VXSIGN_API uint32_t vxConnectTest(VX_OUT uint16_t* first, VX_OUT uint16_t* second, VX_OUT uint32_t* third);

/* Test pattern 2 to 15, VX_ARGUMENTS for any other; and the end of the test, whichever it is. */
VXSIGN_API uint32_t vxPatternTest(uint8_t pattern);
VXSIGN_API uint32_t vxStopTest(void);

/* The whole face in one colour. */
VXSIGN_API uint32_t vxColorTest(uint8_t red, uint8_t green, uint8_t blue);

/* The state that vxCrayTest shows: 6 bytes, a binary contract. */
#pragma pack(push, 1)
typedef struct vxCrayState
{
    uint32_t first;
    uint16_t second;
} vxCrayState;
#pragma pack(pop)

/* Shows the cray test in that state. */
VXSIGN_API uint32_t vxCrayTest(const vxCrayState* state);

/* An area of the face: 24 bytes (three numbers of 64 bits) that only the sign interprets. */
VXSIGN_API uint32_t vxAreaTest(VX_COUNT(3) const uint64_t* area);

/* Locations on the face: five numbers and count values of 16 bits. */
VXSIGN_API uint32_t vxLocationTest(uint16_t first, uint16_t second, uint16_t third, uint16_t fourth,
                                   VX_BYTES(count * 2) const void* data, uint32_t count, uint16_t fifth);

/* Which debug information the sign gives. */
VXSIGN_API uint32_t vxDebugInfoSetting(uint32_t value);

/* Sends length bytes for a stability test, in a packet whose id is id + 1. The ids of all threads go on from there. */
VXSIGN_API uint32_t vxStabilityTest(VX_BYTES(length) const void* data, uint8_t length, uint16_t id);

/* The sign's clock. sixth to eighth are the sign's, in one order for both; sixth always reads as 0. */
VXSIGN_API uint32_t vxReadLEDTime(VX_OUT uint16_t* year, VX_OUT uint8_t* month, VX_OUT uint8_t* day,
                                  VX_OUT uint8_t* hour, VX_OUT uint8_t* minute, VX_OUT uint8_t* sixth,
                                  VX_OUT uint8_t* seventh, VX_OUT uint8_t* eighth);
VXSIGN_API uint32_t vxAjustLEDTimeEx(uint16_t year, uint8_t month, uint8_t day, uint8_t hour, uint8_t minute,
                                     uint8_t sixth, uint8_t seventh, uint8_t eighth);

/* Tells the sign temperature and humidity, once: 0 as soon as the channel is open, whatever the sign answers. second
 * goes over in sixteenths. */
VXSIGN_API uint32_t vxSendTempHumi(uint8_t first, int8_t second);

/* The speed limit: two numbers of the sign's. */
VXSIGN_API uint32_t vxWriteSpeedLimit(uint16_t first, uint16_t second);

/* Sends length bytes of data to the tube display under the given minor command. */
VXSIGN_API uint32_t vxTubeSet(uint8_t minor, VX_BYTES(length) const uint8_t* data, uint32_t length);

/* Any command: sends the given payload and extended part under major and minor, with the CRC in place of the sum when
 * crc is not 0. Whatever the result, requestOut (527 bytes at most) gets the request, replyOut (4608 bytes at most)
 * what was read back, each whole, and the two lengths their total lengths cut to 8 bits (a packet's own header has the
 * true one: 16 + 4 * byte 14 + byte 4 + 256 * byte 5). A reply that never came reads as zeros, of length 16. Null
 * outputs are left out. */
VXSIGN_API uint32_t vxCustomTest(uint8_t major, uint8_t minor, VX_BYTES(payloadLength) const void* payload,
                                 uint8_t payloadLength, VX_BYTES(extendedLength) const void* extended,
                                 uint8_t extendedLength, uint8_t crc, VX_OUT VX_OPTIONAL VX_BYTES(527) void* requestOut,
                                 VX_OUT VX_OPTIONAL uint8_t* requestLength,
                                 VX_OUT VX_OPTIONAL VX_BYTES(4608) void* replyOut,
                                 VX_OUT VX_OPTIONAL uint8_t* replyLength);

VXSIGN_END

#endif
