/* Video processors in front of a sign: the MPU and the VPU.
 *
 * What first, second, value1 and so on mean is the processor's; the library carries the numbers and sets no limits.
 */
#ifndef VXSIGN_VIDEO_H
#define VXSIGN_VIDEO_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* MPU: channels, pictures and ports. edid: 15 bytes. */
VXSIGN_API uint32_t vxMPUSelChannel(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxMPUSelChannelEx(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxMPUSetVideoArg(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxMPUSetHDMI_DP_Out(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxMPUSetEDID(uint8_t first, VX_BYTES(15) const uint8_t* edid);
VXSIGN_API uint32_t vxMPUSetINBPhase(uint8_t first, uint8_t second);

/* Sets a window, which takes the MPU a while: *taskId becomes the number to ask for its progress with; a null leaves it
 * out. Of first the low byte goes over. There is no waiting here, and which progress means the end is the MPU's. */
VXSIGN_API uint32_t vxMPUSetWin(uint16_t first, uint16_t value1, uint16_t value2, uint16_t value3, uint16_t value4,
                                uint8_t last, VX_OUT VX_OPTIONAL uint32_t* taskId);
VXSIGN_API uint32_t vxMPUProgressByTaskID(uint32_t taskId, VX_OUT uint8_t* progress);

/* VPU: channel, mode, windows and picture. */
VXSIGN_API uint32_t vxVPUSelChannel(uint8_t first);
VXSIGN_API uint32_t vxVPUSetMode(uint8_t first, uint8_t second);
VXSIGN_API uint32_t vxVPUSetVideoRatio(uint8_t first);
VXSIGN_API uint32_t vxVPUSetDVIWin(uint16_t value1, uint16_t value2);
VXSIGN_API uint32_t vxVPUSetVideoWin(uint16_t value1, uint16_t value2);
VXSIGN_API uint32_t vxVPUSetVideoArg(uint16_t value1, uint16_t value2);
VXSIGN_API uint32_t vxVPUType(uint8_t first);
VXSIGN_API uint32_t vxVPUSlaverStartLine(uint16_t value1);
VXSIGN_API uint32_t vxVPUSetColorTemp(uint8_t first, uint8_t second, uint8_t third, uint8_t fourth);
VXSIGN_API uint32_t vxVPUSetGamma(uint8_t first);

/* Brightness: four numbers. */
VXSIGN_API uint32_t vxVPUSetBright(uint8_t first, uint8_t second, uint8_t third, uint8_t fourth);
VXSIGN_API uint32_t vxVPUGetBright(VX_OUT uint8_t* out1, VX_OUT uint8_t* out2, VX_OUT uint8_t* out3,
                                   VX_OUT uint8_t* out4);

/* Number and position of the LDUs. Of each value the low byte goes over. */
VXSIGN_API uint32_t vxVPUSetLDUNums(uint8_t first);
VXSIGN_API uint32_t vxVPUSetLDUPos(uint16_t value1, uint16_t value2, uint16_t value3);

/* The state of the inputs, four numbers, and what the VPU tells about itself, 24 bytes. */
VXSIGN_API uint32_t vxVPUGetSignalStatus(VX_OUT uint16_t* status1, VX_OUT uint16_t* status2, VX_OUT uint16_t* status3,
                                         VX_OUT uint16_t* status4);
VXSIGN_API uint32_t vxVPUGetInfo(VX_OUT VX_BYTES(24) uint8_t* info);

/* The mode of the pixels. This and vxVPUGetInfo are one command to the VPU: with 0 for first it is taken for the
 * question, and its answer is dropped. */
VXSIGN_API uint32_t vxVPUSetPixcelMode(uint8_t first);

VXSIGN_END

#endif
