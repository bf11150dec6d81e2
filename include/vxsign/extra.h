/* The extra board behind the sign's control board: collection of data, digital inputs and outputs, Wi-Fi.
 *
 * The layouts of its blocks are the board's. Collection and IO address a board by its number; destinationAddress of
 * vxApiConfig stays as it is. Replies are copied as far as they go, the rest of a buffer stays as it was.
 */
#ifndef VXSIGN_EXTRA_H
#define VXSIGN_EXTRA_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Collection: sends 8 bytes of data; reads up to 38 bytes. */
VXSIGN_API uint32_t vxExtraCollectCtrl(VX_BYTES(8) const uint8_t* data, uint8_t board);
VXSIGN_API uint32_t vxExtraCollectRead(VX_OUT VX_BYTES(38) uint8_t* buffer, uint8_t board);

/* Inputs and outputs: sends 16 bytes of data; reads up to 68 bytes. */
VXSIGN_API uint32_t vxExtraIOCtrl(VX_BYTES(16) const uint8_t* data, uint8_t board);
VXSIGN_API uint32_t vxExtraIORead(VX_OUT VX_BYTES(68) uint8_t* buffer, uint8_t board);

/* Unlocks the Wi-Fi module with length bytes of data; *result becomes its answer. */
VXSIGN_API uint32_t vxExtraWifiUnlock(VX_BYTES(length) const uint8_t* data, uint8_t length, VX_OUT uint32_t* result);

/* The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them with up to
 * 44 of the answer. */
VXSIGN_API uint32_t vxExtraWifiSetInfo(VX_BYTES(44) const uint8_t* wifiInfo);
VXSIGN_API uint32_t vxExtraWifiGetInfo(VX_INOUT VX_BYTES(44) uint8_t* wifiInfo);
VXSIGN_API uint32_t vxExtraWifiReset(void);

VXSIGN_END

#endif
