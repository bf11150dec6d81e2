/* Firmware for a device whose boot loader receives XMODEM.
 *
 * The bytes go over the thread's channel, normally a serial line, or through onWrite and onRead, without the packets of
 * the sign. Steps and failures are reported on standard output, in words that applications know.
 */
#ifndef VXSIGN_XMODEM_H
#define VXSIGN_XMODEM_H

#include <vxsign/export.h>

VXSIGN_BEGIN

#define VX_UPGRADE_FAILED 0xFFFFFFFFu

/* Sends the file at path in blocks of 128 bytes, the last one filled up with 0x1A, once the receiver has asked for
 * them: with 'C' for blocks with a CRC, with NAK for blocks with a checksum. Each step is tried up to retries times
 * for timeoutMs: ten steps for the receiver to ask, 20 for each block, and 11 more for one that it goes on refusing.
 * Behind a block that was confirmed silence ends the next one after one step. onProgress is called behind each block
 * that the receiver has confirmed, and counts those alone.
 *
 * VX_OPEN_FILE, with nothing sent, when the file cannot be opened. VX_UPGRADE_FAILED when the receiver does not ask, or
 * goes on refusing a block. Any other end gives VX_OK, also one without success: after "Fatal Error!" the receiver
 * answered a block neither with ACK nor with NAK, and "sedn EOT:wait ACK tiem out!" tells that it did not confirm the
 * end. Silence behind a block that was confirmed counts as another confirmation. abortFlag ends the waiting, and with
 * it the transfer in one of these ways.
 */
VXSIGN_API uint32_t vxXModem_Upgrade(VX_PATH const char* path);

VXSIGN_END

#endif
