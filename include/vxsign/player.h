/* The player core: a controller that holds named projects and programs.
 *
 * Texts name things in the player and mean nothing to the library. They go over without their terminator, and the
 * first 255 bytes of each count unless a function says otherwise. A request holds 3072 bytes; a name or data that does
 * not fit gives VX_ARGUMENTS. Values, modes and flags are the player's and go over as they are.
 */
#ifndef VXSIGN_PLAYER_H
#define VXSIGN_PLAYER_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* What vxCoreProjectInfoEx sends along: 20 bytes that only application and player interpret. */
#pragma pack(push, 1)
typedef struct ProjectExtra
{
    uint8_t bytes[20];
} ProjectExtra;
#pragma pack(pop)

/* Plays a program. text3 may be null, and text4 too; the others give VX_ARGUMENTS. Both forms are one command to the
 * player: the flag goes where the second form has the length of its text4. */
VXSIGN_API uint32_t vxCorePlayProgram(VX_SIGN_TEXT const uint8_t* text1, VX_SIGN_TEXT const uint8_t* text2,
                                      VX_OPTIONAL VX_SIGN_TEXT const uint8_t* text3, uint8_t flag);
VXSIGN_API uint32_t vxCorePlayWindowProgram(VX_SIGN_TEXT const uint8_t* text1, VX_SIGN_TEXT const uint8_t* text2,
                                            VX_OPTIONAL VX_SIGN_TEXT const uint8_t* text3,
                                            VX_OPTIONAL VX_SIGN_TEXT const uint8_t* text4);

/* Ends the program of that name. Of the name go as many bytes as the low 8 bits of its length say: 44 of 300. A null
 * names none. */
VXSIGN_API uint32_t vxCoreStopPlay(VX_OPTIONAL VX_SIGN_TEXT const uint8_t* name);

/* Plays an emergency program, with text3 as above, and ends it. */
VXSIGN_API uint32_t vxCorePlayEmergencyProgram(VX_SIGN_TEXT const uint8_t* text1, VX_SIGN_TEXT const uint8_t* text2,
                                               VX_OPTIONAL VX_SIGN_TEXT const uint8_t* text3);
VXSIGN_API uint32_t vxCoreStopEmergencyProgram(void);

/* Switches to a program, and the mode of switching. VX_ARGUMENTS for a mode above 2. */
VXSIGN_API uint32_t vxCoreSwitchProgram(VX_SIGN_TEXT const uint8_t* name, uint8_t mode);
VXSIGN_API uint32_t vxCoreSwitchMode(uint8_t mode);

/* The mode of the windows, with length bytes of data; none if data is null. */
VXSIGN_API uint32_t vxCoreWinMode(uint8_t mode, VX_OPTIONAL VX_BYTES(length) const void* data, uint32_t length);

/* Tells the player about a project. name may be null, extra not. */
VXSIGN_API uint32_t vxCoreProjectInfo(VX_OPTIONAL VX_SIGN_TEXT const uint8_t* name, uint16_t value1, uint16_t value2);
VXSIGN_API uint32_t vxCoreProjectInfoEx(VX_OPTIONAL VX_SIGN_TEXT const uint8_t* name, uint16_t value1, uint16_t value2,
                                        const ProjectExtra* extra);

/* How far the synchronising of a project is: two numbers of the player's. */
VXSIGN_API uint32_t vxCorePrjSyncProgress(VX_OUT uint8_t* out1, VX_OUT uint8_t* out2);

/* The properties of a file, whose name goes over whole and may be null; and what plays. Both write outLength bytes at
 * most, as many as the player sends, and leave the rest of out as it was. VX_ARGUMENTS for an outLength of 0. The first
 * counts the bytes of the reply's extended part but takes them from where the reply's payload begins. */
VXSIGN_API uint32_t vxCoreGetFileProperty(VX_OPTIONAL VX_SIGN_TEXT const uint8_t* name,
                                          VX_OUT VX_BYTES(outLength) uint8_t* out, uint32_t outLength);
VXSIGN_API uint32_t vxCoreGetPlayInfo(VX_OUT VX_BYTES(outLength) uint8_t* out, uint32_t outLength);

VXSIGN_END

#endif
