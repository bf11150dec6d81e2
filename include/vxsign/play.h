/* What the sign plays: steering it, asking for it, sound, volume and screenshots.
 *
 * What the values of first, second and so on mean is the sign's; they go over as they are.
 */
#ifndef VXSIGN_PLAY_H
#define VXSIGN_PLAY_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* The play list: from its start, the current file again, pause, continue, next and previous file. */
VXSIGN_API uint32_t vxReplayList(void);
VXSIGN_API uint32_t vxReplayCurrFile(void);
VXSIGN_API uint32_t vxPlayPause(void);
VXSIGN_API uint32_t vxPlayContinue(void);
VXSIGN_API uint32_t vxPlayNext(void);
VXSIGN_API uint32_t vxPlayPrevious(void);

/* Within the current file: forward, back, one frame on. */
VXSIGN_API uint32_t vxPlayForword(void);
VXSIGN_API uint32_t vxPlayBack(void);
VXSIGN_API uint32_t vxPlayNextFrame(void);

/* Plays the file name ahead of all others; its first 12 characters count. */
VXSIGN_API uint32_t vxPlayPriority(uint8_t first, uint8_t second, VX_SIGN_TEXT const char* name);

/* Plays the play list of that number, and tells which one plays. */
VXSIGN_API uint32_t vxPlaySpePlaylist(uint8_t index);
VXSIGN_API uint32_t vxReadSpePlayListIndex(VX_OUT uint8_t* out);

/* The name of the file that plays, and of the next. out is cleared and gets outLength bytes at most; a name that fills
 * it has no terminator. VX_NOTHING_PLAYS when nothing plays. */
VXSIGN_API uint32_t vxGetPlayingFileName(VX_OUT VX_SIGN_TEXT VX_BYTES(outLength) char* out, uint32_t outLength);
VXSIGN_API uint32_t vxGetNextPlayFileName(VX_OUT VX_SIGN_TEXT VX_BYTES(outLength) char* out, uint32_t outLength);

/* Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer. */
VXSIGN_API uint32_t vxSoundCtrl(uint8_t first, uint8_t second, uint8_t third);
VXSIGN_API uint32_t vxPlaySoundFile(uint64_t value, VX_SIGN_TEXT const char* name);
VXSIGN_API uint32_t vxPlaySoundFile4j(const uint64_t* value, VX_SIGN_TEXT const char* name);
VXSIGN_API uint32_t vxAdjustVolume(uint8_t volume);
VXSIGN_API uint32_t vxReadCurVolume(VX_OUT uint8_t* out);

/* Timing runs. */
VXSIGN_API uint32_t vxBeginTiming(uint8_t first, uint8_t second, uint8_t third, uint8_t fourth);
VXSIGN_API uint32_t vxStopTiming(void);
VXSIGN_API uint32_t vxPauseTiming(void);
VXSIGN_API uint32_t vxContinueTiming(void);

/* Has the sign take a picture of its face and reads it, a JPEG, into a local file. The sign gets up to 10 tries, 200 ms
 * apart. The reading is a second connection to the sign, beside the first. Returns VX_OPEN_FILE when the local file
 * cannot be made, else the result of the last try. The second name stands for old applications. */
VXSIGN_API uint32_t vxReadCurScreenshot(VX_PATH const char* localFile);
VXSIGN_API uint32_t vxReadCurScreentshot(VX_PATH const char* localFile);

/* Reads the radar log, records of 16 bytes, into a local file; 50000 records at most. onProgress is called after each 5
 * of them, with one percent for 500. VX_OPEN_FILE when the local file cannot be made. The second deletes the log. */
VXSIGN_API uint32_t vxReadTJRadarLog2File(VX_PATH const char* localFile);
VXSIGN_API uint32_t vxClearTJRadarLog(void);

/* The settings of the default screen, two numbers: how long the default picture shows and how long the screen is black.
 * A sign that cannot be read gives two zeros and 0. Writing replaces the sign's file; it returns 1 when the temporary
 * file cannot be made, else the result of sending it. Both use a second connection to the sign, beside the first. */
VXSIGN_API uint32_t vxReadDefaultScreenSet(VX_OUT VX_COUNT(2) uint16_t* out);
VXSIGN_API uint32_t vxWriteDefaultScreenSet(VX_COUNT(2) const uint16_t* in);

VXSIGN_END

#endif
