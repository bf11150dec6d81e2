/* Login and passwords. A sign that asks for a login refuses other commands with VX_LOGIN_WANTED until someone is logged
 * in; it is the sign that remembers who, and it tells a second user with VX_IN_USE. */
#ifndef VXSIGN_LOGIN_H
#define VXSIGN_LOGIN_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The sign
 * refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION. */
VXSIGN_API uint32_t vxLogin(VX_SIGN_TEXT const char* user, VX_SIGN_TEXT const char* password);
VXSIGN_API uint32_t vxLogout(void);
VXSIGN_API uint32_t vxChangePSW(VX_SIGN_TEXT const char* user, VX_SIGN_TEXT const char* oldPassword,
                                VX_SIGN_TEXT const char* newPassword);

/* The servers that the sign knows: total gets their number, entries up to maxEntries records of 68 bytes as the sign
 * made them. */
VXSIGN_API uint32_t vxGetAPIServerTable(VX_OUT uint32_t* total, VX_OUT VX_BYTES(maxEntries * 68) uint8_t* entries,
                                        uint32_t maxEntries);

VXSIGN_END

#endif
