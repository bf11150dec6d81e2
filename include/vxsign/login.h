/* Login and passwords. A sign that asks for a login refuses other commands with 36912 until someone is logged in; it is
 * the sign that remembers who, and it tells a second user with 36917. */
#ifndef VXSIGN_LOGIN_H
#define VXSIGN_LOGIN_H

#include <vxsign/export.h>

VXSIGN_BEGIN

/* The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The sign
 * refuses with 36913 (password), 36914 (user), 36915 (old password) or 36918 (no such right). */
VXSIGN_API uint32_t vxLogin(const char* user, const char* password);
VXSIGN_API uint32_t vxLogout(void);
VXSIGN_API uint32_t vxChangePSW(const char* user, const char* oldPassword, const char* newPassword);

/* The servers that the sign knows: total gets their number, entries up to maxEntries records of 68 bytes as the sign
 * made them. */
VXSIGN_API uint32_t vxGetAPIServerTable(uint32_t* total, uint8_t* entries, uint32_t maxEntries);

VXSIGN_END

#endif
