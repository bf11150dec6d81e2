/* A message on the sign in one call, with no vxInitAPI before: the connection is an argument.
 *
 * Each function puts a configuration of its own in place of the thread's, and leaves it there. Common arguments:
 *   font, colour, mode, staySec  as in content.h
 *   host, port                   IPv4 address as dotted text (32 bytes of it are taken) and port of the sign
 *   toE                          not 0: drive E takes the content; 0: drive F if the sign has one, else D
 *   sendSequence                 0: the message goes over, but the sign's play list stays as it was
 *   kind, serialName, baudRate, destinationAddress  as in vxApiConfig; serialName may be null unless kind is serial
 *   what                         0 files and sequence, 1 files alone, 2 sequence alone, anything else neither
 *
 * They return 0 (also when the thread's record of the sign cannot be made: nothing is sent then); VX_ARGUMENTS for a
 * null text, picture, list or host, or an empty list; VX_OPEN_FILE when a temporary file cannot be made; VX_CALL on a
 * failure that has no code of its own; or the first result that was not 0.
 */
#ifndef VXSIGN_QUICKSHOW_H
#define VXSIGN_QUICKSHOW_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the limits of
 * vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays; when the sign
 * refuses the message, vxShowMsg leaves it and the others delete it. */
VXSIGN_API uint32_t vxShowMsg(VX_SIGN_TEXT VX_BYTES(size) const uint8_t* text, uint32_t size, uint32_t font,
                              uint32_t colour, uint32_t mode, uint32_t staySec, const char* host, uint32_t port,
                              uint32_t toE, int sendSequence);
VXSIGN_API uint32_t vxShowMsgEx(VX_SIGN_TEXT VX_BYTES(size) const uint8_t* text, uint32_t size, uint32_t font,
                                uint32_t colour, uint32_t mode, uint32_t staySec, const char* host, uint32_t port,
                                uint32_t toE, int sendSequence, uint32_t kind,
                                VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                uint16_t destinationAddress);
VXSIGN_API uint32_t vxShowMsgTimeout(VX_SIGN_TEXT VX_BYTES(size) const uint8_t* text, uint32_t size, uint32_t font,
                                     uint32_t colour, uint32_t mode, uint32_t staySec, const char* host, uint32_t port,
                                     uint32_t toE, int sendSequence, uint8_t retries, uint32_t timeoutMs, uint32_t kind,
                                     VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                     uint16_t destinationAddress);

/* Shows a picture: size bytes of a picture file of any type that the sign knows. 3 tries of 3000 ms. */
VXSIGN_API uint32_t vxShowPic(VX_BYTES(size) const uint8_t* buf, uint32_t size, uint32_t mode, uint32_t staySec,
                              const char* host, uint32_t port, uint32_t toE);
VXSIGN_API uint32_t vxShowPicEx(VX_BYTES(size) const uint8_t* buf, uint32_t size, uint32_t mode, uint32_t staySec,
                                const char* host, uint32_t port, uint32_t toE, uint32_t kind,
                                VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                uint16_t destinationAddress);

/* Shows count local files (128 at most) one after the other, all with the same mode and stay time, which become the
 * sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on the sign, and what
 * the sign plays stays as it was. */
VXSIGN_API uint32_t vxShowFiles(VX_PATH VX_COUNT(count) const char** files, uint32_t count, int mode, uint32_t staySec,
                                const char* host, uint32_t port, uint32_t toE);
VXSIGN_API uint32_t vxShowFilesEx(VX_PATH VX_COUNT(count) const char** files, uint32_t count, int mode,
                                  uint32_t staySec, const char* host, uint32_t port, uint32_t toE, uint32_t kind,
                                  VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                  uint16_t destinationAddress);
VXSIGN_API uint32_t vxShowFilesSpe(VX_PATH VX_COUNT(count) const char** files, uint32_t count, int mode,
                                   uint32_t staySec, const char* host, uint32_t port, uint32_t toE, uint32_t kind,
                                   VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                   uint16_t destinationAddress, uint8_t what);

/* The same with a tree-form sequence file that is valid at all times and carries types[i] for file i. The sign's
 * display style is left alone, the files go over whatever what says, a file that fails does not stop the list, and the
 * result is that of the last transfer; 1 when the temporary file cannot be made. reserved is not used. */
VXSIGN_API uint32_t vxShowFilesII(VX_PATH VX_COUNT(count) const char** files, uint32_t count,
                                  VX_BYTES(count) const uint8_t* types, uint32_t reserved, const char* host,
                                  uint32_t port, uint32_t toE, uint32_t kind,
                                  VX_OPTIONAL VX_PATH const char* serialName, uint32_t baudRate,
                                  uint16_t destinationAddress, uint8_t what);

/* vxTubeSet(cmd, data, size) with the connection as arguments. */
VXSIGN_API uint32_t vxTubeCtrl(uint8_t cmd, VX_BYTES(size) const uint8_t* data, uint32_t size, const char* host,
                               uint32_t port);
VXSIGN_API uint32_t vxTubeCtrlEx(uint8_t cmd, VX_BYTES(size) const uint8_t* data, uint32_t size, const char* host,
                                 uint32_t port, uint32_t kind, VX_OPTIONAL VX_PATH const char* serialName,
                                 uint32_t baudRate, uint16_t destinationAddress);

VXSIGN_END

#endif
