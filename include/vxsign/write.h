/* Writing files and small records to the sign.
 *
 * A file goes over in numbered packets of dataSize bytes (vxApiConfig). onProgress is called after each accepted
 * packet with the percentage so far. A transfer that fails just stops; the next one starts at the first packet.
 *
 * Common arguments:
 *   name   bare file name on the sign; the first 12 bytes count
 *   path   full path on the sign, such as "D:\T\NAME.NMG"; about 240 bytes reach the sign
 *   disk   drive letter
 *   local  path of the file on the PC. One that begins with "NG" holds a wrapped message: it is unwrapped into
 *          "<local>.tmp" beside it, and that file, which stays there, is sent in its place
 *
 * Beyond the results that all commands share, a file transfer returns VX_OPEN_FILE when the local file (or its ".tmp")
 * cannot be opened, VX_EMPTY_FILE for an empty file, VX_CALL_2 when memory runs out, VX_CALL when the ".tmp" cannot be
 * written, VX_ARGUMENTS for more packets than their numbers reach, or the refusal of the sign.
 */
#ifndef VXSIGN_WRITE_H
#define VXSIGN_WRITE_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* System files, such as "SEQUENT.SYS" or "CONFIG.SYS", and fonts: where they live is the sign's own. */
VXSIGN_API uint32_t vxWriteSystemFile(VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxWriteFontFile(VX_SIGN_TEXT const char* name, VX_PATH const char* local);

/* Content files by drive and name; the folder follows from the kind of file. */
VXSIGN_API uint32_t vxWriteTextFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxWriteStringFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxWritePictureFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);
VXSIGN_API uint32_t vxWriteArrPicFile(char disk, VX_SIGN_TEXT const char* name, VX_PATH const char* local);

/* Any path. The first form numbers its packets in 16 bits (65535 packets at most), the second in 32. */
VXSIGN_API uint32_t vxWriteSpecFile(VX_SIGN_TEXT const char* path, VX_PATH const char* local);
VXSIGN_API uint32_t vxWriteSpecFileEx(VX_SIGN_TEXT const char* path, VX_PATH const char* local);

/* As vxWriteSpecFileEx, with up to 8 packets on their way at a time. onProgress is called once, with 0 percent. Packets
 * that are not acknowledged within 4 seconds go out again; more than retries of these end the transfer with
 * VX_COMMUNICATION. The acknowledgement of a packet with id 0, once in the 65536 packets of a process, does not count
 * by rule: such a transfer ends with VX_COMMUNICATION (retries + 1) x 4 seconds behind its last acknowledgement. Send
 * the file once more then; one of 65535 packets and more needs vxWriteSpecFileEx. A file of one packet is sent twice.
 * Behind its last acknowledgement a window lasts (retries + 2) x 4 seconds at most. Through onRead it looks without
 * waiting, every 5 ms while nothing comes. */
VXSIGN_API uint32_t vxWriteFileOptimize(VX_SIGN_TEXT const char* path, VX_PATH const char* local);

/* Data flash contents: size bytes, the file's size if 0. A size beyond the file's end sends empty packets for the rest.
 */
VXSIGN_API uint32_t vxWriteDataFlashFile(VX_PATH const char* local, uint32_t size);

/* Memory of a board, in blocks of 1024 bytes from offset 0. The board is addrHigh; addrLow is 0 or 1, and the
 * destination address of the call is (addrHigh << 8) | addrLow. A file that cannot be opened gives VX_ARGUMENTS. When
 * the transfer fails, the thread's destinationAddress stays changed. */
VXSIGN_API uint32_t vxWriteAbsoluteAddress(uint8_t addrLow, uint8_t addrHigh, VX_PATH const char* local);

/* An urgent message of len bytes; a and b are the sign's selectors. The sign refuses more than 1024 bytes. */
VXSIGN_API uint32_t vxWriteUrgentMsg(uint8_t a, uint8_t b, VX_BYTES(len) const uint8_t* data, uint32_t len);

/* The brightness control block: 12 bytes that only the sign interprets. */
VXSIGN_API uint32_t vxWriteBrightCtrlBlock(VX_BYTES(12) const void* block);

/* Serial number (11 bytes at most) and hardware address (16 bytes at most) of the sign. */
VXSIGN_API uint32_t vxWriteSNMAC(VX_BYTES(snSize) const uint8_t* sn, uint32_t snSize,
                                 VX_BYTES(macSize) const uint8_t* mac, int macSize);

/* The default display style: 52 bytes. Byte 2 is 'E' or 'C' (where the content plays from), bytes 11 and 12 are entry
 * and exit mode, byte 14 is a short stay time in seconds, 255 meaning the 32-bit stay time at offset 16. */
VXSIGN_API uint32_t vxWriteDefDisplayStyle(VX_BYTES(52) const void* style);

/* Size and checksum that the sign is to find for a file. The first 32 bytes of name count. */
VXSIGN_API uint32_t vxWriteCRCForFile(VX_SIGN_TEXT const char* name, uint32_t size, uint16_t crc);

/* Update status of the board (addrHigh << 8) | addrLow: 0, 1 or 2, but not 1 where addrLow is 1. */
VXSIGN_API uint32_t vxLCSetUpdateStatus(uint8_t addrLow, uint8_t addrHigh, uint8_t status);

VXSIGN_END

#endif
