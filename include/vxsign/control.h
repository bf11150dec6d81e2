/* Plain control of the sign: power, brightness, reset, beacons and what else is connected to it.
 *
 * What the values of levels, codes, beacons, equipment and generator mean is the sign's; they go over as they are.
 */
#ifndef VXSIGN_CONTROL_H
#define VXSIGN_CONTROL_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Turns the face dark, and lets it show again what the sign plays. */
VXSIGN_API uint32_t vxBlackScreen(void);
VXSIGN_API uint32_t vxEndBlackScreen(void);

/* Starts the sign's controller again; the second form starts it cold. */
VXSIGN_API uint32_t vxResetSystem(void);
VXSIGN_API uint32_t vxResetSystemCool(void);

/* Resets the sign to what its data flash holds and waits for the end of it: up to 100 polls, 30 ms apart. onProgress is
 * called after each with its number from 0 on, and with 100 at the end; progressTotal becomes 100 and progressPos the
 * number. Returns the sign's refusal of the reset, or the result of the last poll. */
VXSIGN_API uint32_t vxResetSystemToDataFlash(void);

/* Power of the face: off for 0, on otherwise; and its two state bytes. */
VXSIGN_API uint32_t vxPowerOnOff(int8_t on);
VXSIGN_API uint32_t vxGetPowerState(VX_OUT uint8_t* first, VX_OUT uint8_t* second);

/* Brightness: one level, two, or 8 bytes for the sides of the sign. */
VXSIGN_API uint32_t vxBrightAdjust(uint8_t level);
VXSIGN_API uint32_t vxBrightAdjustEx(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxBrightAdjustSides(VX_BYTES(8) const void* sides);

/* Serial speed of the sign. The thread's own baudRate stays as it is. */
VXSIGN_API uint32_t vxChangeBaudRate(uint8_t rateCode);

/* Checking of the sign's Ethernet line. */
VXSIGN_API uint32_t vxSetEthCheck(uint8_t value);
VXSIGN_API uint32_t vxReadEthCheck(VX_OUT uint8_t* first, VX_OUT uint8_t* second);

/* Switches the sign between online and offline operation; mode is the sign's. */
VXSIGN_API uint32_t vxSwitchOnlineOffline(uint8_t mode);

/* Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's answer, 8
 * bytes at most; the rest of out stays as it was. */
VXSIGN_API uint32_t vxSetBeacon(const uint64_t* value);
VXSIGN_API uint32_t vxGetBeacon(VX_OUT VX_BYTES(8) uint8_t* out);
VXSIGN_API uint32_t vxSetSignBeacon(const uint64_t* value);
VXSIGN_API uint32_t vxGetSignBeacon(VX_OUT VX_BYTES(8) uint8_t* out);
VXSIGN_API uint32_t vxSetExternalEquipment(const uint64_t* value);
VXSIGN_API uint32_t vxGetExternalEquipment(VX_OUT VX_BYTES(8) uint8_t* out);

/* Sets the generator. out, if not null, gets up to 8 bytes of the sign's answer. */
VXSIGN_API uint32_t vxGeneratorSet(uint8_t first, uint8_t second, VX_OUT VX_OPTIONAL VX_BYTES(8) void* out);

/* Sets or reads the commit status. out, if not null, gets one byte. */
VXSIGN_API uint32_t vxCommitStatusRW(uint8_t first, uint8_t second, VX_OUT VX_OPTIONAL uint8_t* out);

/* The LCS setting and the two FH settings. */
VXSIGN_API uint32_t vxSetLCS(uint8_t value);
VXSIGN_API uint32_t vxGetLCS(VX_OUT uint8_t* out);
VXSIGN_API uint32_t vxSetFH(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxGetFH(VX_OUT uint8_t* first, VX_OUT uint8_t* second);

/* Speaks dataLength bytes of voice data. */
VXSIGN_API uint32_t vxPlayVoice(uint8_t first, uint8_t second, VX_BYTES(dataLength) const void* data,
                                uint8_t dataLength);

VXSIGN_END

#endif
