/* Roadside field devices on a Modbus RTU line: one 16-bit holding register read or written by each call.
 *
 * The frames go over the thread's channel, or through onWrite and onRead, without the packets of the sign: one write of
 * 8 bytes and an answer of up to 1536, each limited by timeoutMs (vxApiConfig), up to retries times. Over TCP the
 * answer may come in pieces, with any gaps between them, on a serial line with gaps of 50 ms; the reading ends with the
 * answer. Over UDP, and through onRead, the answer is what one read gives. abortFlag ends the wait.
 *
 * device: the Modbus address. section: the sub-unit of a device; classes without it have none. registerNumber counts
 * within the section and goes over as section * 100 + registerNumber, or 0xFF00 + registerNumber for section 255 and
 * for classes without sections. What a register means is the device's.
 *
 * Results: 0 done; VX_ARGUMENTS, with nothing sent, for a register that the class does not have or that a Set refuses;
 * VX_INCONSISTENT_MAJOR when the device confirmed another write than the one sent; VX_COMMUNICATION when it gave no
 * valid answer in all tries, VX_ABORTED when abortFlag was set before it gave one. A register that is told by the
 * address of the device or by 255 answers a Get, and ends a Set as done. A value of null is left out.
 *
 * A device that answers with an exception has given no valid answer. What it said goes to onLog, for each try, as
 * "the device refused: " (line 620, level 6) and one of: illegal function (1), illegal data address (2), illegal data
 * value (3), server device failure (4), acknowledge (5), server device busy (6), negative acknowledge (7), memory
 * parity error (8), gateway path unavailable (10), gateway target device failed to respond (11), exception <code>.
 *
 *            Get        Set        a Set refuses
 *   LC       0 to 63    0 to 63    8 to 10, 17, 22, 55 to 62
 *   TLS      0 to 26    0 to 26    11 to 13, 15, 22
 *   ALCS     any        0 to 28    11 to 13, 15, 19, 20, 22
 *   MLCS     0 to 29    0 to 29    11, 13 to 15, 22
 *   VSLS     0 to 29    0 to 30    11, 12, 14, 15, 22
 *   TOR      0 to 23    0 to 24    14, 15, 22
 *   VMS      0 to 100   0 to 100   11, 13 to 15, 18, 19, 22, 25, 30 to 32, 34, 35
 *   PVMS     0 to 67    0 to 67    8, 22, 63 to 66
 *
 * On any result but 0 the Gets of LC and PVMS leave value as it was; the others set it to 0.
 */
#ifndef VXSIGN_MODBUS_H
#define VXSIGN_MODBUS_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Reads and writes a register of a device of the class in the name. */
VXSIGN_API uint32_t vxMB_LCGet(uint8_t device, uint16_t registerNumber, VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_LCSet(uint8_t device, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_TLSGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_TLSSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_ALCSGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                 VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_ALCSSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_MLCSGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                 VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_MLCSSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

/* Reading VSLS is reading MLCS. */
VXSIGN_API uint32_t vxMB_VSLSGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                 VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_VSLSSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_TORGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_TORSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_VMSGet(uint8_t device, uint8_t section, uint16_t registerNumber,
                                VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_VMSSet(uint8_t device, uint8_t section, uint16_t registerNumber, uint16_t value);

VXSIGN_API uint32_t vxMB_PVMSGet(uint8_t device, uint16_t registerNumber, VX_OUT VX_OPTIONAL uint16_t* value);
VXSIGN_API uint32_t vxMB_PVMSSet(uint8_t device, uint16_t registerNumber, uint16_t value);

VXSIGN_END

#endif
